// NLDATM and its members: a datetime value, or its date part, in the words
// and order of a locale.
#include "xfmt/xfmt.h"

#include "nls/nl_member.hpp"
#include "nls/zkf.hpp"
#include "catalog/routine_guard.hpp"

// Pattern tables: only the first row is read; the others are kept as data.
extern "C" const xf_nl_pattern nldatmdt_pat[3] = {{nullptr, 31}, {nullptr, 30}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatmyml_pat[3] = {{nullptr, 34}, {nullptr, 35}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatmymm_pat[2] = {{nullptr, 35}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatmyql_pat[3] = {{nullptr, 40}, {nullptr, 41}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatmyqm_pat[2] = {{nullptr, 41}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatmmdl_pat[3] = {{nullptr, 36}, {nullptr, 37}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatmmdm_pat[2] = {{nullptr, 37}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatml_pat[4] = {
    {nullptr, 4145}, {nullptr, 4144}, {nullptr, 4143}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatmm_pat[3] = {{nullptr, 4144}, {nullptr, 4143}, {nullptr, 190}};
extern "C" const xf_nl_pattern nldatms_pat[1] = {{nullptr, 190}};
extern "C" const xf_nl_pattern nldatmw_pat[6] = {{nullptr, 4146}, {nullptr, 4147}, {nullptr, 32},
                                                 {nullptr, 33},   {"%#A", 128},    {"%#a", 121}};
extern "C" const xf_nl_pattern nldatmmn_pat[3] = {{"%#B", 95}, {"%#b", 83}, {"%o", 2}};
extern "C" const xf_nl_pattern nldatmwn_pat[3] = {{"%#A", 128}, {"%#a", 121}, {"uw", 42}};

using namespace xfmt::nls;

XF_ROUTINE(nldatm, f) {
  static constexpr member_spec spec{
      10, 3, value_kind::datetime, code_datetime + 46, code_datetime + 47, short_form::datetime};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmap, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime, code_datetime + 44, code_datetime + 47, short_form::datetime};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmz, f) {
  static constexpr member_spec spec{16,
                                    3,
                                    value_kind::datetime,
                                    code_datetime + code_with_zone + 46,
                                    code_datetime + code_with_zone + 47,
                                    short_form::datetime};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmwz, f) {
  static constexpr member_spec spec{16,
                                    3,
                                    value_kind::datetime,
                                    code_datetime + code_with_zone + 50,
                                    code_datetime + code_with_zone + 51,
                                    short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmtm, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime, code_datetime + 53, 0, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmtz, f) {
  static constexpr member_spec spec{
      16, 3, value_kind::datetime, code_datetime + code_with_zone + 53, 0, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmmd, f) {
  static constexpr member_spec spec{6, 0, value_kind::date_of_datetime, 36, 37, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmym, f) {
  static constexpr member_spec spec{6, 0, value_kind::date_of_datetime, 34, 35, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmyr, f) {
  static constexpr member_spec spec{2, 0, value_kind::date_of_datetime, 38, 39, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmyq, f) {
  static constexpr member_spec spec{4, 0, value_kind::date_of_datetime, 40, 41, short_form::none};
  return run_two_pattern(f, spec);
}

XF_ROUTINE(nldatmyw, f) {
  static constexpr member_spec spec{5, 0, value_kind::date_of_datetime, 42, 43, short_form::none};
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
  static constexpr member_spec spec{5, 0, value_kind::date_of_datetime,
                                    0, 0, short_form::year_month};
  return run_one_pattern(f, spec, nldatmyml_pat);
}

XF_ROUTINE(nldatmymm, f) {
  static constexpr member_spec spec{5, 0, value_kind::date_of_datetime,
                                    0, 0, short_form::year_month};
  return run_one_pattern(f, spec, nldatmymm_pat);
}

XF_ROUTINE(nldatmyql, f) {
  static constexpr member_spec spec{4, 0, value_kind::date_of_datetime,
                                    0, 0, short_form::year_quarter};
  return run_one_pattern(f, spec, nldatmyql_pat);
}

XF_ROUTINE(nldatmyqm, f) {
  static constexpr member_spec spec{4, 0, value_kind::date_of_datetime,
                                    0, 0, short_form::year_quarter};
  return run_one_pattern(f, spec, nldatmyqm_pat);
}

XF_ROUTINE(nldatmmdl, f) {
  static constexpr member_spec spec{5, 0, value_kind::date_of_datetime,
                                    0, 0, short_form::month_day};
  return run_one_pattern(f, spec, nldatmmdl_pat);
}

XF_ROUTINE(nldatmmdm, f) {
  static constexpr member_spec spec{5, 0, value_kind::date_of_datetime,
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
  static constexpr member_spec spec{5, 0, value_kind::date_of_datetime,
                                    0, 0, short_form::year_month};
  return run_short(f, spec);
}

XF_ROUTINE(nldatmmds, f) {
  static constexpr member_spec spec{5, 0, value_kind::date_of_datetime,
                                    0, 0, short_form::month_day};
  return run_short(f, spec);
}

XF_ROUTINE(nldatmyqs, f) {
  static constexpr member_spec spec{4, 0, value_kind::date_of_datetime,
                                    0, 0, short_form::year_quarter};
  return run_short(f, spec);
}
