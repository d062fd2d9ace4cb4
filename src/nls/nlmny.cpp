// NLMNY and NLMNYI: an amount in the frame locale's own currency, placed and
// shortened exactly as the NLMNL/NLMNI formats place a fixed currency: the
// local symbol (NLMNY; the code when the output cannot show the symbol)
// or the ISO code (NLMNYI) of the locale, under the catalog
// limits of these two names (w 1-32, d 0-9).
#include "xfmt/xfmt.h"

#include "nls/locale.hpp"
#include "nls/money.hpp"
#include "core/routine_guard.hpp"

using namespace xfmt::nls;

namespace {

constexpr money_limits locale_currency_limits{1, 32, 9};

xf_status locale_money(xf_frame *f, bool international) {
  const int id = frame_locale_id(f);
  return money_field(f, locale_money_conventions(id), locale_field(id, lf::currency_symbol),
                     locale_field(id, lf::currency_code),
                     international, locale_currency_limits);
}

}  // namespace

XF_ROUTINE(nlmny, f) { return locale_money(f, false); }

XF_ROUTINE(nlmnyi, f) { return locale_money(f, true); }
