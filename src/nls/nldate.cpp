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

XF_ROUTINE(nldate, f) {
  static constexpr member_spec spec{
      10, 0, value_kind::date,
      lf::date_default, lf::date_short, short_form::date};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatemd, f) {
  static constexpr member_spec spec{
      6, 0, value_kind::date,
      lf::month_day_long, lf::month_day_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldateym, f) {
  static constexpr member_spec spec{
      6, 0, value_kind::date,
      lf::year_month_long, lf::year_month_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldateyr, f) {
  static constexpr member_spec spec{
      2, 0, value_kind::date,
      lf::year_long, lf::year_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldateyq, f) {
  static constexpr member_spec spec{
      4, 0, value_kind::date,
      lf::year_quarter_long, lf::year_quarter_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldateyw, f) {
  static constexpr member_spec spec{
      5, 0, value_kind::date,
      lf::year_week_long, lf::year_week_short, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatel, f) {
  static constexpr member_spec spec{2, 0, value_kind::date, 0, 0, short_form::date};
  return run_one_pattern(f, spec, nldatel_pat);
}

XF_ROUTINE(nldatem, f) {
  static constexpr member_spec spec{2, 0, value_kind::date, 0, 0, short_form::date};
  return run_one_pattern(f, spec, nldatem_pat);
}

XF_ROUTINE(nldateyml, f) {
  static constexpr member_spec spec{5, 0, value_kind::date, 0, 0, short_form::year_month};
  return run_one_pattern(f, spec, nldateyml_pat);
}

XF_ROUTINE(nldateymm, f) {
  static constexpr member_spec spec{5, 0, value_kind::date, 0, 0, short_form::year_month};
  return run_one_pattern(f, spec, nldateymm_pat);
}

XF_ROUTINE(nldateyql, f) {
  static constexpr member_spec spec{4, 0, value_kind::date, 0, 0, short_form::year_quarter};
  return run_one_pattern(f, spec, nldateyql_pat);
}

XF_ROUTINE(nldateyqm, f) {
  static constexpr member_spec spec{4, 0, value_kind::date, 0, 0, short_form::year_quarter};
  return run_one_pattern(f, spec, nldateyqm_pat);
}

XF_ROUTINE(nldatemdl, f) {
  static constexpr member_spec spec{5, 0, value_kind::date, 0, 0, short_form::month_day};
  return run_one_pattern(f, spec, nldatemdl_pat);
}

XF_ROUTINE(nldatemdm, f) {
  static constexpr member_spec spec{5, 0, value_kind::date, 0, 0, short_form::month_day};
  return run_one_pattern(f, spec, nldatemdm_pat);
}

XF_ROUTINE(nldatew, f) {
  static constexpr member_spec spec{10, 0, value_kind::date, 0, 0, short_form::none};
  return run_one_pattern(f, spec, nldatew_pat);
}

XF_ROUTINE(nldatemn, f) {
  static constexpr member_spec spec{4, 0, value_kind::date, 0, 0, short_form::none};
  return run_one_pattern(f, spec, nldatemn_pat);
}

XF_ROUTINE(nldatewn, f) {
  static constexpr member_spec spec{4, 0, value_kind::date, 0, 0, short_form::none};
  return run_one_pattern(f, spec, nldatewn_pat);
}

XF_ROUTINE(nldates, f) {
  static constexpr member_spec spec{2, 0, value_kind::date, 0, 0, short_form::date};
  return run_short(f, spec);
}

XF_ROUTINE(nldateyms, f) {
  static constexpr member_spec spec{5, 0, value_kind::date, 0, 0, short_form::year_month};
  return run_short(f, spec);
}

XF_ROUTINE(nldatemds, f) {
  static constexpr member_spec spec{5, 0, value_kind::date, 0, 0, short_form::month_day};
  return run_short(f, spec);
}

XF_ROUTINE(nldateyqs, f) {
  static constexpr member_spec spec{4, 0, value_kind::date, 0, 0, short_form::year_quarter};
  return run_short(f, spec);
}
