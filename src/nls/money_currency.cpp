// The 80 NLMNI and NLMNL formats: one thin routine per currency, bound to
// its row of lconv_monetary, and the two shared printers behind them.
#include "xfmt/xfmt.h"

#include "nls/locale.hpp"
#include "nls/money.hpp"

using namespace xfmt::nls;

extern "C" xf_status nlmnyloc(xf_frame *f, const xf_monetary *entry) {
  return money_format(f, locale_money_conventions(frame_locale_id(f)), *entry, false);
}

extern "C" xf_status nlmnyint(xf_frame *f, const xf_monetary *entry) {
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

extern "C" xf_status nlmniaed(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_aed]); }
extern "C" xf_status nlmniaud(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_aud]); }
extern "C" xf_status nlmnibgn(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_bgn]); }
extern "C" xf_status nlmnibrl(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_brl]); }
extern "C" xf_status nlmnicad(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_cad]); }
extern "C" xf_status nlmnichf(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_chf]); }
extern "C" xf_status nlmnicny(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_cny]); }
extern "C" xf_status nlmniczk(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_czk]); }
extern "C" xf_status nlmnidkk(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_dkk]); }
extern "C" xf_status nlmnieek(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_eek]); }
extern "C" xf_status nlmniegp(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_egp]); }
extern "C" xf_status nlmnieur(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_eur]); }
extern "C" xf_status nlmnigbp(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_gbp]); }
extern "C" xf_status nlmnihkd(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_hkd]); }
extern "C" xf_status nlmnihrk(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_hrk]); }
extern "C" xf_status nlmnihuf(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_huf]); }
extern "C" xf_status nlmniidr(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_idr]); }
extern "C" xf_status nlmniils(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_ils]); }
extern "C" xf_status nlmniinr(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_inr]); }
extern "C" xf_status nlmnijpy(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_jpy]); }
extern "C" xf_status nlmnikrw(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_krw]); }
extern "C" xf_status nlmniltl(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_ltl]); }
extern "C" xf_status nlmnilvl(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_lvl]); }
extern "C" xf_status nlmnimop(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_mop]); }
extern "C" xf_status nlmnimxn(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_mxn]); }
extern "C" xf_status nlmnimyr(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_myr]); }
extern "C" xf_status nlmninok(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_nok]); }
extern "C" xf_status nlmninzd(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_nzd]); }
extern "C" xf_status nlmnipln(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_pln]); }
extern "C" xf_status nlmnirol(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_rol]); }
extern "C" xf_status nlmnirub(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_rub]); }
extern "C" xf_status nlmnirur(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_rur]); }
extern "C" xf_status nlmnisek(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_sek]); }
extern "C" xf_status nlmnisgd(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_sgd]); }
extern "C" xf_status nlmniskk(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_skk]); }
extern "C" xf_status nlmnithb(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_thb]); }
extern "C" xf_status nlmnitry(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_try]); }
extern "C" xf_status nlmnitwd(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_twd]); }
extern "C" xf_status nlmniusd(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_usd]); }
extern "C" xf_status nlmnizar(xf_frame *f) { return nlmnyint(f, &lconv_monetary[row_zar]); }
extern "C" xf_status nlmnlaed(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_aed]); }
extern "C" xf_status nlmnlaud(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_aud]); }
extern "C" xf_status nlmnlbgn(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_bgn]); }
extern "C" xf_status nlmnlbrl(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_brl]); }
extern "C" xf_status nlmnlcad(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_cad]); }
extern "C" xf_status nlmnlchf(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_chf]); }
extern "C" xf_status nlmnlcny(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_cny]); }
extern "C" xf_status nlmnlczk(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_czk]); }
extern "C" xf_status nlmnldkk(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_dkk]); }
extern "C" xf_status nlmnleek(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_eek]); }
extern "C" xf_status nlmnlegp(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_egp]); }
extern "C" xf_status nlmnleur(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_eur]); }
extern "C" xf_status nlmnlgbp(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_gbp]); }
extern "C" xf_status nlmnlhkd(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_hkd]); }
extern "C" xf_status nlmnlhrk(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_hrk]); }
extern "C" xf_status nlmnlhuf(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_huf]); }
extern "C" xf_status nlmnlidr(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_idr]); }
extern "C" xf_status nlmnlils(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_ils]); }
extern "C" xf_status nlmnlinr(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_inr]); }
extern "C" xf_status nlmnljpy(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_jpy]); }
extern "C" xf_status nlmnlkrw(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_krw]); }
extern "C" xf_status nlmnlltl(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_ltl]); }
extern "C" xf_status nlmnllvl(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_lvl]); }
extern "C" xf_status nlmnlmop(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_mop]); }
extern "C" xf_status nlmnlmxn(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_mxn]); }
extern "C" xf_status nlmnlmyr(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_myr]); }
extern "C" xf_status nlmnlnok(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_nok]); }
extern "C" xf_status nlmnlnzd(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_nzd]); }
extern "C" xf_status nlmnlpln(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_pln]); }
extern "C" xf_status nlmnlrol(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_rol]); }
extern "C" xf_status nlmnlrub(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_rub]); }
extern "C" xf_status nlmnlrur(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_rur]); }
extern "C" xf_status nlmnlsek(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_sek]); }
extern "C" xf_status nlmnlsgd(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_sgd]); }
extern "C" xf_status nlmnlskk(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_skk]); }
extern "C" xf_status nlmnlthb(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_thb]); }
extern "C" xf_status nlmnltry(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_try]); }
extern "C" xf_status nlmnltwd(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_twd]); }
extern "C" xf_status nlmnlusd(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_usd]); }
extern "C" xf_status nlmnlzar(xf_frame *f) { return nlmnyloc(f, &lconv_monetary[row_zar]); }
