// See time_oracle.hpp. Each numbered step follows the rule as written.
#include "oracle/time_oracle.hpp"

#include <cmath>
#include <string>

#include "support/frame.hpp"

namespace xfmt::oracle {
namespace {

std::string seconds_text(double value, int32_t sw, int32_t dd) {
  test::frame_box b = test::frame_box::number(value, sw, dd);
  zfmt(&b.f);
  std::string s = b.buffer();
  if (s[0] == ' ') s[0] = '0';
  return s;
}

}  // namespace

std::string time_field(double value, int32_t w, int32_t d, xf_status &status) {
  status = 0;
  // Step 1 (missing values are the guard's and not handled here).
  if (!(value >= -11928470400.0 && value < 569318630400.0)) {
    status = XF_E_DATE_RANGE;
    return std::string(static_cast<size_t>(w), '*');
  }
  // Step 2.
  const bool neg = value < 0;
  double t = std::fabs(value);
  // Step 3.
  double base = 0;
  if (t >= 86400) {
    base = 24 * std::trunc(t / 86400);
    t = std::fmod(t, 86400);
  }
  // Step 4.
  const double r = 0.5 * std::pow(10.0, -std::min(d, 30)) + 1e-8;
  double hc = 0, mc = 0;
  if (std::fmod(t, 3600) + r >= 3600) {
    t -= std::fmod(t, 3600);
    hc = 1;
  } else if (std::fmod(t, 60) + r >= 60) {
    t -= std::fmod(t, 60);
    mc = 1;
  }
  // Step 5.
  double h = base + zhour(t) + hc;
  if (h > 9007199254740992.0) {
    status = XF_E_HOURS_RANGE;
    return std::string(static_cast<size_t>(w), '*');
  }
  // Step 6.
  long m = static_cast<long>(std::trunc(mc + zminute(t)));
  const double s = zsecond(t);
  double si = std::trunc(s), f = s - si;
  // Steps 7 and 8.
  std::string ht = std::to_string(static_cast<long long>(h));
  auto fit = [&](const std::string &hours) {
    return std::max(0, std::min(d, w - static_cast<int32_t>(hours.size()) - (neg ? 1 : 0) - 7));
  };
  int32_t dd = fit(ht);
  // Step 9.
  bool up;
  if (dd > 0) {
    const double c = std::pow(10.0, dd);
    up = f > 0.9 && c - f * c < 1 && (f * c - std::trunc(f * c)) > 0.4999999;
  } else {
    up = f >= 0.5;
  }
  if (up) {
    si += 1;
    f = 0;
    if (si == 60) {
      si = 0;
      m += 1;
      if (m == 60) {
        m = 0;
        h += 1;
        ht = std::to_string(static_cast<long long>(h));
        dd = fit(ht);
      }
    }
  }
  // Step 10.
  std::string text = (neg ? "-" : "") + ht;
  int32_t len = static_cast<int32_t>(text.size());
  if (w < len) return std::string(static_cast<size_t>(w), '*');
  if (w >= len + 3) {
    text += ":";
    text += static_cast<char>('0' + m / 10);
    text += static_cast<char>('0' + m % 10);
    len += 3;
    if (w >= len + 3) {
      int32_t ddp = std::min(dd, w - (len + 1) - 3);
      if (ddp < 1) ddp = 0;
      text += ":" + seconds_text(si + f, ddp + (ddp > 0 ? 1 : 0) + 2, ddp);
    }
  }
  // Step 11.
  return std::string(static_cast<size_t>(w) - text.size(), ' ') + text;
}

}  // namespace xfmt::oracle
