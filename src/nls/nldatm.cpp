// NLDATM and its members: a datetime value, or its date part, in the words
// and order of a locale.
#include "xfmt/xfmt.h"

#include "nls/nl_member.hpp"
#include "nls/zkf.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::nls;

// The locale record's pattern fields the members read, and the name fields
// the name tables point at (numbers until the record's generated field
// names replace them). The datetime codes add code_datetime (and
// code_with_zone for " %z").
constexpr int32_t date_medium = 30, date_full = 31;
constexpr int32_t weekday_date_long = 32, weekday_date_short = 33;
constexpr int32_t year_month_long = 34, year_month_short = 35;
constexpr int32_t month_day_long = 36, month_day_short = 37;
constexpr int32_t year_long = 38, year_short = 39;
constexpr int32_t year_quarter_long = 40, year_quarter_short = 41;
constexpr int32_t year_week_long = 42, year_week_short = 43;
constexpr int32_t datetime_ampm = 44, datetime_long = 46, datetime_short = 47;
constexpr int32_t datetime_medium = 48, datetime_full = 49;
constexpr int32_t datetime_weekday = 50, datetime_weekday_short = 51;
constexpr int32_t time_24 = 53;
constexpr int32_t month_full_lower = 95, month_abbrev_lower = 83;
constexpr int32_t weekday_full_lower = 128, weekday_abbrev_lower = 121;
constexpr int32_t short_numeric = 190;  // the short numeric form, not a field

// Pattern tables: only the first row is read; the others are kept as data.
extern "C" const xf_nl_pattern nldatmdt_pat[3] = {{nullptr, date_full},
                                                  {nullptr, date_medium},
                                                  {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmyml_pat[3] = {{nullptr, year_month_long},
                                                   {nullptr, year_month_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmymm_pat[2] = {{nullptr, year_month_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmyql_pat[3] = {{nullptr, year_quarter_long},
                                                   {nullptr, year_quarter_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmyqm_pat[2] = {{nullptr, year_quarter_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmmdl_pat[3] = {{nullptr, month_day_long},
                                                   {nullptr, month_day_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmmdm_pat[2] = {{nullptr, month_day_short},
                                                   {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatml_pat[4] = {{nullptr, code_datetime + datetime_full},
                                                 {nullptr, code_datetime + datetime_medium},
                                                 {nullptr, code_datetime + datetime_short},
                                                 {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmm_pat[3] = {{nullptr, code_datetime + datetime_medium},
                                                 {nullptr, code_datetime + datetime_short},
                                                 {nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatms_pat[1] = {{nullptr, short_numeric}};
extern "C" const xf_nl_pattern nldatmw_pat[6] = {{nullptr, code_datetime + datetime_weekday},
                                                 {nullptr, code_datetime + datetime_weekday_short},
                                                 {nullptr, weekday_date_long},
                                                 {nullptr, weekday_date_short},
                                                 {"%#A", weekday_full_lower},
                                                 {"%#a", weekday_abbrev_lower}};
extern "C" const xf_nl_pattern nldatmmn_pat[3] = {{"%#B", month_full_lower},
                                                  {"%#b", month_abbrev_lower},
                                                  {"%o", 2}};
extern "C" const xf_nl_pattern nldatmwn_pat[3] = {{"%#A", weekday_full_lower},
                                                  {"%#a", weekday_abbrev_lower},
                                                  {"uw", 42}};


XF_ROUTINE(nldatm, f) {
  static constexpr member_spec spec{
      10, 3, value_kind::datetime,
      code_datetime + datetime_long, code_datetime + datetime_short, short_form::datetime};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmap, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + datetime_ampm, code_datetime + datetime_short, short_form::datetime};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmz, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + code_with_zone + datetime_long, code_datetime + code_with_zone + datetime_short,
      short_form::datetime};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmwz, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + code_with_zone + datetime_weekday,
      code_datetime + code_with_zone + datetime_weekday_short,
      short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmtm, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + time_24, 0, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmtz, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + code_with_zone + time_24, 0, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmmd, f) {
  static constexpr member_spec spec{
      6, 0, value_kind::date_of_datetime,
      month_day_long, month_day_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmym, f) {
  static constexpr member_spec spec{
      6, 0, value_kind::date_of_datetime,
      year_month_long, year_month_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmyr, f) {
  static constexpr member_spec spec{
      2, 0, value_kind::date_of_datetime,
      year_long, year_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmyq, f) {
  static constexpr member_spec spec{
      4, 0, value_kind::date_of_datetime,
      year_quarter_long, year_quarter_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmyw, f) {
  static constexpr member_spec spec{
      5, 0, value_kind::date_of_datetime,
      year_week_long, year_week_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatml, f) {
  static constexpr member_spec spec{19, 3, value_kind::datetime, 0, 0, short_form::datetime};
  return run_one_pattern(f, spec, nldatml_pat);
}

XF_ROUTINE(nldatmm, f) {
  static constexpr member_spec spec{19, 3, value_kind::datetime, 0, 0, short_form::datetime};
  return run_one_pattern(f, spec, nldatmm_pat);
}

XF_ROUTINE(nldatms, f) {
  static constexpr member_spec spec{19, 3, value_kind::datetime, 0, 0, short_form::datetime};
  return run_one_pattern(f, spec, nldatms_pat);
}

XF_ROUTINE(nldatmw, f) {
  static constexpr member_spec spec{16, 3, value_kind::datetime, 0, 0, short_form::none};
  return run_one_pattern(f, spec, nldatmw_pat);
}

XF_ROUTINE(nldatmdt, f) {
  static constexpr member_spec spec{10, 0, value_kind::date_of_datetime, 0, 0, short_form::date};
  return run_one_pattern(f, spec, nldatmdt_pat);
}

XF_ROUTINE(nldatmyml, f) {
  static constexpr member_spec spec{
      5, 0, value_kind::date_of_datetime,
      0, 0, short_form::year_month};
  return run_one_pattern(f, spec, nldatmyml_pat);
}

XF_ROUTINE(nldatmymm, f) {
  static constexpr member_spec spec{
      5, 0, value_kind::date_of_datetime,
      0, 0, short_form::year_month};
  return run_one_pattern(f, spec, nldatmymm_pat);
}

XF_ROUTINE(nldatmyql, f) {
  static constexpr member_spec spec{
      4, 0, value_kind::date_of_datetime,
      0, 0, short_form::year_quarter};
  return run_one_pattern(f, spec, nldatmyql_pat);
}

XF_ROUTINE(nldatmyqm, f) {
  static constexpr member_spec spec{
      4, 0, value_kind::date_of_datetime,
      0, 0, short_form::year_quarter};
  return run_one_pattern(f, spec, nldatmyqm_pat);
}

XF_ROUTINE(nldatmmdl, f) {
  static constexpr member_spec spec{
      5, 0, value_kind::date_of_datetime,
      0, 0, short_form::month_day};
  return run_one_pattern(f, spec, nldatmmdl_pat);
}

XF_ROUTINE(nldatmmdm, f) {
  static constexpr member_spec spec{
      5, 0, value_kind::date_of_datetime,
      0, 0, short_form::month_day};
  return run_one_pattern(f, spec, nldatmmdm_pat);
}

XF_ROUTINE(nldatmmn, f) {
  static constexpr member_spec spec{4, 0, value_kind::date_of_datetime, 0, 0, short_form::none};
  return run_one_pattern(f, spec, nldatmmn_pat);
}

XF_ROUTINE(nldatmwn, f) {
  static constexpr member_spec spec{4, 0, value_kind::date_of_datetime, 0, 0, short_form::none};
  return run_one_pattern(f, spec, nldatmwn_pat);
}

XF_ROUTINE(nldatmyms, f) {
  static constexpr member_spec spec{
      5, 0, value_kind::date_of_datetime,
      0, 0, short_form::year_month};
  return run_short(f, spec);
}

XF_ROUTINE(nldatmmds, f) {
  static constexpr member_spec spec{
      5, 0, value_kind::date_of_datetime,
      0, 0, short_form::month_day};
  return run_short(f, spec);
}

XF_ROUTINE(nldatmyqs, f) {
  static constexpr member_spec spec{
      4, 0, value_kind::date_of_datetime,
      0, 0, short_form::year_quarter};
  return run_short(f, spec);
}
