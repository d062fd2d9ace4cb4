// Slow reference of zfmt: a literal walk through the layout steps, digits
// from snprintf ("%.0f" of the integral part, "%.60f" of the fraction,
// "%.40f" of an E mantissa, "%.14e" for a decimal exponent).
#include "oracle/zfmt_oracle.hpp"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "core/missing.hpp"

namespace xfmt::oracle {
namespace {

const double addend[32] = {0.5,   0.05,  0.005, 5e-4,  5e-5,  5e-6,  5e-7,  5e-8,
                           5e-9,  5e-10, 5e-11, 5e-12, 5e-13, 5e-14, 5e-15, 5e-16,
                           5e-17, 5e-18, 5e-19, 5e-20, 5e-21, 5e-22, 5e-23, 5e-24,
                           5e-25, 5e-26, 5e-27, 5e-28, 5e-29, 5e-30, 5e-31, 5e-32};

// m * 10^-e the way the printer scales: one double operation by an exact
// power within 10^+-22, else long double steps of 10^27 at most.
double scale(double m, int e) {
  if (e >= -22 && e <= 22) {
    double p = 1;
    for (int i = 0; i < (e < 0 ? -e : e); ++i) p *= 10;
    return e >= 0 ? m / p : m * p;
  }
  long double x = m;
  long double p27 = 1e27L;
  if (e > 0) {
    while (e > 27) { x /= p27; e -= 27; }
    long double p = 1; for (int i = 0; i < e; ++i) p *= 10;
    x /= p;
  } else {
    e = -e;
    while (e > 27) { x *= p27; e -= 27; }
    long double p = 1; for (int i = 0; i < e; ++i) p *= 10;
    x *= p;
  }
  return static_cast<double>(x);
}

// "0.dddd..." of a fraction in [0, 1): the digits after the point.
std::string fraction_digits(double f, int precision) {
  char buf[128];
  std::snprintf(buf, sizeof buf, "%.*f", precision, f);
  return std::string(buf + 2);
}

int estimate(double m) {
  if (m == 0) return 0;
  int e2;
  std::frexp(m, &e2);
  return e2 * 77 / 256;
}

// Decimals for `digits` significant digits in `room` positions, or -999.
int zfmtd_oracle(double m, int room, int digits) {
  if (digits < 1) digits = 1;
  if (!(m > 0) || !std::isfinite(m)) return 0;
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.14e", m);
  int x = std::atoi(std::strchr(buf, 'e') + 1);
  int dd = digits - 1 - x;
  if (dd < 0) dd = 0;
  if (dd > 31) dd = 31;
  int n = x >= 0 ? x + 1 : 1;
  if (n > room) return -999;
  if (n + (dd > 0 ? dd + 1 : 0) > room) dd = room - n - 1 < 0 ? 0 : room - n - 1;
  if (x < 0 && dd < -x) return -999;
  return dd;
}

// The E text of m (without blanks) for the available width and code; empty
// when it does not fit.
std::string fmte_oracle(double m, int room, int code) {
  if (room < 1) return {};
  double mant = 0;
  int x = 0;
  if (m != 0) {
    int e2;
    std::frexp(m, &e2);
    int e = static_cast<int>(std::floor(e2 * 77 / 256.0));
    if (e > 308) e = 308;
    mant = scale(m, e);
    while (mant >= 1.0) { mant /= 10; ++e; }
    while (mant < 0.1) { mant *= 10; --e; }
    x = e - 1;
  }
  int xd = std::abs(x) >= 100 ? 3 : 2;
  int mw = room - 2 - xd;
  if (mw < 1) return {};
  int fit = mw >= 3 ? mw - 1 : 1;
  bool best = code > 31;
  int k = best ? fit : std::abs(code) + 1;
  if (k > fit) k = fit;
  if (m != 0) {
    if (k < 15) mant += addend[k];
    mant *= 1.0000000000000018;
    if (mant >= 1.0) {
      ++x;
      mant *= 0.10000000000000002;
      xd = std::abs(x) >= 100 ? 3 : 2;
      mw = room - 2 - xd;
      if (mw < 1) return {};
      fit = mw >= 3 ? mw - 1 : 1;
      if (k > fit) k = fit;
    }
  }
  std::string digits = fraction_digits(mant, 40).substr(0, static_cast<size_t>(k < 15 ? k : 15));
  while (static_cast<int>(digits.size()) < k) digits += '0';
  if (best)
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  std::string text(1, digits[0]);
  if (digits.size() > 1) text += "." + digits.substr(1);
  char ex[24];
  std::snprintf(ex, sizeof ex, "E%c%0*d", x < 0 ? '-' : '+', xd, std::abs(x));
  return text + ex;
}


// The field of w positions for a finite, non-missing value, and its status.
xf_status layout(double v, int w, int d, std::string &field) {
  field.assign(static_cast<size_t>(w), ' ');
  auto star = [&] { field.assign(static_cast<size_t>(w), '*'); return XF_E_OVERFLOW; };
  if (!std::isfinite(v)) return star();
  bool neg = v < 0;
  double m = std::fabs(v);
  int a = neg ? w - 1 : w;
  auto efill = [&](int code) -> xf_status {
    field.assign(static_cast<size_t>(w), ' ');
    std::string e = fmte_oracle(m, a, code);
    if (e.empty()) return star();
    if (neg) e = "-" + e;
    field.replace(static_cast<size_t>(w) - e.size(), e.size(), e);
    return XF_OK;
  };

  // Integer fast path.
  if ((d == 0 || d == 99) && m == std::floor(m) && m <= 9007199254740992.0 && w <= 16) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%s%.0f", neg ? "-" : "", m);
    if (static_cast<int>(std::strlen(buf)) <= w) {
      field.replace(static_cast<size_t>(w) - std::strlen(buf), std::strlen(buf), buf);
      return XF_OK;
    }
  }
  int wd = d;
  if (d == 98) wd = zfmtd_oracle(m, a, 3);
  else if (d >= 80 && d <= 89) wd = zfmtd_oracle(m, a, d - 80);
  if (wd == -999) wd = 7 - w < 0 ? 7 - w : -1;
  int e10 = estimate(m);
  if (wd < 0 && a > 4) return efill(wd);

  bool best = wd < 0 || wd > 32;
  int dd;
  if (wd <= 32) dd = wd < 0 ? 99 : wd;
  else dd = m == 0 ? 0 : 99;
  if (e10 < 1 && dd > 32) {
    if (a < 3) {
      dd = a - 2;
      if (a - 2 < 2) dd = a - 1;
      if (dd < 0) dd = 0;
    } else {
      int k = (e10 < -99) + (e10 < -9);
      if ((k == 0 || a <= k + 3) && (a < 5 || (m >= 1e-05 && e10 + a > 2))) {
        dd = a - 2;
        if (a - 2 < 2) dd = a - 1;
      } else {
        return efill(99);
      }
    }
  } else if (!(e10 <= a && e10 != 32)) {
    return efill(99);
  }

  if (a == 0 && m < 0.5) { neg = false; a = 1; dd = 0; }
  xf_status status = XF_OK;
  int e10c = e10 < 0 ? 0 : e10;
  int iw = a - dd - (dd > 0 ? 1 : 0);
  if (iw < e10c) {
    dd = e10c == a ? 0 : a - e10c - 1;
    iw = a - dd - (dd > 0 ? 1 : 0);
    if (!best) status = XF_REDUCED;
  }
  bool integral = m == std::floor(m);
  auto rounded = [&](int k) {
    if (integral) return m;
    if (k <= 15 - e10) return (m + addend[k]) * 1.0000000000000002;
    return m * 1.0000000000000002;
  };
  double r = rounded(dd);
  if (integral && best) { dd = 0; iw = a; }
  std::string ipart;
  for (int attempt = 0;; ++attempt) {
    char buf[400];
    std::snprintf(buf, sizeof buf, "%.0f", std::floor(r));
    ipart = std::strcmp(buf, "0") == 0 ? std::string() : std::string(buf);
    if (static_cast<int>(ipart.size()) <= iw) break;
    if (dd == 0 || attempt == 1) return efill(99);
    --dd;
    iw = a - dd - (dd > 0 ? 1 : 0);
    r = rounded(dd);
    if (!best) status = XF_REDUCED;
  }
  int n = static_cast<int>(ipart.size());
  std::string text = ipart;
  if (n == 0 && iw > 0) text = "0";
  if (neg) text = "-" + text;
  if (dd > 0) {
    std::string frac;
    if (n >= 15) {
      frac.assign(static_cast<size_t>(dd), '0');
    } else {
      std::string all = fraction_digits(r - std::floor(r), 60);
      int lz = 0;
      if (n == 0)
        while (lz < dd && all[static_cast<size_t>(lz)] == '0') ++lz;
      int k = 15 - n + lz;
      if (k > dd) k = dd;
      frac = all.substr(0, static_cast<size_t>(k)) + std::string(static_cast<size_t>(dd - k), '0');
    }
    if (best) {
      while (!frac.empty() && frac.back() == '0') frac.pop_back();
      if (!frac.empty()) text += "." + frac;
      field.assign(static_cast<size_t>(w), ' ');
      field.replace(static_cast<size_t>(w) - text.size(), text.size(), text);
      return status;
    }
    text += "." + frac;
  }
  // The text ends where the layout of a positions ends: the field's end.
  field.replace(static_cast<size_t>(w) - text.size(), text.size(), text);
  return status;
}

}  // namespace

field_result zfmt_oracle(double value, int32_t w, int32_t d, uint32_t capacity) {
  field_result res;
  res.width_after = w;
  if (w < 1) {
    res.status = XF_E_OVERFLOW;
    return res;
  }
  std::string field;
  xf_status status;
  if (w > 32) {
    res.width_after = 32;
    field.assign(32, '*');
    status = XF_E_OVERFLOW;
  } else if (is_missing(value)) {
    // The whole capacity is blanked; the length is min(w, capacity).
    int dm = d < 0 || d >= w ? 0 : d;
    field.assign(static_cast<size_t>(w), ' ');
    field[static_cast<size_t>(w - 1 - dm)] = missing_symbol(double_bits(value));
    status = XF_OK;
    size_t n = capacity < static_cast<uint32_t>(w) ? capacity : static_cast<size_t>(w);
    res.text = field.substr(0, n);
    res.length = static_cast<uint32_t>(n);
    res.status = status;
    return res;
  } else {
    status = layout(value, w, d, field);
  }
  size_t n = field.size() < capacity ? field.size() : capacity;
  res.text = field.substr(0, n);
  res.length = static_cast<uint32_t>(n);
  if (n < field.size() && (status == XF_OK || status == XF_REDUCED)) status = XF_E_CAPACITY;
  res.status = status;
  return res;
}

}  // namespace xfmt::oracle
