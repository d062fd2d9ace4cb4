// Numbers written out: WORDS and WORDF spell an amount in lower-case English
// words, FRACT writes the value as a whole number and a fraction. The texts
// are left-aligned (WORDS, WORDF) or right-justified (FRACT) and blank
// padded; a text longer than w is a field of '*' with XF_E_OVERFLOW rather
// than a cut amount.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstdint>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "core/routine_guard.hpp"
#include "core/bounded_text.hpp"

namespace xfmt::numeric {
namespace {

constexpr const char *units_words[20] = {
    "zero",    "one",     "two",       "three",    "four",     "five",    "six",
    "seven",   "eight",   "nine",      "ten",      "eleven",   "twelve",  "thirteen",
    "fourteen", "fifteen", "sixteen",  "seventeen", "eighteen", "nineteen"};
constexpr const char *tens_words[10] = {"",      "",      "twenty",  "thirty", "forty",
                                        "fifty", "sixty", "seventy", "eighty", "ninety"};
constexpr const char *scale_words[5] = {"", "thousand", "million", "billion", "trillion"};

// Longest text: 15 digits of "seven hundred seventy-seven thousand, ..."
// stay below 200 bytes; minus sign, cents and margin below 320.
constexpr int words_max = 320;

// 1..999 in words: "one hundred twenty-three", "forty", "seven".
void put_hundreds(core::bounded_text &t, int n) {
  if (n >= 100) {
    t.put(units_words[n / 100]);
    t.put(" hundred");
    n %= 100;
    if (n) t.put_char(' ');
  }
  if (n >= 20) {
    t.put(tens_words[n / 10]);
    if (n % 10) {
      t.put_char('-');
      t.put(units_words[n % 10]);
    }
  } else if (n > 0) {
    t.put(units_words[n]);
  }
}

// 0 .. 10^15 - 1 in words, groups of three joined by blanks:
// 1002003 -> "one million two thousand three".
void put_integer(core::bounded_text &t, int64_t n) {
  if (n == 0) {
    t.put(units_words[0]);
    return;
  }
  int groups[5];
  for (int &g : groups) {
    g = static_cast<int>(n % 1000);
    n /= 1000;
  }
  bool first = true;
  for (int i = 4; i >= 0; --i) {
    if (groups[i] == 0) continue;
    if (!first) t.put_char(' ');
    put_hundreds(t, groups[i]);
    if (i > 0) {
      t.put_char(' ');
      t.put(scale_words[i]);
    }
    first = false;
  }
}

// |v| split into whole units and rounded cents; false when the amount needs
// more than fifteen integral digits or is not finite. The fraction a - floor(a)
// is exact, so cents stay right where a * 100 would not be (above 2^53 / 100).
bool split_amount(double a, int64_t &whole, int &cents) {
  if (!(a < 1e15)) return false;
  double fl = std::floor(a);
  whole = static_cast<int64_t>(fl);
  cents = static_cast<int>(std::llround((a - fl) * 100.0));
  if (cents == 100) {
    ++whole;
    cents = 0;
  }
  return whole < 1000000000000000LL;
}

enum class cents_style { words, figures };

xf_status spell(xf_frame *f, cents_style style) {
  int32_t w = f->width;
  if (w < 1) return XF_E_OVERFLOW;
  double v = frame_value(f);
  if (is_missing(v)) return write_missing(f, w, 0);
  bool neg = v < 0;
  int64_t whole = 0;
  int c = 0;
  if (!split_amount(std::fabs(v), whole, c)) return fail_stars(f, w, XF_E_OVERFLOW);
  char words[words_max];
  core::bounded_text t(words);
  if (neg && (whole != 0 || c != 0)) t.put("minus ");
  put_integer(t, whole);
  if (style == cents_style::figures) {
    // "and 05/100": the cents always shown, as on a cheque.
    t.put(" and ");
    t.put2(c);
    t.put("/100");
  } else if (c != 0) {
    // "and forty-five hundredths", "and one hundredth".
    t.put(" and ");
    put_hundreds(t, c);
    t.put(c == 1 ? " hundredth" : " hundredths");
  }
  if (t.length() > static_cast<size_t>(w)) return fail_stars(f, w, XF_E_OVERFLOW);
  uint32_t room = field_room(f, w);
  uint32_t k = static_cast<uint32_t>(t.length()) < room ? static_cast<uint32_t>(t.length()) : room;
  char *out = frame_out(f);
  std::memcpy(out, words, k);
  fill_bytes(out + k, room - k, ' ');
  f->output_length = room;
  return room < static_cast<uint32_t>(w) ? XF_E_CAPACITY : XF_OK;
}

// The fraction of FRACT: the last continued-fraction convergent p/q of x in
// [0, 1) whose text still fits, stopping once it is within 1e-9 of x.
// Convergent terms and denominators stay below 10^12, so h and k cannot
// overflow.
struct fraction {
  int64_t p = 0;
  int64_t q = 1;
};

}  // namespace
}  // namespace xfmt::numeric

using namespace xfmt;
using namespace xfmt::numeric;

// WORDS w: the amount in words, cents rounded and spelled as hundredths:
// 123.45 -> "one hundred twenty-three and forty-five hundredths", 2 -> "two",
// -0.01 -> "minus zero and one hundredth". Amounts to 10^15 - 1.
XF_ROUTINE(zfmwords, f) { return spell(f, cents_style::words); }

// WORDF w: the whole amount in words, the cents as figures over 100:
// 123.45 -> "one hundred twenty-three and 45/100", 7 -> "seven and 00/100".
XF_ROUTINE(zfmwordf, f) { return spell(f, cents_style::figures); }

// FRACT w: the value as "whole numerator/denominator", right-justified:
// 2.25 -> "2 1/4", 1/3 -> "1/3", -0.5 -> "-1/2", 3 -> "3". The fraction is
// the closest continued-fraction convergent whose text fits w (pi at FRACT10
// -> "3 16/113"); when no fraction fits, the whole number rounded. '*' when
// not even that fits.
XF_ROUTINE(zfmfract, f) {
  int32_t w = f->width;
  if (w < 1) return XF_E_OVERFLOW;
  if (w > 32) return fail_stars(f, w, XF_E_OVERFLOW);
  double v = frame_value(f);
  if (is_missing(v)) return write_missing(f, w, 0);
  double a = std::fabs(v);
  if (!(a < 1e15)) return fail_stars(f, w, XF_E_OVERFLOW);
  bool neg = v < 0;
  auto whole = static_cast<int64_t>(a);
  double x = a - static_cast<double>(whole);

  // Convergents h/k of x: h(-1)/k(-1) = 1/0, h(-2)/k(-2) = 0/1.
  fraction best;
  int sign_len = neg ? 1 : 0;
  auto digits = [](int64_t m) { return core::digit_count(static_cast<uint64_t>(m)); };
  auto text_len = [&](int64_t wh, const fraction &fr) {
    int n = sign_len;
    if (fr.p == 0) return n + digits(wh);
    if (wh > 0) n += digits(wh) + 1;
    return n + digits(fr.p) + 1 + digits(fr.q);
  };
  {
    // The continued fraction of x runs in integers on x = num / 2^60 (x
    // rounded to 60 bits), so that 0.3 expands as 0; 3, 3, ... and not as
    // the 0; 3, 2, ... that rounding the reciprocals in doubles would give.
    constexpr double two60 = 1152921504606846976.0;
    auto num = static_cast<uint64_t>(std::llround(x * two60));
    uint64_t den = uint64_t{1} << 60;
    int64_t h1 = 1, k1 = 0, h2 = 0, k2 = 1;
    while (den != 0) {
      uint64_t ai = num / den;
      uint64_t rest = num % den;
      num = den;
      den = rest;
      if (ai > 1000000000000ULL) break;
      auto an = static_cast<int64_t>(ai);
      int64_t h = an * h1 + h2, k = an * k1 + k2;
      if (k > 1000000000000LL) break;
      fraction cand{h, k};
      if (cand.p != 0 && cand.p < cand.q && text_len(whole, cand) > w) break;
      if (cand.p < cand.q) best = cand;
      if (std::fabs(x - static_cast<double>(h) / static_cast<double>(k)) < 1e-9) break;
      h2 = h1;
      k2 = k1;
      h1 = h;
      k1 = k;
    }
  }
  // Without a fitting fraction the fraction part rounds to the whole number.
  if (best.p == 0 && x >= 0.5) ++whole;
  char text[64];
  core::bounded_text t(text);
  bool zero = whole == 0 && best.p == 0;
  if (neg && !zero) t.put_char('-');
  if (whole > 0 || best.p == 0) t.put_unsigned(static_cast<uint64_t>(whole));
  if (best.p != 0) {
    if (whole > 0) t.put_char(' ');
    t.put_unsigned(static_cast<uint64_t>(best.p));
    t.put_char('/');
    t.put_unsigned(static_cast<uint64_t>(best.q));
  }
  if (t.length() > static_cast<size_t>(w)) return fail_stars(f, w, XF_E_OVERFLOW);
  const int n = static_cast<int>(t.length());
  char buf[64];
  std::memset(buf, ' ', static_cast<size_t>(w - n));
  std::memcpy(buf + (w - n), text, static_cast<size_t>(n));
  uint32_t room = field_room(f, w);
  std::memcpy(frame_out(f), buf, room);
  f->output_length = room;
  return room < static_cast<uint32_t>(w) ? XF_E_CAPACITY : XF_OK;
}
