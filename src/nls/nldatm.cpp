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


XF_ROUTINE(nldatm, f) {
  static constexpr member_spec spec{
      10, 3, value_kind::datetime,
      code_datetime + lf::datetime_24_hour, code_datetime + lf::datetime_numeric_date,
      short_form::datetime};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmap, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + lf::datetime_default, code_datetime + lf::datetime_numeric_date,
      short_form::datetime};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmz, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + code_with_zone + lf::datetime_24_hour,
      code_datetime + code_with_zone + lf::datetime_numeric_date,
      short_form::datetime};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmwz, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + code_with_zone + lf::datetime_weekday_long,
      code_datetime + code_with_zone + lf::datetime_weekday_short,
      short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmtm, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + lf::time_24_hour, 0, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmtz, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime,
      code_datetime + code_with_zone + lf::time_24_hour, 0, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmmd, f) {
  static constexpr member_spec spec{
      6, 0, value_kind::date_of_datetime,
      lf::month_day_long, lf::month_day_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmym, f) {
  static constexpr member_spec spec{
      6, 0, value_kind::date_of_datetime,
      lf::year_month_long, lf::year_month_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmyr, f) {
  static constexpr member_spec spec{
      2, 0, value_kind::date_of_datetime,
      lf::year_long, lf::year_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmyq, f) {
  static constexpr member_spec spec{
      4, 0, value_kind::date_of_datetime,
      lf::year_quarter_long, lf::year_quarter_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmyw, f) {
  static constexpr member_spec spec{
      5, 0, value_kind::date_of_datetime,
      lf::year_week_long, lf::year_week_short, short_form::none};
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
