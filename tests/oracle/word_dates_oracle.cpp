#include "oracle/word_dates_oracle.hpp"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <vector>

#include "oracle/calendar_oracle.hpp"

namespace xfmt::oracle {

namespace {

const char *const month_names[12] = {"January", "February", "March",     "April",   "May",      "June",
                                     "July",    "August",   "September", "October", "November", "December"};
const char *const day_names[7] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

std::string abbr(const char *name, bool upper) {
  std::string s(name, 3);
  if (upper)
    for (char &ch : s) ch = static_cast<char>(ch >= 'a' ? ch - 32 : ch);
  return s;
}

std::string right(const std::string &text, int32_t w) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%*s", static_cast<int>(w), text.c_str());
  return buf;
}

std::string first_fit(const std::vector<std::string> &layouts, int32_t w) {
  for (const std::string &s : layouts)
    if (static_cast<int32_t>(s.size()) <= w) return right(s, w);
  return std::string(static_cast<size_t>(w), '*');
}

std::string fmt(const char *pattern, ...) __attribute__((format(printf, 1, 2)));
std::string fmt(const char *pattern, ...) {
  char buf[96];
  va_list ap;
  va_start(ap, pattern);
  std::vsnprintf(buf, sizeof buf, pattern, ap);
  va_end(ap);
  return buf;
}

}  // namespace

void calendar_day(int64_t date, int64_t &year, int32_t &month, int32_t &day, int32_t &weekday) {
  // 1960-01-01 was a Friday. The first day of every year 1582..20001, summed
  // once year by year from 1960, then the months stepped within the year.
  static const std::vector<int64_t> starts = [] {
    std::vector<int64_t> t(20002 - 1582);
    int64_t first = 0;
    for (int64_t y = 1960; y > 1582; --y) first -= leap_4000(y - 1) ? 366 : 365;
    for (int64_t y = 1582; y <= 20001; ++y) {
      t[static_cast<size_t>(y - 1582)] = first;
      first += leap_4000(y) ? 366 : 365;
    }
    return t;
  }();
  weekday = static_cast<int32_t>(((date % 7) + 7 + 5) % 7);
  const auto next = std::upper_bound(starts.begin(), starts.end(), date);
  const int64_t y = 1582 + (next - starts.begin()) - 1;
  int64_t rest = date - *(next - 1);
  int32_t m = 1;
  while (rest >= month_length(y, m)) rest -= month_length(y, m++);
  year = y;
  month = m;
  day = static_cast<int32_t>(rest + 1);
}

std::string words_field(char family, int64_t date, int32_t w) {
  int64_t y;
  int32_t m, d, wd;
  calendar_day(date, y, m, d, wd);
  const char *mon = month_names[m - 1];
  const char *dn = day_names[wd];
  const std::string ma = abbr(mon, false), da = abbr(dn, false);
  const long long yy = static_cast<long long>(y % 100);
  const long long yl = static_cast<long long>(y);
  std::vector<std::string> l;
  switch (family) {
    case 'E':
      l = {fmt("%s, %s %d, %lld", dn, mon, d, yl), fmt("%s, %s %d, %lld", da.c_str(), ma.c_str(), d, yl),
           fmt("%s, %s %d, %02lld", da.c_str(), ma.c_str(), d, yy), dn, da};
      break;
    case 'X':
      l = {fmt("%s, %d %s %lld", dn, d, mon, yl), fmt("%s, %d %s %lld", da.c_str(), d, ma.c_str(), yl),
           fmt("%s, %d %s %02lld", da.c_str(), d, ma.c_str(), yy), dn, da};
      break;
    case 'W':
      l = {fmt("%s %d, %lld", mon, d, yl), fmt("%s %d, %lld", ma.c_str(), d, yl),
           fmt("%s %d, %02lld", ma.c_str(), d, yy), mon, ma};
      break;
    default:
      l = {fmt("%d %s %lld", d, mon, yl), fmt("%d %s %lld", d, ma.c_str(), yl),
           fmt("%d %s %02lld", d, ma.c_str(), yy), mon, ma};
      break;
  }
  return first_fit(l, w);
}

namespace {

struct clock_reading {
  int64_t year;
  int32_t month, day, hour, minute, second;
  int64_t frac;
};

// Round the time of day half up to dd decimals (or cut to whole seconds when
// not rounding); the carry may reach the next day.
clock_reading read_clock(int64_t quarters, bool round, int32_t dd) {
  int64_t day = quarters / 345600;
  if (quarters % 345600 < 0) --day;
  const int64_t tod_q = quarters - day * 345600;
  int64_t scale = 1;
  for (int32_t i = 0; i < dd; ++i) scale *= 10;
  int64_t units = round ? (tod_q * scale + 2) / 4 : tod_q / 4 * scale;
  if (units >= 86400 * scale) {
    units -= 86400 * scale;
    ++day;
  }
  clock_reading r{};
  int32_t wd;
  calendar_day(day, r.year, r.month, r.day, wd);
  const int64_t s = units / scale;
  r.hour = static_cast<int32_t>(s / 3600);
  r.minute = static_cast<int32_t>(s / 60 % 60);
  r.second = static_cast<int32_t>(s % 60);
  r.frac = units % scale;
  return r;
}

int32_t h12(int32_t h) { return h % 12 == 0 ? 12 : h % 12; }
const char *am_pm(int32_t h) { return h < 12 ? "AM" : "PM"; }

}  // namespace

std::string mdyampm_field(int64_t quarters, int32_t w, int32_t d) {
  if (d > 6) d = 6;
  std::vector<std::string> l;
  for (int32_t dd = d; dd >= 0; --dd) {
    const clock_reading r = read_clock(quarters, true, dd);
    std::string frac = dd > 0 ? fmt(".%0*lld", static_cast<int>(dd), static_cast<long long>(r.frac)) : "";
    l.push_back(fmt("%d/%02d/%lld %d:%02d:%02d%s %s", r.month, r.day, static_cast<long long>(r.year), h12(r.hour),
                    r.minute, r.second, frac.c_str(), am_pm(r.hour)));
  }
  const clock_reading c = read_clock(quarters, false, 0);
  const long long y = static_cast<long long>(c.year);
  l.push_back(fmt("%d/%02d/%lld %d:%02d %s", c.month, c.day, y, h12(c.hour), c.minute, am_pm(c.hour)));
  l.push_back(fmt("%d/%02d/%02lld %d:%02d %s", c.month, c.day, y % 100, h12(c.hour), c.minute, am_pm(c.hour)));
  l.push_back(fmt("%d/%02d/%lld", c.month, c.day, y));
  l.push_back(fmt("%d/%02d/%02lld", c.month, c.day, y % 100));
  return first_fit(l, w);
}

std::string dateampm_field(int64_t quarters, int32_t w, int32_t d) {
  if (w < 7) return std::string(static_cast<size_t>(w), '*');
  const bool long_year = w >= 21;
  const int32_t room = w - (long_year ? 9 : 7) - 3;
  const int32_t parts = room >= 9 ? 3 : room >= 6 ? 2 : room >= 3 ? 1 : 0;
  int32_t dd = 0;
  if (parts == 3) dd = std::min(std::min(d, 6), room - 10) > 0 ? std::min(std::min(d, 6), room - 10) : 0;
  const clock_reading r = read_clock(quarters, parts == 3, dd);
  std::string text = fmt("%02d%s", r.day, abbr(month_names[r.month - 1], true).c_str());
  if (!long_year) text += fmt("%02lld", static_cast<long long>(r.year % 100));
  else if (r.year > 9999) text += "****";
  else text += fmt("%04lld", static_cast<long long>(r.year));
  if (parts >= 1) text += fmt(":%02d", h12(r.hour));
  if (parts >= 2) text += fmt(":%02d", r.minute);
  if (parts >= 3) text += fmt(":%02d", r.second);
  if (dd > 0) text += fmt(".%0*lld", static_cast<int>(dd), static_cast<long long>(r.frac));
  if (parts >= 1) text += fmt(" %s", am_pm(r.hour));
  return right(text, w);
}

}  // namespace xfmt::oracle
