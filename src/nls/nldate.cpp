// NLDATE and its members: a date value in the words and order of a locale.
// Two-pattern members try a long and a short locale pattern, one-pattern
// members the first row of their table, S members the short numeric form.
#include "xfmt/xfmt.h"

#include "nls/nl_member.hpp"
#include "catalog/routine_guard.hpp"

// Pattern tables: only the first row is read; the others are kept as data.
extern "C" const xf_nl_pattern nldatel_pat[3] = {{nullptr, 31}, {nullptr, 30}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatem_pat[2] = {{nullptr, 30}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldateyml_pat[3] = {{nullptr, 34}, {nullptr, 35}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldateymm_pat[2] = {{nullptr, 35}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldateyql_pat[3] = {{nullptr, 40}, {nullptr, 41}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldateyqm_pat[2] = {{nullptr, 41}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatemdl_pat[3] = {{nullptr, 36}, {nullptr, 37}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatemdm_pat[2] = {{nullptr, 37}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatew_pat[4] = {
    {nullptr, 32}, {nullptr, 33}, {"%#A", 128}, {"%#a", 121}};
extern "C" const xf_nl_pattern nldatemn_pat[3] = {{"%#B", 95}, {"%#b", 83}, {"%o", 2}};
extern "C" const xf_nl_pattern nldatewn_pat[3] = {{"%#A", 128}, {"%#a", 121}, {"uw", 42}};

using namespace xfmt::nls;

XF_ROUTINE(nldate, f) {
  static constexpr member_spec spec{10, 0, value_kind::date, 28, 29, short_form::date};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatemd, f) {
  static constexpr member_spec spec{6, 0, value_kind::date, 36, 37, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldateym, f) {
  static constexpr member_spec spec{6, 0, value_kind::date, 34, 35, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldateyr, f) {
  static constexpr member_spec spec{2, 0, value_kind::date, 38, 39, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldateyq, f) {
  static constexpr member_spec spec{4, 0, value_kind::date, 40, 41, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldateyw, f) {
  static constexpr member_spec spec{5, 0, value_kind::date, 42, 43, short_form::none};
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
