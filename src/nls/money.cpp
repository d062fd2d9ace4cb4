// NLMNL and NLMNI: the currency table, the placement patterns and the
// printer that tries grouped, plain, symbol-less and exponent forms in turn.
#include "xfmt/xfmt.h"

#include "nls/money.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "core/field.hpp"
#include "nls/locale_fields.hpp"
#include "nls/locale_reader.hpp"
#include "nls/nl_encode.hpp"
#include "core/bounded_text.hpp"  // the candidates' text

// Symbols: the currency's own sign where its country uses one, with a
// country prefix (US$, CA$, NT$ ...) where several currencies share "$".
// The other columns are the conventions of the currency's main country.
extern "C" const xf_monetary lconv_monetary[82] = {
    {"AED", "<U062F>.<U0625>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"ALL", "Lek", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"ARS", "$", ",", ".", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"AUD", "A$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"BGN", "<U043B><U0432>.", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"BHD", "<U062F>.<U0628>.", ".", ",", "3", "", "-", 3, 3, 1, 1, 1, 1, 1, 1},
    {"BOB", "Bs", ",", ".", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"BRL", "R$", ",", ".", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"BWP", "P", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"BYB", "<U0440><U0443><U0431>.", ",", "<U00A0>", "3", "", "-", 0, 0, 0, 1, 0, 1, 1, 1},
    {"CAD", "CA$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"CHF", "CHF", ".", "'", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"CLP", "$", ",", ".", "3", "", "-", 0, 0, 1, 1, 1, 1, 1, 1},
    {"CNY", "CN<U00A5>", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"COP", "$", ",", ".", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"CRC", "<U20A1>", ",", ".", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"CZK", "K<U010D>", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"DKK", "kr.", ",", ".", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"DOP", "RD$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"DZD", "<U062F>.<U062C>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"EEK", "kr", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"EGP", "<U062C>.<U0645>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"EUR", "<U20AC>", ",", ".", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"GBP", "<U00A3>", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"GTQ", "Q", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"HKD", "HK$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"HNL", "L", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"HRK", "kn", ",", ".", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"HUF", "Ft", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"IDR", "Rp", ",", ".", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"ILS", "<U20AA>", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"INR", "<U20B9>", ".", ",", "3;2", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"IQD", "<U062F>.<U0639>.", ".", ",", "3", "", "-", 3, 3, 1, 1, 1, 1, 1, 1},
    {"IRR", "<U0631><U06CC><U0627><U0644>", ".", ",", "3", "", "-", 0, 0, 1, 1, 1, 1, 1, 1},
    {"ISK", "kr", ",", ".", "3", "", "-", 0, 0, 0, 1, 0, 1, 1, 1},
    {"JMD", "J$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"JOD", "<U062F>.<U0627>.", ".", ",", "3", "", "-", 3, 3, 1, 1, 1, 1, 1, 1},
    {"JPY", "<U00A5>", ".", ",", "3", "", "-", 0, 0, 1, 0, 1, 0, 1, 1},
    {"KRW", "<U20A9>", ".", ",", "3", "", "-", 0, 0, 1, 0, 1, 0, 1, 1},
    {"KWD", "<U062F>.<U0643>.", ".", ",", "3", "", "-", 3, 3, 1, 1, 1, 1, 1, 1},
    {"LBP", "<U0644>.<U0644>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"LTL", "Lt", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"LVL", "Ls", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"LYD", "<U062F>.<U0644>.", ".", ",", "3", "", "-", 3, 3, 1, 1, 1, 1, 1, 1},
    {"MAD", "<U062F>.<U0645>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"MKD", "<U0434><U0435><U043D>", ",", ".", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"MOP", "MOP$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"MXN", "MX$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"MYR", "RM", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"NIO", "C$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"NOK", "kr", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"NZD", "NZ$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"OMR", "<U0631>.<U0639>.", ".", ",", "3", "", "-", 3, 3, 1, 1, 1, 1, 1, 1},
    {"PAB", "B/.", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"PEN", "S/", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"PHP", "<U20B1>", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"PLN", "z<U0142>", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"PYG", "<U20B2>", ",", ".", "3", "", "-", 0, 0, 1, 1, 1, 1, 1, 1},
    {"QAR", "<U0631>.<U0642>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"ROL", "lei", ",", ".", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"RUB", "<U20BD>", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"RUR", "<U0440>.", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"SAR", "<U0631>.<U0633>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"SDD", "<U062F>.<U0633>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"SEK", "kr", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"SGD", "S$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"SKK", "Sk", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"SVC", "<U20A1>", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"SYP", "<U0644>.<U0633>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"THB", "<U0E3F>", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"TND", "<U062F>.<U062A>.", ".", ",", "3", "", "-", 3, 3, 1, 1, 1, 1, 1, 1},
    {"TRY", "<U20BA>", ",", ".", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"TWD", "NT$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"UAH", "<U20B4>", ",", "<U00A0>", "3", "", "-", 2, 2, 0, 1, 0, 1, 1, 1},
    {"USD", "US$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"UYU", "$U", ",", ".", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"VEB", "Bs", ",", ".", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"VND", "<U20AB>", ",", ".", "3", "", "-", 0, 0, 0, 1, 0, 1, 1, 1},
    {"XCD", "EC$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"YER", "<U0631>.<U064A>.", ".", ",", "3", "", "-", 2, 2, 1, 1, 1, 1, 1, 1},
    {"ZAR", "R", ",", "<U00A0>", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
    {"ZWD", "Z$", ".", ",", "3", "", "-", 2, 2, 1, 0, 1, 0, 1, 1},
};

extern "C" const char *const CurrencyFormatPatterns[20] = {
    "(V$)",  "-V$",  "V$-",  "V-$",  "V$-",   //  0-4   symbol after, no space
    "($V)",  "-$V",  "$V-",  "-$V",  "$-V",   //  5-9   symbol before, no space
    "(V $)", "-V $", "V $-", "V- $", "V $-",  // 10-14  symbol after, space
    "($ V)", "-$ V", "$ V-", "-$ V", "$ -V",  // 15-19  symbol before, space
};

namespace xfmt::nls {
namespace {

constexpr size_t candidate_room = 256;  // longer candidates fail
constexpr size_t digits_room = 400;     // DBL_MAX with 28 decimals: 338 characters

std::string_view field_or_empty(const field_reader &loc, int field) {
  std::string_view t;
  return loc.get(field, &t) ? t : std::string_view{};
}

// atol of a flag field; an unreadable one counts 0.
int flag(const field_reader &loc, int field) {
  std::string_view t = field_or_empty(loc, field);
  int v = 0;
  size_t i = 0;
  while (i < t.size() && t[i] == ' ') ++i;
  bool neg = i < t.size() && t[i] == '-';
  if (neg || (i < t.size() && t[i] == '+')) ++i;
  for (; i < t.size() && t[i] >= '0' && t[i] <= '9' && v < 1000; ++i) v = v * 10 + (t[i] - '0');
  return neg ? -v : v;
}

int clamp(int v, int hi) { return v < 0 ? 0 : (v > hi ? hi : v); }

void put_digits(core::bounded_text &o, const money_conventions &c, std::string_view digits, bool grouped) {
  size_t dot = digits.find('.');
  std::string_view whole = digits.substr(0, dot);
  std::string_view frac =
      dot == std::string_view::npos ? std::string_view{} : digits.substr(dot + 1);
  grouped = grouped && digits.find('E') == std::string_view::npos && c.group > 0;
  size_t g = static_cast<size_t>(c.group);
  if (grouped && whole.size() > g) {
    size_t first = whole.size() % g;
    if (first == 0) first = g;
    o.put(whole.substr(0, first));
    for (size_t i = first; i < whole.size(); i += g) {
      o.put(c.separator);
      o.put(whole.substr(i, g));
    }
  } else {
    o.put(whole);
  }
  if (dot != std::string_view::npos) {
    o.put(c.point);
    o.put(frac);
  }
}

// "%.*f" of |v|: exact digits, the same as the C library's.
size_t fixed_digits(double v, int d, char *out) {
  auto r = std::to_chars(out, out + digits_room, std::fabs(v), std::chars_format::fixed, d);
  return static_cast<size_t>(r.ptr - out);
}

// "%-0.*G" of |v|: shortest of fixed and exponent with d significant digits,
// trailing zeros dropped, upper-case exponent.
size_t exponent_digits(double v, int d, char *out) {
  auto r = std::to_chars(out, out + digits_room, std::fabs(v), std::chars_format::general,
                         d == 0 ? 1 : d);
  size_t n = static_cast<size_t>(r.ptr - out);
  for (size_t i = 0; i < n; ++i)
    if (out[i] >= 'a' && out[i] <= 'z') out[i] = static_cast<char>(out[i] - 'a' + 'A');
  return n;
}

// "%*.*f" of v: the signed digits right-aligned in w.
size_t padded_digits(double v, int w, int d, char *out) {
  char digits[digits_room];
  auto r = std::to_chars(digits, digits + sizeof digits, v, std::chars_format::fixed, d);
  size_t n = static_cast<size_t>(r.ptr - digits);
  size_t pad = w > 0 && static_cast<size_t>(w) > n ? static_cast<size_t>(w) - n : 0;
  std::memset(out, ' ', pad);
  std::memcpy(out + pad, digits, n);
  return pad + n;
}

}  // namespace

money_conventions read_money_conventions(const field_reader &loc) {
  money_conventions c;
  std::string_view point = field_or_empty(loc, lf::money_decimal_point);
  if (!point.empty()) c.point = point;
  c.separator = field_or_empty(loc, lf::money_thousands_separator);
  std::string_view grouping = field_or_empty(loc, lf::money_grouping);
  c.group = grouping.empty() ? 0 : grouping[0] - '0';
  if (c.group < 0 || c.group > 9) c.group = 0;
  c.positive = field_or_empty(loc, lf::money_positive_sign);
  c.negative = field_or_empty(loc, lf::money_negative_sign);
  // precedes 0/1; space 0/1 (the C library's 2, a space beside the sign,
  // counts as a space); sign position 0-4.
  static constexpr int highest[6] = {1, 1, 1, 1, 4, 4};
  for (int i = 0; i < 6; ++i) c.flags[i] = clamp(flag(loc, lf::money_symbol_precedes_positive + i), highest[i]);
  return c;
}

const money_conventions &locale_money_conventions(int id) {
  // Read once for all locales: the database is constant, and the parsing of
  // eleven fields would otherwise be a fifth of a money value's time.
  static const auto table = [] {
    std::array<money_conventions, locale_count + 1> t{};
    for (int i = 0; i <= locale_count; ++i)
      t[static_cast<size_t>(i)] = read_money_conventions(locale_reader(i));
    return t;
  }();
  return table[static_cast<size_t>(id >= 1 && id <= locale_count ? id : 0)];
}

int money_pattern_index(const money_conventions &c, bool negative) {
  const int *f = c.flags;
  return negative ? (f[2] + 2 * f[3]) * 5 + f[5] : (f[0] + 2 * f[1]) * 5 + f[4];
}

int money_candidate(const money_conventions &c, std::string_view digits, bool negative,
                    bool grouped, std::string_view symbol, char *out, size_t room) {
  core::bounded_text o(out, room);
  for (const char *p = CurrencyFormatPatterns[money_pattern_index(c, negative)]; *p; ++p) {
    switch (*p) {
      case '$':
        o.put(symbol);
        break;
      case '(':
      case ')':
        if (negative) o.put_char(*p);
        break;
      case '-':
        o.put(negative ? c.negative : c.positive);
        break;
      case 'V':
        put_digits(o, c, digits, grouped);
        break;
      default:
        o.put_char(*p);
        break;
    }
  }
  if (o.overflowed()) return -1;
  size_t begin = 0, end = o.length();
  while (begin < end && out[begin] == ' ') ++begin;
  while (end > begin && out[end - 1] == ' ') --end;
  std::memmove(out, out + begin, end - begin);
  size_t n = end - begin;
  // Parenthesised negatives: a positive amount keeps one blank on the right
  // so that the digits of both line up.
  if (!negative && c.flags[5] == 0) {
    if (n + 1 > room) return -1;
    out[n++] = ' ';
  }
  return static_cast<int>(n);
}

xf_status money_format(xf_frame *f, const money_conventions &c, const xf_monetary &entry,
                       bool international) {
  return money_field(f, c, entry.currency_symbol, entry.int_curr_symbol, international,
                     currency_limits);
}

xf_status money_field(xf_frame *f, const money_conventions &c, std::string_view local_symbol,
                      std::string_view code, bool international, const money_limits &limits) {
  const int32_t w = f->width;
  const int32_t d = f->decimals;
  if (f->option_word & XF_OPT_VALIDATE) {
    if (w < limits.min_width) return XF_NL_WIDTH_LOW;
    if (w > limits.max_width) return XF_NL_WIDTH_HIGH;
    if (d < 0) return XF_NL_DECIMALS_LOW;
    if (d > limits.max_decimals) return XF_NL_DECIMALS_HIGH;
  }
  f->output_encoding = XF_ENC_SINGLE_BYTE;
  double v = frame_value(f);
  if (is_missing(v)) return write_missing(f, w, 0);
  if (w <= 0) return fail_stars(f, w, XF_E_OVERFLOW);
  const bool utf16 = f->requested_output_encoding == XF_ENC_UTF16LE;
  const uint32_t unit = utf16 ? 2 : 1;
  if (static_cast<uint64_t>(w) * unit > f->output_capacity) return fail_stars(f, w, XF_E_CAPACITY);
  // A NaN that is not a missing value, or an infinity, has no amount to show:
  // the star field of every numeric format.
  if (!std::isfinite(v)) return fail_stars(f, w, XF_E_OVERFLOW);
  const int dd = d < 0 ? 0 : (d > 28 ? 28 : d);
  const bool negative = v < 0;

  std::string_view symbol = international ? code : local_symbol;
  if (!international && !representable(utf16, symbol)) symbol = code;

  char fixed[digits_room];
  const std::string_view plain(fixed, fixed_digits(v, dd, fixed));
  char expo[digits_room];
  std::string_view exponent;  // made when the fixed forms have failed

  char cand[candidate_room];
  char enc[candidate_room * 4];
  uint32_t enc_len = 0;
  // a-c use the fixed digits; d-e the exponent form once c did not fit.
  struct attempt {
    bool exp, grouped, with_symbol;
  };
  static constexpr attempt attempts[] = {{false, true, true},
                                         {false, false, true},
                                         {false, false, false},
                                         {true, false, true},
                                         {true, false, false}};
  for (const attempt &a : attempts) {
    if (a.exp && exponent.empty()) exponent = std::string_view(expo, exponent_digits(v, dd, expo));
    std::string_view digits = a.exp ? exponent : plain;
    if (a.exp && digits.size() > static_cast<size_t>(w)) return fail_stars(f, w, XF_E_OVERFLOW);
    int n = money_candidate(c, digits, negative, a.grouped, a.with_symbol ? symbol : "", cand,
                            sizeof cand);
    if (n < 0) return fail_stars(f, w, XF_E_OVERFLOW);
    int r = encode_text(utf16, cand, static_cast<size_t>(n), w, enc, f->output_capacity, &enc_len);
    if (r <= 0) {
      place_encoded_right(f, enc, enc_len, w, utf16);
      return XF_OK;
    }
    if (r >= encode_no_room) return fail_stars(f, w, XF_E_OVERFLOW);
  }
  // f: the signed number alone, right-aligned.
  char padded[digits_room + 40];
  size_t n = padded_digits(v, w, dd, padded);
  int r = encode_text(utf16, padded, n, w, enc, 2 * static_cast<uint32_t>(w), &enc_len);
  if (r > 0) return fail_stars(f, w, XF_E_OVERFLOW);
  place_encoded_right(f, enc, enc_len, w, utf16);
  return XF_OK;
}

}  // namespace xfmt::nls
