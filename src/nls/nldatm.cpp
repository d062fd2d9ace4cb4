// NLDATM and its members: a datetime value, or its date part, in the words
// and order of a locale.
#include "xfmt/xfmt.h"

#include "nls/nl_member.hpp"
#include "nls/zkf.hpp"
#include "core/routine_guard.hpp"
#include "nls/locale_fields.hpp"

using namespace xfmt::nls;

// The datetime codes add code_datetime (and code_with_zone for " %z") to
// the locale record's pattern fields.
constexpr int32_t short_numeric = 190;  // the short numeric form, not a field

// Pattern tables: only the first row is read; the others are kept as data.
extern "C" const xf_nl_pattern nldatmdt_pat[3] = {{nullptr, lf::date_long},
                                                  {nullptr, lf::date_medium},
                                                  {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmyml_pat[3] = {{nullptr, lf::year_month_long},
                                                   {nullptr, lf::year_month_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmymm_pat[2] = {{nullptr, lf::year_month_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmyql_pat[3] = {{nullptr, lf::year_quarter_long},
                                                   {nullptr, lf::year_quarter_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmyqm_pat[2] = {{nullptr, lf::year_quarter_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmmdl_pat[3] = {{nullptr, lf::month_day_long},
                                                   {nullptr, lf::month_day_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmmdm_pat[2] = {{nullptr, lf::month_day_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatml_pat[4] = {
    {nullptr, code_datetime + lf::datetime_long},
    {nullptr, code_datetime + lf::datetime_medium},
    {nullptr, code_datetime + lf::datetime_numeric_date},
    {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmm_pat[3] = {
    {nullptr, code_datetime + lf::datetime_medium},
    {nullptr, code_datetime + lf::datetime_numeric_date},
    {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatms_pat[1] = {{nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmw_pat[6] = {
    {nullptr, code_datetime + lf::datetime_weekday_long},
    {nullptr, code_datetime + lf::datetime_weekday_short},
    {nullptr, lf::date_weekday_long},
    {nullptr, lf::date_weekday_short},
    {"%#A", lf::weekday_full_2_sun},
    {"%#a", lf::weekday_abbr_2_sun}};
extern "C" const xf_nl_pattern nldatmmn_pat[3] = {{"%#B", lf::month_full_2_jan},
                                                  {"%#b", lf::month_abbr_2_jan},
                                                  {"%o", 2}};
extern "C" const xf_nl_pattern nldatmwn_pat[3] = {{"%#A", lf::weekday_full_2_sun},
                                                  {"%#a", lf::weekday_abbr_2_sun},
                                                  {"uw", 42}};

XF_NL_MEMBER(nldatm, run_two_pattern, 10, 3, value_kind::datetime,
             code_datetime + lf::datetime_24_hour, code_datetime + lf::datetime_numeric_date,
             short_form::datetime)
XF_NL_MEMBER(nldatmap, run_two_pattern, 16, 3, value_kind::datetime,
             code_datetime + lf::datetime_default, code_datetime + lf::datetime_numeric_date,
             short_form::datetime)
XF_NL_MEMBER(nldatmz, run_two_pattern, 16, 3, value_kind::datetime,
             code_datetime + code_with_zone + lf::datetime_24_hour,
             code_datetime + code_with_zone + lf::datetime_numeric_date, short_form::datetime)
XF_NL_MEMBER(nldatmwz, run_two_pattern, 16, 3, value_kind::datetime,
             code_datetime + code_with_zone + lf::datetime_weekday_long,
             code_datetime + code_with_zone + lf::datetime_weekday_short, short_form::none)
XF_NL_MEMBER(nldatmtm, run_two_pattern, 16, 3, value_kind::datetime,
             code_datetime + lf::time_24_hour, 0, short_form::none)
XF_NL_MEMBER(nldatmtz, run_two_pattern, 16, 3, value_kind::datetime,
             code_datetime + code_with_zone + lf::time_24_hour, 0, short_form::none)
XF_NL_MEMBER(nldatmmd, run_two_pattern, 6, 0, value_kind::date_of_datetime, lf::month_day_long,
             lf::month_day_short, short_form::none)
XF_NL_MEMBER(nldatmym, run_two_pattern, 6, 0, value_kind::date_of_datetime, lf::year_month_long,
             lf::year_month_short, short_form::none)
XF_NL_MEMBER(nldatmyr, run_two_pattern, 2, 0, value_kind::date_of_datetime, lf::year_long,
             lf::year_short, short_form::none)
XF_NL_MEMBER(nldatmyq, run_two_pattern, 4, 0, value_kind::date_of_datetime, lf::year_quarter_long,
             lf::year_quarter_short, short_form::none)
XF_NL_MEMBER(nldatmyw, run_two_pattern, 5, 0, value_kind::date_of_datetime, lf::year_week_long,
             lf::year_week_short, short_form::none)
XF_NL_MEMBER_TABLE(nldatml, nldatml_pat, 19, 3, value_kind::datetime, 0, 0, short_form::datetime)
XF_NL_MEMBER_TABLE(nldatmm, nldatmm_pat, 19, 3, value_kind::datetime, 0, 0, short_form::datetime)
XF_NL_MEMBER_TABLE(nldatms, nldatms_pat, 19, 3, value_kind::datetime, 0, 0, short_form::datetime)
XF_NL_MEMBER_TABLE(nldatmw, nldatmw_pat, 16, 3, value_kind::datetime, 0, 0, short_form::none)
XF_NL_MEMBER_TABLE(nldatmdt, nldatmdt_pat, 10, 0, value_kind::date_of_datetime, 0, 0,
                   short_form::date)
XF_NL_MEMBER_TABLE(nldatmyml, nldatmyml_pat, 5, 0, value_kind::date_of_datetime, 0, 0,
                   short_form::year_month)
XF_NL_MEMBER_TABLE(nldatmymm, nldatmymm_pat, 5, 0, value_kind::date_of_datetime, 0, 0,
                   short_form::year_month)
XF_NL_MEMBER_TABLE(nldatmyql, nldatmyql_pat, 4, 0, value_kind::date_of_datetime, 0, 0,
                   short_form::year_quarter)
XF_NL_MEMBER_TABLE(nldatmyqm, nldatmyqm_pat, 4, 0, value_kind::date_of_datetime, 0, 0,
                   short_form::year_quarter)
XF_NL_MEMBER_TABLE(nldatmmdl, nldatmmdl_pat, 5, 0, value_kind::date_of_datetime, 0, 0,
                   short_form::month_day)
XF_NL_MEMBER_TABLE(nldatmmdm, nldatmmdm_pat, 5, 0, value_kind::date_of_datetime, 0, 0,
                   short_form::month_day)
XF_NL_MEMBER_TABLE(nldatmmn, nldatmmn_pat, 4, 0, value_kind::date_of_datetime, 0, 0,
                   short_form::none)
XF_NL_MEMBER_TABLE(nldatmwn, nldatmwn_pat, 4, 0, value_kind::date_of_datetime, 0, 0,
                   short_form::none)
XF_NL_MEMBER(nldatmyms, run_short, 5, 0, value_kind::date_of_datetime, 0, 0, short_form::year_month)
XF_NL_MEMBER(nldatmmds, run_short, 5, 0, value_kind::date_of_datetime, 0, 0, short_form::month_day)
XF_NL_MEMBER(nldatmyqs, run_short, 4, 0, value_kind::date_of_datetime, 0, 0,
             short_form::year_quarter)
