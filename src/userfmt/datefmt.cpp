// The date-directive formatter of date pictures: a template of %-directives
// rendered for a DATE (days), TIME (seconds) or DATETIME (seconds) value.
//   %a %A  weekday, abbreviated / full     %b %B  month, abbreviated / full
//   %d     day of month                    %m     month number
//   %y %Y  year in two / four digits       %j     day of year
//   %H %I  hour 00-23 / 01-12              %M %S  minute, second
//   %p     AM or PM                        %w     weekday 0 (Sunday) - 6
//   %U     week of the year, weeks starting on Sunday (days before the first
//          Sunday are week 0)              %%     a percent sign
// Numbers are written without padding unless the flag 0 follows the percent
// sign (%0d: two digits, %0j three, %0Y four). Any other character, and a
// directive not listed, is copied as it stands.
#include "xfmt/xfmt.h"

#include <cmath>
#include <cstring>

#include "catalog/missing.hpp"

namespace xfmt::userfmt {
namespace {

struct parts {
  bool has_date = false;
  int year = 0, month = 0, day = 0, yday = 0, wday = 0;  // wday 0 = Sunday
  bool has_time = false;
  int hour = 0, minute = 0, second = 0;
};

class writer {
 public:
  writer(char *out, int32_t cap) : out_(out), cap_(cap > 0 ? cap : 0) {}
  void put(char c) {
    if (n_ < cap_) out_[n_] = c;
    ++n_;
  }
  void put(const char *s, size_t len) {
    for (size_t i = 0; i < len; ++i) put(s[i]);
  }
  void number(long v, int pad) {
    char buf[24];
    int k = 0;
    bool neg = v < 0;
    unsigned long m = neg ? 0ul - static_cast<unsigned long>(v) : static_cast<unsigned long>(v);
    do {
      buf[k++] = static_cast<char>('0' + m % 10);
      m /= 10;
    } while (m);
    if (neg) put('-');
    for (int i = k; i < pad; ++i) put('0');
    while (k) put(buf[--k]);
  }
  int32_t length() const { return n_ < cap_ ? n_ : cap_; }

 private:
  char *out_;
  int32_t cap_;
  int32_t n_ = 0;
};

bool date_parts(double date, parts &p) {
  double jul = zjuldat(date);
  if (is_missing(jul) || std::isnan(jul)) return false;
  double y, m, d;
  zymdjul(&y, &m, &d, jul);
  double wd = zwekday(date);
  if (is_missing(y) || is_missing(wd) || m < 1 || m > 12) return false;
  p.has_date = true;
  p.year = static_cast<int>(y);
  p.month = static_cast<int>(m);
  p.day = static_cast<int>(d);
  p.yday = static_cast<int>(std::fmod(jul, 1000.0));
  // Before 1600-01-02 the weekday runs from -5 to 1; the true one is mod 7.
  p.wday = ((static_cast<int>(wd) - 1) % 7 + 7) % 7;
  return true;
}

bool time_parts(double t, parts &p) {
  double h = zhour(t), mi = zminute(t), s = zsecond(t);
  if (is_missing(h) || is_missing(mi) || is_missing(s)) return false;
  p.has_time = true;
  p.hour = static_cast<int>(h);
  p.minute = static_cast<int>(mi);
  p.second = static_cast<int>(s);
  return true;
}

// Returns false when the directive does not apply (copied as it stands).
bool directive(writer &out, char c, bool zero, const parts &p) {
  auto num = [&](long v, int width) { out.number(v, zero ? width : 0); };
  switch (c) {
    case 'a': case 'A': case 'b': case 'B': case 'd': case 'j': case 'm':
    case 'U': case 'w': case 'y': case 'Y':
      if (!p.has_date) return false;
      break;
    case 'H': case 'I': case 'M': case 'S': case 'p':
      if (!p.has_time) return false;
      break;
    default: return false;
  }
  switch (c) {
    case 'a': out.put(weekdays[p.wday], 3); break;
    case 'A': out.put(weekdays[p.wday], std::strlen(weekdays[p.wday])); break;
    case 'b': out.put(months[p.month - 1], 3); break;
    case 'B': out.put(months[p.month - 1], std::strlen(months[p.month - 1])); break;
    case 'd': num(p.day, 2); break;
    case 'j': num(p.yday, 3); break;
    case 'm': num(p.month, 2); break;
    case 'U': num((p.yday - 1 + 7 - p.wday) / 7, 2); break;
    case 'w': num(p.wday, 1); break;
    case 'y': num(p.year % 100, 2); break;
    case 'Y': num(p.year, 4); break;
    case 'H': num(p.hour, 2); break;
    case 'I': num(p.hour % 12 == 0 ? 12 : p.hour % 12, 2); break;
    case 'M': num(p.minute, 2); break;
    case 'S': num(p.second, 2); break;
    case 'p': out.put(p.hour < 12 ? "AM" : "PM", 2); break;
    default: break;
  }
  return true;
}

}  // namespace
}  // namespace xfmt::userfmt

using namespace xfmt::userfmt;

extern "C" int32_t datefmt(const char *picture, int32_t picture_length, int32_t datatype,
                           const char *language, int32_t language_length, double value,
                           char *work, int32_t work_capacity) {
  writer out(work, work_capacity);
  // Only English names are held: "English", an empty language and any
  // other language all use them.
  (void)language;
  (void)language_length;
  if (xfmt::is_missing(value)) {
    out.put(xfmt::missing_symbol(xfmt::double_bits(value)) == ' ' ? '.'
                                                                 : xfmt::missing_symbol(xfmt::double_bits(value)));
    return out.length();
  }
  parts p;
  bool ok = true;
  if (datatype == 1) ok = date_parts(value, p);
  else if (datatype == 2) ok = time_parts(value, p);
  else if (datatype == 3) ok = date_parts(zdatprt(value), p) && time_parts(ztimprt(value), p);
  if (!ok || std::isnan(value)) {
    out.put('*');
    return out.length();
  }
  for (int32_t i = 0; i < picture_length; ++i) {
    char c = picture[i];
    if (c != '%' || i + 1 >= picture_length) {
      out.put(c);
      continue;
    }
    int32_t j = i + 1;
    bool zero = picture[j] == '0';
    if (zero && j + 1 < picture_length) ++j;
    if (picture[j] == '%') {
      out.put('%');
      i = j;
      continue;
    }
    if (directive(out, picture[j], zero, p)) i = j;
    else out.put(c);
  }
  return out.length();
}
