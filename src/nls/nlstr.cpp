// NLSTRMON, NLSTRQTR, NLSTRWK: the locale's name of a month (1-12), quarter
// (1-4) or weekday (1-7, Sunday first) given as a number. The full name when
// it fits the width, else the abbreviation; another number gives '*'.
#include "xfmt/xfmt.h"

#include "nls/locale_fields.hpp"
#include "nls/nl_member.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::nls;

XF_ROUTINE(nlstrmon, f) { return run_name(f, lf::month_full_jan, lf::month_abbr_jan, 12); }
XF_ROUTINE(nlstrqtr, f) { return run_name(f, lf::quarter_full_1, lf::quarter_abbr_1, 4); }
XF_ROUTINE(nlstrwk, f) { return run_name(f, lf::weekday_full_sun, lf::weekday_abbr_sun, 7); }
