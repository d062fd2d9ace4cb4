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

#include "catalog/field.hpp"

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

extern "C" xf_status eurfrats(xf_frame *f) { return from_national(f, 1); }
extern "C" xf_status eurfrbef(xf_frame *f) { return from_national(f, 2); }
extern "C" xf_status eurfrfim(xf_frame *f) { return from_national(f, 3); }
extern "C" xf_status eurfrfrf(xf_frame *f) { return from_national(f, 4); }
extern "C" xf_status eurfrdem(xf_frame *f) { return from_national(f, 5); }
extern "C" xf_status eurfriep(xf_frame *f) { return from_national(f, 6); }
extern "C" xf_status eurfritl(xf_frame *f) { return from_national(f, 7); }
extern "C" xf_status eurfrluf(xf_frame *f) { return from_national(f, 8); }
extern "C" xf_status eurfrnlg(xf_frame *f) { return from_national(f, 9); }
extern "C" xf_status eurfrpte(xf_frame *f) { return from_national(f, 10); }
extern "C" xf_status eurfresp(xf_frame *f) { return from_national(f, 11); }
extern "C" xf_status eurfrchf(xf_frame *f) { return from_national(f, 12); }
extern "C" xf_status eurfrdkk(xf_frame *f) { return from_national(f, 13); }
extern "C" xf_status eurfrgbp(xf_frame *f) { return from_national(f, 14); }
extern "C" xf_status eurfrgrd(xf_frame *f) { return from_national(f, 15); }
extern "C" xf_status eurfrsek(xf_frame *f) { return from_national(f, 16); }
extern "C" xf_status eurfrczk(xf_frame *f) { return from_national(f, 17); }
extern "C" xf_status eurfrhuf(xf_frame *f) { return from_national(f, 18); }
extern "C" xf_status eurfrnok(xf_frame *f) { return from_national(f, 19); }
extern "C" xf_status eurfrrur(xf_frame *f) { return from_national(f, 20); }
extern "C" xf_status eurfrtrl(xf_frame *f) { return from_national(f, 21); }
extern "C" xf_status eurfrplz(xf_frame *f) { return from_national(f, 22); }
extern "C" xf_status eurfrrol(xf_frame *f) { return from_national(f, 23); }
extern "C" xf_status eurfryud(xf_frame *f) { return from_national(f, 24); }
extern "C" xf_status eurfrsit(xf_frame *f) { return from_national(f, 25); }

extern "C" xf_status eurtoats(xf_frame *f) { return to_national(f, 1); }
extern "C" xf_status eurtobef(xf_frame *f) { return to_national(f, 2); }
extern "C" xf_status eurtofim(xf_frame *f) { return to_national(f, 3); }
extern "C" xf_status eurtofrf(xf_frame *f) { return to_national(f, 4); }
extern "C" xf_status eurtodem(xf_frame *f) { return to_national(f, 5); }
extern "C" xf_status eurtoiep(xf_frame *f) { return to_national(f, 6); }
extern "C" xf_status eurtoitl(xf_frame *f) { return to_national(f, 7); }
extern "C" xf_status eurtoluf(xf_frame *f) { return to_national(f, 8); }
extern "C" xf_status eurtonlg(xf_frame *f) { return to_national(f, 9); }
extern "C" xf_status eurtopte(xf_frame *f) { return to_national(f, 10); }
extern "C" xf_status eurtoesp(xf_frame *f) { return to_national(f, 11); }
extern "C" xf_status eurtochf(xf_frame *f) { return to_national(f, 12); }
extern "C" xf_status eurtodkk(xf_frame *f) { return to_national(f, 13); }
extern "C" xf_status eurtogbp(xf_frame *f) { return to_national(f, 14); }
extern "C" xf_status eurtogrd(xf_frame *f) { return to_national(f, 15); }
extern "C" xf_status eurtosek(xf_frame *f) { return to_national(f, 16); }
extern "C" xf_status eurtoczk(xf_frame *f) { return to_national(f, 17); }
extern "C" xf_status eurtohuf(xf_frame *f) { return to_national(f, 18); }
extern "C" xf_status eurtonok(xf_frame *f) { return to_national(f, 19); }
extern "C" xf_status eurtorur(xf_frame *f) { return to_national(f, 20); }
extern "C" xf_status eurtotrl(xf_frame *f) { return to_national(f, 21); }
extern "C" xf_status eurtoplz(xf_frame *f) { return to_national(f, 22); }
extern "C" xf_status eurtorol(xf_frame *f) { return to_national(f, 23); }
extern "C" xf_status eurtoyud(xf_frame *f) { return to_national(f, 24); }
extern "C" xf_status eurtosit(xf_frame *f) { return to_national(f, 25); }
