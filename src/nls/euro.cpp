// The euro conversion formats: EURFRxxx prints an amount of a national
// currency in euros through EUROX, EURTOxxx an amount of euros in the
// national currency through w.d. The rate table is copied once per family on
// first use; the copy is published atomically, so any number of threads may
// make the first call at once and later calls take no lock.
#include "xfmt/xfmt.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <mutex>

#include "core/field.hpp"
#include "core/routine_guard.hpp"

// Units of each currency per euro, exactly as hosts have always had them:
// results must not move, so no rate is "corrected" to more digits.
extern "C" const double conv_rate[26] = {
    1.0,     13.7603, 40.3399, 5.94573, 6.55957, 1.95583,  0.787564, 1936.27, 40.3399,
    2.20371, 200.482, 166.386, 1.6043,  7.49009, 0.700132, 340.885,  9.36591, 34.8563,
    260.325, 9.1977,  19.768,  336.912, 4.2,     13.71,    13.0644,  191.0};

extern "C" const char valid_curr[105] =
    "EUR ATS BEF FIM FRF DEM IEP ITL LUF NLG PTE ESP CHF DKK GBP GRD SEK CZK HUF NOK RUR TRL "
    "PLZ ROL YUD SIT ";

extern "C" {
xf_euro_state euro_reentstr = {nullptr, nullptr, 0, '\0'};
}

extern "C" xf_euro_state *estrent(void) { return &euro_reentstr; }
extern "C" xf_euro_state *getrent(void) { return &euro_reentstr; }

namespace {

// Every working copy ever made stays on this list: a copy that a later
// set-up replaces may still be read by another thread, so none is freed,
// and all stay reachable for the life of the process.
struct rate_copy {
  rate_copy *next;
  double rates[26];
};
std::atomic<rate_copy *> all_copies{nullptr};

}  // namespace

extern "C" void eurconv(xf_euro_state *state) {
  if (state == nullptr) return;
  auto *copy = static_cast<rate_copy *>(std::malloc(sizeof(rate_copy)));
  if (copy != nullptr) {
    std::memcpy(copy->rates, conv_rate, sizeof conv_rate);
    copy->next = all_copies.load(std::memory_order_relaxed);
    while (!all_copies.compare_exchange_weak(copy->next, copy, std::memory_order_release,
                                             std::memory_order_relaxed)) {
    }
    std::atomic_ref<double *>(state->rates).store(copy->rates, std::memory_order_release);
  }
  const char *none = nullptr;
  std::atomic_ref<const char *> list(state->currencies);
  if (list.load(std::memory_order_acquire) == nullptr) {
    std::atomic_ref<uint32_t>(state->currencies_length).store(104, std::memory_order_relaxed);
    list.compare_exchange_strong(none, valid_curr, std::memory_order_acq_rel);
  }
}

extern "C" void eurochr(xf_euro_state *state) {
  if (state != nullptr)
    std::atomic_ref<char>(state->currency_sign).store('E', std::memory_order_relaxed);
}

namespace {

std::once_flag from_national_once;  // EURFR family
std::once_flag to_national_once;    // EURTO family
xf_euro_state *anchor = nullptr;

// The working rate of a currency; the constant table when set-up could not
// allocate (the values are the same).
double rate_of(int index) {
  const double *r = std::atomic_ref<double *>(euro_reentstr.rates).load(std::memory_order_acquire);
  return r != nullptr ? r[index] : conv_rate[index];
}

// Prints value through routine on a copy of the frame; the output length
// becomes the width (within the capacity).
xf_status print_converted(xf_frame *f, double value, xf_routine routine) {
  xf_frame copy = *f;
  copy.input = &value;
  copy.input_length = sizeof value;
  xf_status st = routine(&copy);
  f->output_encoding = copy.output_encoding;
  f->output_length = xfmt::field_room(f, f->width);
  return st;
}

xf_status from_national(xf_frame *f, int index) {
  std::call_once(from_national_once, [] {
    anchor = &euro_reentstr;
    eurconv(anchor);
    eurochr(anchor);
  });
  const double v = xfmt::frame_value(f);
  if (xfmt::is_missing(v)) {
    xf_status st = zfmerx(f);
    f->output_length = xfmt::field_room(f, f->width);
    return st;
  }
  return print_converted(f, v / rate_of(index), zfmerx);
}

xf_status to_national(xf_frame *f, int index) {
  std::call_once(to_national_once, [] { eurconv(&euro_reentstr); });
  const double v = xfmt::frame_value(f);
  if (xfmt::is_missing(v)) {
    xf_status st = zfmt(f);
    f->output_length = xfmt::field_room(f, f->width);
    return st;
  }
  return print_converted(f, v * rate_of(index), zfmt);
}

}  // namespace

XF_ROUTINE(eurfrats, f) { return from_national(f, 1); }
XF_ROUTINE(eurfrbef, f) { return from_national(f, 2); }
XF_ROUTINE(eurfrfim, f) { return from_national(f, 3); }
XF_ROUTINE(eurfrfrf, f) { return from_national(f, 4); }
XF_ROUTINE(eurfrdem, f) { return from_national(f, 5); }
XF_ROUTINE(eurfriep, f) { return from_national(f, 6); }
XF_ROUTINE(eurfritl, f) { return from_national(f, 7); }
XF_ROUTINE(eurfrluf, f) { return from_national(f, 8); }
XF_ROUTINE(eurfrnlg, f) { return from_national(f, 9); }
XF_ROUTINE(eurfrpte, f) { return from_national(f, 10); }
XF_ROUTINE(eurfresp, f) { return from_national(f, 11); }
XF_ROUTINE(eurfrchf, f) { return from_national(f, 12); }
XF_ROUTINE(eurfrdkk, f) { return from_national(f, 13); }
XF_ROUTINE(eurfrgbp, f) { return from_national(f, 14); }
XF_ROUTINE(eurfrgrd, f) { return from_national(f, 15); }
XF_ROUTINE(eurfrsek, f) { return from_national(f, 16); }
XF_ROUTINE(eurfrczk, f) { return from_national(f, 17); }
XF_ROUTINE(eurfrhuf, f) { return from_national(f, 18); }
XF_ROUTINE(eurfrnok, f) { return from_national(f, 19); }
XF_ROUTINE(eurfrrur, f) { return from_national(f, 20); }
XF_ROUTINE(eurfrtrl, f) { return from_national(f, 21); }
XF_ROUTINE(eurfrplz, f) { return from_national(f, 22); }
XF_ROUTINE(eurfrrol, f) { return from_national(f, 23); }
XF_ROUTINE(eurfryud, f) { return from_national(f, 24); }
XF_ROUTINE(eurfrsit, f) { return from_national(f, 25); }

XF_ROUTINE(eurtoats, f) { return to_national(f, 1); }
XF_ROUTINE(eurtobef, f) { return to_national(f, 2); }
XF_ROUTINE(eurtofim, f) { return to_national(f, 3); }
XF_ROUTINE(eurtofrf, f) { return to_national(f, 4); }
XF_ROUTINE(eurtodem, f) { return to_national(f, 5); }
XF_ROUTINE(eurtoiep, f) { return to_national(f, 6); }
XF_ROUTINE(eurtoitl, f) { return to_national(f, 7); }
XF_ROUTINE(eurtoluf, f) { return to_national(f, 8); }
XF_ROUTINE(eurtonlg, f) { return to_national(f, 9); }
XF_ROUTINE(eurtopte, f) { return to_national(f, 10); }
XF_ROUTINE(eurtoesp, f) { return to_national(f, 11); }
XF_ROUTINE(eurtochf, f) { return to_national(f, 12); }
XF_ROUTINE(eurtodkk, f) { return to_national(f, 13); }
XF_ROUTINE(eurtogbp, f) { return to_national(f, 14); }
XF_ROUTINE(eurtogrd, f) { return to_national(f, 15); }
XF_ROUTINE(eurtosek, f) { return to_national(f, 16); }
XF_ROUTINE(eurtoczk, f) { return to_national(f, 17); }
XF_ROUTINE(eurtohuf, f) { return to_national(f, 18); }
XF_ROUTINE(eurtonok, f) { return to_national(f, 19); }
XF_ROUTINE(eurtorur, f) { return to_national(f, 20); }
XF_ROUTINE(eurtotrl, f) { return to_national(f, 21); }
XF_ROUTINE(eurtoplz, f) { return to_national(f, 22); }
XF_ROUTINE(eurtorol, f) { return to_national(f, 23); }
XF_ROUTINE(eurtoyud, f) { return to_national(f, 24); }
XF_ROUTINE(eurtosit, f) { return to_national(f, 25); }
