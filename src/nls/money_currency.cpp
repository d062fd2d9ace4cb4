// The 80 NLMNI and NLMNL formats: one thin routine per currency, bound to
// its row of lconv_monetary, and the two shared printers behind them.
#include "xfmt/xfmt.h"

#include "nls/locale.hpp"
#include "nls/money.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::nls;

XF_ROUTINE_WITH(nlmnyloc, f, (const xf_monetary *entry), (entry)) {
  return money_format(f, locale_money_conventions(frame_locale_id(f)), *entry, false);
}

XF_ROUTINE_WITH(nlmnyint, f, (const xf_monetary *entry), (entry)) {
  return money_format(f, locale_money_conventions(frame_locale_id(f)), *entry, true);
}

namespace {

// Row numbers of lconv_monetary (alphabetical, AED = 0).
enum currency_row : int {
  row_aed = 0,
  row_all = 1,
  row_ars = 2,
  row_aud = 3,
  row_bgn = 4,
  row_bhd = 5,
  row_bob = 6,
  row_brl = 7,
  row_bwp = 8,
  row_byb = 9,
  row_cad = 10,
  row_chf = 11,
  row_clp = 12,
  row_cny = 13,
  row_cop = 14,
  row_crc = 15,
  row_czk = 16,
  row_dkk = 17,
  row_dop = 18,
  row_dzd = 19,
  row_eek = 20,
  row_egp = 21,
  row_eur = 22,
  row_gbp = 23,
  row_gtq = 24,
  row_hkd = 25,
  row_hnl = 26,
  row_hrk = 27,
  row_huf = 28,
  row_idr = 29,
  row_ils = 30,
  row_inr = 31,
  row_iqd = 32,
  row_irr = 33,
  row_isk = 34,
  row_jmd = 35,
  row_jod = 36,
  row_jpy = 37,
  row_krw = 38,
  row_kwd = 39,
  row_lbp = 40,
  row_ltl = 41,
  row_lvl = 42,
  row_lyd = 43,
  row_mad = 44,
  row_mkd = 45,
  row_mop = 46,
  row_mxn = 47,
  row_myr = 48,
  row_nio = 49,
  row_nok = 50,
  row_nzd = 51,
  row_omr = 52,
  row_pab = 53,
  row_pen = 54,
  row_php = 55,
  row_pln = 56,
  row_pyg = 57,
  row_qar = 58,
  row_rol = 59,
  row_rub = 60,
  row_rur = 61,
  row_sar = 62,
  row_sdd = 63,
  row_sek = 64,
  row_sgd = 65,
  row_skk = 66,
  row_svc = 67,
  row_syp = 68,
  row_thb = 69,
  row_tnd = 70,
  row_try = 71,
  row_twd = 72,
  row_uah = 73,
  row_usd = 74,
  row_uyu = 75,
  row_veb = 76,
  row_vnd = 77,
  row_xcd = 78,
  row_yer = 79,
  row_zar = 80,
  row_zwd = 81,
};

}  // namespace

XF_ROUTINE(nlmniaed, f) { return nlmnyint(f, &lconv_monetary[row_aed]); }
XF_ROUTINE(nlmniaud, f) { return nlmnyint(f, &lconv_monetary[row_aud]); }
XF_ROUTINE(nlmnibgn, f) { return nlmnyint(f, &lconv_monetary[row_bgn]); }
XF_ROUTINE(nlmnibrl, f) { return nlmnyint(f, &lconv_monetary[row_brl]); }
XF_ROUTINE(nlmnicad, f) { return nlmnyint(f, &lconv_monetary[row_cad]); }
XF_ROUTINE(nlmnichf, f) { return nlmnyint(f, &lconv_monetary[row_chf]); }
XF_ROUTINE(nlmnicny, f) { return nlmnyint(f, &lconv_monetary[row_cny]); }
XF_ROUTINE(nlmniczk, f) { return nlmnyint(f, &lconv_monetary[row_czk]); }
XF_ROUTINE(nlmnidkk, f) { return nlmnyint(f, &lconv_monetary[row_dkk]); }
XF_ROUTINE(nlmnieek, f) { return nlmnyint(f, &lconv_monetary[row_eek]); }
XF_ROUTINE(nlmniegp, f) { return nlmnyint(f, &lconv_monetary[row_egp]); }
XF_ROUTINE(nlmnieur, f) { return nlmnyint(f, &lconv_monetary[row_eur]); }
XF_ROUTINE(nlmnigbp, f) { return nlmnyint(f, &lconv_monetary[row_gbp]); }
XF_ROUTINE(nlmnihkd, f) { return nlmnyint(f, &lconv_monetary[row_hkd]); }
XF_ROUTINE(nlmnihrk, f) { return nlmnyint(f, &lconv_monetary[row_hrk]); }
XF_ROUTINE(nlmnihuf, f) { return nlmnyint(f, &lconv_monetary[row_huf]); }
XF_ROUTINE(nlmniidr, f) { return nlmnyint(f, &lconv_monetary[row_idr]); }
XF_ROUTINE(nlmniils, f) { return nlmnyint(f, &lconv_monetary[row_ils]); }
XF_ROUTINE(nlmniinr, f) { return nlmnyint(f, &lconv_monetary[row_inr]); }
XF_ROUTINE(nlmnijpy, f) { return nlmnyint(f, &lconv_monetary[row_jpy]); }
XF_ROUTINE(nlmnikrw, f) { return nlmnyint(f, &lconv_monetary[row_krw]); }
XF_ROUTINE(nlmniltl, f) { return nlmnyint(f, &lconv_monetary[row_ltl]); }
XF_ROUTINE(nlmnilvl, f) { return nlmnyint(f, &lconv_monetary[row_lvl]); }
XF_ROUTINE(nlmnimop, f) { return nlmnyint(f, &lconv_monetary[row_mop]); }
XF_ROUTINE(nlmnimxn, f) { return nlmnyint(f, &lconv_monetary[row_mxn]); }
XF_ROUTINE(nlmnimyr, f) { return nlmnyint(f, &lconv_monetary[row_myr]); }
XF_ROUTINE(nlmninok, f) { return nlmnyint(f, &lconv_monetary[row_nok]); }
XF_ROUTINE(nlmninzd, f) { return nlmnyint(f, &lconv_monetary[row_nzd]); }
XF_ROUTINE(nlmnipln, f) { return nlmnyint(f, &lconv_monetary[row_pln]); }
XF_ROUTINE(nlmnirol, f) { return nlmnyint(f, &lconv_monetary[row_rol]); }
XF_ROUTINE(nlmnirub, f) { return nlmnyint(f, &lconv_monetary[row_rub]); }
XF_ROUTINE(nlmnirur, f) { return nlmnyint(f, &lconv_monetary[row_rur]); }
XF_ROUTINE(nlmnisek, f) { return nlmnyint(f, &lconv_monetary[row_sek]); }
XF_ROUTINE(nlmnisgd, f) { return nlmnyint(f, &lconv_monetary[row_sgd]); }
XF_ROUTINE(nlmniskk, f) { return nlmnyint(f, &lconv_monetary[row_skk]); }
XF_ROUTINE(nlmnithb, f) { return nlmnyint(f, &lconv_monetary[row_thb]); }
XF_ROUTINE(nlmnitry, f) { return nlmnyint(f, &lconv_monetary[row_try]); }
XF_ROUTINE(nlmnitwd, f) { return nlmnyint(f, &lconv_monetary[row_twd]); }
XF_ROUTINE(nlmniusd, f) { return nlmnyint(f, &lconv_monetary[row_usd]); }
XF_ROUTINE(nlmnizar, f) { return nlmnyint(f, &lconv_monetary[row_zar]); }
XF_ROUTINE(nlmnlaed, f) { return nlmnyloc(f, &lconv_monetary[row_aed]); }
XF_ROUTINE(nlmnlaud, f) { return nlmnyloc(f, &lconv_monetary[row_aud]); }
XF_ROUTINE(nlmnlbgn, f) { return nlmnyloc(f, &lconv_monetary[row_bgn]); }
XF_ROUTINE(nlmnlbrl, f) { return nlmnyloc(f, &lconv_monetary[row_brl]); }
XF_ROUTINE(nlmnlcad, f) { return nlmnyloc(f, &lconv_monetary[row_cad]); }
XF_ROUTINE(nlmnlchf, f) { return nlmnyloc(f, &lconv_monetary[row_chf]); }
XF_ROUTINE(nlmnlcny, f) { return nlmnyloc(f, &lconv_monetary[row_cny]); }
XF_ROUTINE(nlmnlczk, f) { return nlmnyloc(f, &lconv_monetary[row_czk]); }
XF_ROUTINE(nlmnldkk, f) { return nlmnyloc(f, &lconv_monetary[row_dkk]); }
XF_ROUTINE(nlmnleek, f) { return nlmnyloc(f, &lconv_monetary[row_eek]); }
XF_ROUTINE(nlmnlegp, f) { return nlmnyloc(f, &lconv_monetary[row_egp]); }
XF_ROUTINE(nlmnleur, f) { return nlmnyloc(f, &lconv_monetary[row_eur]); }
XF_ROUTINE(nlmnlgbp, f) { return nlmnyloc(f, &lconv_monetary[row_gbp]); }
XF_ROUTINE(nlmnlhkd, f) { return nlmnyloc(f, &lconv_monetary[row_hkd]); }
XF_ROUTINE(nlmnlhrk, f) { return nlmnyloc(f, &lconv_monetary[row_hrk]); }
XF_ROUTINE(nlmnlhuf, f) { return nlmnyloc(f, &lconv_monetary[row_huf]); }
XF_ROUTINE(nlmnlidr, f) { return nlmnyloc(f, &lconv_monetary[row_idr]); }
XF_ROUTINE(nlmnlils, f) { return nlmnyloc(f, &lconv_monetary[row_ils]); }
XF_ROUTINE(nlmnlinr, f) { return nlmnyloc(f, &lconv_monetary[row_inr]); }
XF_ROUTINE(nlmnljpy, f) { return nlmnyloc(f, &lconv_monetary[row_jpy]); }
XF_ROUTINE(nlmnlkrw, f) { return nlmnyloc(f, &lconv_monetary[row_krw]); }
XF_ROUTINE(nlmnlltl, f) { return nlmnyloc(f, &lconv_monetary[row_ltl]); }
XF_ROUTINE(nlmnllvl, f) { return nlmnyloc(f, &lconv_monetary[row_lvl]); }
XF_ROUTINE(nlmnlmop, f) { return nlmnyloc(f, &lconv_monetary[row_mop]); }
XF_ROUTINE(nlmnlmxn, f) { return nlmnyloc(f, &lconv_monetary[row_mxn]); }
XF_ROUTINE(nlmnlmyr, f) { return nlmnyloc(f, &lconv_monetary[row_myr]); }
XF_ROUTINE(nlmnlnok, f) { return nlmnyloc(f, &lconv_monetary[row_nok]); }
XF_ROUTINE(nlmnlnzd, f) { return nlmnyloc(f, &lconv_monetary[row_nzd]); }
XF_ROUTINE(nlmnlpln, f) { return nlmnyloc(f, &lconv_monetary[row_pln]); }
XF_ROUTINE(nlmnlrol, f) { return nlmnyloc(f, &lconv_monetary[row_rol]); }
XF_ROUTINE(nlmnlrub, f) { return nlmnyloc(f, &lconv_monetary[row_rub]); }
XF_ROUTINE(nlmnlrur, f) { return nlmnyloc(f, &lconv_monetary[row_rur]); }
XF_ROUTINE(nlmnlsek, f) { return nlmnyloc(f, &lconv_monetary[row_sek]); }
XF_ROUTINE(nlmnlsgd, f) { return nlmnyloc(f, &lconv_monetary[row_sgd]); }
XF_ROUTINE(nlmnlskk, f) { return nlmnyloc(f, &lconv_monetary[row_skk]); }
XF_ROUTINE(nlmnlthb, f) { return nlmnyloc(f, &lconv_monetary[row_thb]); }
XF_ROUTINE(nlmnltry, f) { return nlmnyloc(f, &lconv_monetary[row_try]); }
XF_ROUTINE(nlmnltwd, f) { return nlmnyloc(f, &lconv_monetary[row_twd]); }
XF_ROUTINE(nlmnlusd, f) { return nlmnyloc(f, &lconv_monetary[row_usd]); }
XF_ROUTINE(nlmnlzar, f) { return nlmnyloc(f, &lconv_monetary[row_zar]); }
