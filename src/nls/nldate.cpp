// NLDATE and its members: a date value in the words and order of a locale.
// Two-pattern members try a long and a short locale pattern, one-pattern
// members the first row of their table, S members the short numeric form.
#include "xfmt/xfmt.h"

#include "nls/nl_member.hpp"
#include "core/routine_guard.hpp"
#include "nls/locale_fields.hpp"

namespace lf = xfmt::nls::lf;

constexpr int32_t short_numeric = 190;  // the short numeric form, not a field

// Pattern tables: only the first row is read; the others are kept as data.
extern "C" const xf_nl_pattern nldatel_pat[3] = {{nullptr, lf::date_long},
                                                 {nullptr, lf::date_medium},
                                                 {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatem_pat[2] = {{nullptr, lf::date_medium},
                                                 {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldateyml_pat[3] = {{nullptr, lf::year_month_long},
                                                   {nullptr, lf::year_month_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldateymm_pat[2] = {{nullptr, lf::year_month_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldateyql_pat[3] = {{nullptr, lf::year_quarter_long},
                                                   {nullptr, lf::year_quarter_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldateyqm_pat[2] = {{nullptr, lf::year_quarter_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatemdl_pat[3] = {{nullptr, lf::month_day_long},
                                                   {nullptr, lf::month_day_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatemdm_pat[2] = {{nullptr, lf::month_day_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatew_pat[4] = {{nullptr, lf::date_weekday_long},
                                                 {nullptr, lf::date_weekday_short},
                                                 {"%#A", lf::weekday_full_2_sun},
                                                 {"%#a", lf::weekday_abbr_2_sun}};
extern "C" const xf_nl_pattern nldatemn_pat[3] = {{"%#B", lf::month_full_2_jan},
                                                  {"%#b", lf::month_abbr_2_jan},
                                                  {"%o", 2}};
extern "C" const xf_nl_pattern nldatewn_pat[3] = {{"%#A", lf::weekday_full_2_sun},
                                                  {"%#a", lf::weekday_abbr_2_sun},
                                                  {"uw", 42}};

using namespace xfmt::nls;

// One row per member: its name, its runner (or pattern table) and its spec.
XF_NL_MEMBER(nldate, run_two_pattern, 10, 0, value_kind::date, lf::date_default, lf::date_short,
             short_form::date)
XF_NL_MEMBER(nldatemd, run_two_pattern, 6, 0, value_kind::date, lf::month_day_long,
             lf::month_day_short, short_form::none)
XF_NL_MEMBER(nldateym, run_two_pattern, 6, 0, value_kind::date, lf::year_month_long,
             lf::year_month_short, short_form::none)
XF_NL_MEMBER(nldateyr, run_two_pattern, 2, 0, value_kind::date, lf::year_long, lf::year_short,
             short_form::none)
XF_NL_MEMBER(nldateyq, run_two_pattern, 4, 0, value_kind::date, lf::year_quarter_long,
             lf::year_quarter_short, short_form::none)
XF_NL_MEMBER(nldateyw, run_two_pattern, 5, 0, value_kind::date, lf::year_week_long,
             lf::year_week_short, short_form::none)
XF_NL_MEMBER_TABLE(nldatel, nldatel_pat, 2, 0, value_kind::date, 0, 0, short_form::date)
XF_NL_MEMBER_TABLE(nldatem, nldatem_pat, 2, 0, value_kind::date, 0, 0, short_form::date)
XF_NL_MEMBER_TABLE(nldateyml, nldateyml_pat, 5, 0, value_kind::date, 0, 0, short_form::year_month)
XF_NL_MEMBER_TABLE(nldateymm, nldateymm_pat, 5, 0, value_kind::date, 0, 0, short_form::year_month)
XF_NL_MEMBER_TABLE(nldateyql, nldateyql_pat, 4, 0, value_kind::date, 0, 0, short_form::year_quarter)
XF_NL_MEMBER_TABLE(nldateyqm, nldateyqm_pat, 4, 0, value_kind::date, 0, 0, short_form::year_quarter)
XF_NL_MEMBER_TABLE(nldatemdl, nldatemdl_pat, 5, 0, value_kind::date, 0, 0, short_form::month_day)
XF_NL_MEMBER_TABLE(nldatemdm, nldatemdm_pat, 5, 0, value_kind::date, 0, 0, short_form::month_day)
XF_NL_MEMBER_TABLE(nldatew, nldatew_pat, 10, 0, value_kind::date, 0, 0, short_form::none)
XF_NL_MEMBER_TABLE(nldatemn, nldatemn_pat, 4, 0, value_kind::date, 0, 0, short_form::none)
XF_NL_MEMBER_TABLE(nldatewn, nldatewn_pat, 4, 0, value_kind::date, 0, 0, short_form::none)
XF_NL_MEMBER(nldates, run_short, 2, 0, value_kind::date, 0, 0, short_form::date)
XF_NL_MEMBER(nldateyms, run_short, 5, 0, value_kind::date, 0, 0, short_form::year_month)
XF_NL_MEMBER(nldatemds, run_short, 5, 0, value_kind::date, 0, 0, short_form::month_day)
XF_NL_MEMBER(nldateyqs, run_short, 4, 0, value_kind::date, 0, 0, short_form::year_quarter)
