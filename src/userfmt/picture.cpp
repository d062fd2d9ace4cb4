// Picture labels: a numeric template into which the value's digits are laid
// (digit selection, significance, fill, prefix, mult, round, noedit), or a
// date template: its compiled plans run, or datefmt when it has none.
#include "xfmt/xfmt.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "core/field.hpp"
#include "core/missing.hpp"
#include "userfmt/datefmt.hpp"
#include "userfmt/records.hpp"

namespace xfmt::userfmt {
namespace {

// The standard number routine in w positions with 0 decimals: missing values
// and magnitudes beyond 16 digits.
void plain_number(int32_t w, char *out, double x) {
  xf_frame f{};
  f.width = w;
  f.decimals = 0;
  f.input = &x;
  f.input_length = 8;
  f.output = out;
  f.output_capacity = static_cast<uint32_t>(w);
  std::memset(out, ' ', static_cast<size_t>(w));
  zfmt(&f);
}

void date_picture(int32_t w, char *out, const xf_picture_label *p, double value) {
  // Rendering straight into the field keeps its first w characters; a
  // shorter text is then moved to the right end. A label the reader built
  // only runs the plans it compiled; any other compiles its template here.
  int32_t n;
  if (const uint8_t count = picture_plan_count(p); count > 0) {
    const auto *plans = reinterpret_cast<const nls::pattern_plan *>(
        reinterpret_cast<const char *>(p) + picture_steps_offset(p));
    n = run_date_template(plans, count, p->datatype, value, out, w);
  } else {
    const char *text = picture_text(p);
    const bool has_language = p->language_length > 0;
    n = datefmt(text, std::max<int16_t>(p->picture_length, 0), p->datatype,
                has_language ? text + p->language_offset : " ",
                has_language ? p->language_length : 1, value, out, w);
  }
  n = std::clamp(n, 0, w);
  if (n < w) {
    std::memmove(out + (w - n), out, static_cast<size_t>(n));
    std::memset(out, ' ', static_cast<size_t>(w - n));
  }
}

inline bool is_digit(char c) { return c >= '0' && c <= '9'; }

// The work area: the template's positions and the w-wide field share its
// right end. Small pictures stay on the stack.
class work_area {
 public:
  explicit work_area(size_t n) : size_(n) {
    data_ = n <= sizeof local_ ? local_ : static_cast<char *>(std::malloc(n));
  }
  ~work_area() {
    if (data_ != local_) std::free(data_);
  }
  work_area(const work_area &) = delete;
  work_area &operator=(const work_area &) = delete;
  char *data() { return data_; }
  bool ok() const { return data_ != nullptr; }
  size_t size() const { return size_; }

 private:
  char local_[256];
  char *data_;
  size_t size_;
};

struct layout {
  char *field;       // the w positions handed back
  char *tpl;         // first template position (may lie left of the field)
  int32_t w;
  int32_t plen;
  bool significant = false;
  int32_t first_significant = -1;  // template position, from 0
};

// Steps 3 to 7: scale, round, take the last digit_count digits of 16 and
// lay them into the template. Returns false when the number goes to the
// standard routine instead.
bool lay_digits(layout &l, const xf_picture_label *p, const char *t, int32_t round, double value) {
  double mult = picture_mult(p);
  double x = std::fabs(mult != 0 ? value * mult : value) + 1e-7;
  double n = std::floor(x);
  if (round && x - n >= 0.5) n += 1;
  if (!(n <= 1e16)) return false;
  char sixteen[16];
  write_int_zero(sixteen, 16, static_cast<int64_t>(n));
  int32_t digits = p->digit_count;
  int32_t next = 16 - digits;  // may be negative: leading zeros beyond 16 digits
  char fill = p->fill;
  for (int32_t i = 0; i < l.plen; ++i) {
    char c = t[i];
    if (!is_digit(c)) {
      l.tpl[i] = l.significant ? c : fill;
      continue;
    }
    char d = next < 0 ? '0' : sixteen[next];
    ++next;
    if (!l.significant && (d != '0' || c != '0')) {
      l.significant = true;
      if (l.first_significant < 0) l.first_significant = i;
    }
    l.tpl[i] = l.significant ? d : fill;
  }
  return true;
}

// Step 9: the prefix right to left just before the first significant digit.
int32_t place_prefix(layout &l, const xf_picture_label *p, char *area_begin) {
  int32_t added = 0;
  const char *prefix = picture_text(p) + p->prefix_offset;
  int32_t at = (l.first_significant >= 0 ? l.first_significant : l.plen) - 1;
  for (int32_t i = p->prefix_length - 1; i >= 0; --i, --at) {
    char *pos = l.tpl + at;
    if (at < 0) ++added;
    if (pos < area_begin) continue;
    if (at >= 0 && *pos == ' ') ++added;
    *pos = prefix[i];
  }
  return added;
}

}  // namespace
}  // namespace xfmt::userfmt

using namespace xfmt::userfmt;

extern "C" void yfpict(int32_t w, char *output, const void *label, int32_t round, double value) {
  if (w <= 0 || output == nullptr || label == nullptr) return;
  auto p = static_cast<const xf_picture_label *>(label);
  if (p->datatype >= 1 && p->datatype <= 3) return date_picture(w, output, p, value);

  int32_t plen = std::max<int32_t>(p->picture_length, 0);
  const char *t = picture_text(p);
  bool literal = p->noedit || p->digit_count <= 0;
  if (!literal && xfmt::is_missing(value)) return plain_number(w, output, value);

  // A literal template keeps its first characters, an edited one its last.
  int32_t tlen = literal ? std::min(plen, w) : plen;
  size_t size = static_cast<size_t>(std::max(w, tlen));
  work_area area(size);
  if (!area.ok()) {
    std::memset(output, '*', static_cast<size_t>(w));
    return;
  }
  char *end = area.data() + size;
  layout l{end - w, end - tlen, w, tlen};
  std::memset(area.data(), ' ', size);

  if (literal) {
    std::memcpy(l.tpl, t, static_cast<size_t>(tlen));
  } else if (!lay_digits(l, p, t, round, value)) {
    double mult = picture_mult(p);
    return plain_number(w, output, std::fabs(mult != 0 ? value * mult : value) + 1e-7);
  }
  // Step 8: blanks left of the template; used counts the template from its
  // first non-blank position.
  int32_t lead = 0;
  while (lead < tlen && l.tpl[lead] == ' ') ++lead;
  int32_t used = tlen - lead;

  bool skip_prefix = p->prefix_length <= 0 || p->digit_count <= 0 ||
                     (!l.significant && p->fill == ' ') ||
                     (l.first_significant >= 0 && l.first_significant >= tlen);
  if (!skip_prefix) used += place_prefix(l, p, area.data());

  // Step 10: one fill character just left of what is used; example: fill
  // '*', template 009, w 6, value 5 gives "  ***5" (k = 2).
  int32_t k = w - std::max(tlen, used) - 1;
  if (k >= 0) {
    std::memset(l.field, ' ', static_cast<size_t>(k));
    l.field[k] = p->fill;
  }
  std::memcpy(output, l.field, static_cast<size_t>(w));
}
