#include "userfmt/tables.hpp"

#include <cmath>

#include "core/missing.hpp"
#include "support/frame.hpp"

namespace xfmt::test {

std::u16string u16(const std::string &ascii) { return std::u16string(ascii.begin(), ascii.end()); }

std::vector<uint8_t> key(double v) {
  std::vector<uint8_t> k(8);
  xf_numeric_key(v, k.data());
  return k;
}

double missing_letter(char c) { return xfmt::missing_value(c == '_' ? 0 : c == '.' ? 1 : 2 + (c - 'A')); }

memory_format::memory_format(int16_t kind, const std::string &name) : headers_(2) {
  std::memset(headers_.data(), 0, 2 * sizeof(xf_user_format));
  std::memcpy(headers_[0].marker, "00000000", 8);
  std::memset(headers_[1].marker, ' ', 8);
  std::memset(headers_[1].name, ' ', 32);
  std::memcpy(headers_[1].name, name.data(), name.size());
  headers_[1].kind = kind;
  headers_[1].linear_search = 1;
  headers_[1].min_width = 1;
  headers_[1].max_width = 40;
  headers_[1].default_width = 8;
}

void *memory_format::raw(std::size_t size) {
  std::size_t words = (size + 7) / 8 + 1;
  blocks_.emplace_back(new uint64_t[words]());
  return blocks_.back().get();
}

const void *memory_format::text_label(const std::string &ascii) {
  auto *l = static_cast<xf_label_text *>(raw(4 + 2 * ascii.size()));
  l->label_kind = XF_LABEL_TEXT;
  l->length = static_cast<int16_t>(ascii.size());
  std::u16string u = u16(ascii);
  std::memcpy(reinterpret_cast<char *>(l) + 4, u.data(), 2 * u.size());
  return l;
}

const void *memory_format::picture(const std::string &tpl, char fill, const std::string &prefix,
                                   double mult, bool noedit, uint8_t datatype) {
  auto *p = static_cast<xf_picture_label *>(raw(32 + tpl.size() + prefix.size()));
  p->label_kind = XF_LABEL_PICTURE;
  p->datatype = datatype;
  p->fill = fill;
  p->decsep = '.';
  p->dig3sep = ',';
  p->noedit = noedit ? 1 : 0;
  p->picture_length = static_cast<int16_t>(tpl.size());
  int16_t digits = 0;
  for (char c : tpl) digits = static_cast<int16_t>(digits + (c >= '0' && c <= '9'));
  p->digit_count = digits;
  p->prefix_offset = static_cast<int16_t>(tpl.size());
  p->prefix_length = static_cast<int16_t>(prefix.size());
  unsigned char b[8];
  std::memcpy(b, &mult, 8);
  for (int i = 0; i < 8; ++i) p->mult[i] = b[7 - i];
  std::memcpy(reinterpret_cast<char *>(p) + 32, tpl.data(), tpl.size());
  std::memcpy(reinterpret_cast<char *>(p) + 32 + tpl.size(), prefix.data(), prefix.size());
  return p;
}

const void *memory_format::format_label(const std::string &name, int16_t width, uint8_t decimals) {
  auto *l = static_cast<xf_label_format *>(raw(sizeof(xf_label_format)));
  l->label_kind = 1;
  l->decimals = decimals;
  l->width = width;
  std::memset(l->name, ' ', 32);
  std::memcpy(l->name, name.data(), name.size());
  return l;
}

const void *memory_format::label_list(const std::vector<const void *> &labels) {
  auto *l = static_cast<xf_label_list *>(raw(8 + 8 * labels.size()));
  l->count = static_cast<uint32_t>(labels.size());
  std::memcpy(reinterpret_cast<char *>(l) + 8, labels.data(), 8 * labels.size());
  return l;
}

void memory_format::range_label(double start, double end, const void *label, uint8_t flags, double fuzz) {
  auto *e = static_cast<xf_range_numeric *>(raw(sizeof(xf_range_numeric)));
  e->entry_kind = XF_RANGE_NUMERIC;
  e->flags = flags;
  e->label = label;
  static const uint8_t low[8] = {0, 1, 0, 0, 0, 0, 0, 0};
  static const uint8_t high[8] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
  auto put = [](uint8_t *k, double v) { xf_numeric_key(v, k); };
  bool start_missing = std::isnan(start), end_missing = std::isnan(end);
  if (flags & XF_RANGE_LOW) std::memcpy(e->start_key, low, 8), std::memcpy(e->low_key, low, 8);
  else put(e->start_key, start), put(e->low_key, start_missing ? start : start - fuzz);
  if (flags & XF_RANGE_HIGH) std::memcpy(e->end_key, high, 8), std::memcpy(e->high_key, high, 8);
  else put(e->end_key, end), put(e->high_key, end_missing ? end : end + fuzz);
  ranges_.push_back(e);
}

void memory_format::range(double start, double end, const std::string &label, uint8_t flags, double fuzz) {
  range_label(start, end, text_label(label), flags, fuzz);
}

void memory_format::value(double v, const std::string &label) {
  auto *e = static_cast<xf_range_numeric *>(raw(sizeof(xf_range_numeric)));
  e->entry_kind = XF_RANGE_NUMERIC_VALUE;
  e->label = text_label(label);
  xf_numeric_key(v, e->start_key);
  ranges_.push_back(e);
}

void memory_format::char_range(const std::string &start, const std::string &end, const std::string &label,
                               uint8_t flags) {
  auto *e = static_cast<xf_range_char *>(raw(16 + 2 * (start.size() + end.size())));
  e->entry_kind = XF_RANGE_CHAR;
  e->flags = flags;
  e->start_length = static_cast<uint16_t>(start.size());
  e->end_length = static_cast<uint16_t>(end.size());
  e->label = text_label(label);
  std::u16string s = u16(start) + u16(end);
  std::memcpy(reinterpret_cast<char *>(e) + 16, s.data(), 2 * s.size());
  ranges_.push_back(e);
}

void memory_format::char_value(const std::string &v, const std::string &label) {
  auto *e = static_cast<xf_range_char_value *>(raw(18 + 2 * v.size()));
  e->entry_kind = XF_RANGE_CHAR_VALUE;
  e->length = static_cast<uint16_t>(v.size());
  e->label = text_label(label);
  std::u16string s = u16(v);
  std::memcpy(reinterpret_cast<char *>(e) + 18, s.data(), 2 * s.size());
  ranges_.push_back(e);
}

void memory_format::fixed(uint8_t kind, const std::string &start, const std::string &end,
                          const std::string &label, uint8_t flags) {
  auto *e = static_cast<xf_range_fixed *>(raw(sizeof(xf_range_fixed)));
  e->entry_kind = kind;
  e->flags = flags;
  e->label = text_label(label);
  for (int i = 0; i < 16; ++i) {
    e->start[i] = static_cast<uint16_t>(i < static_cast<int>(start.size()) ? start[static_cast<size_t>(i)] : ' ');
    e->end[i] = static_cast<uint16_t>(i < static_cast<int>(end.size()) ? end[static_cast<size_t>(i)] : ' ');
  }
  ranges_.push_back(e);
}

void memory_format::other(const std::string &label) {
  headers_[1].has_other = 1;
  headers_[1].other_label = text_label(label);
}

void memory_format::done() { headers_[1].range_count = static_cast<int64_t>(ranges_.size()); }

namespace {
result finish(frame_box &b, xf_status st) {
  result r;
  r.status = st;
  r.flags = b.f.option_flags;
  r.encoding = b.f.output_encoding;
  r.text = b.str();
  return r;
}
}  // namespace

result run_number(xf_label_routine routine, memory_format &f, double v, int32_t w, int64_t cap,
                  uint32_t option_flags, int32_t d) {
  f.done();
  frame_box b = frame_box::number(v, w, d, cap);
  b.f.option_flags = option_flags;
  xf_status st = routine(&b.f, f.header(), f.ranges());
  return finish(b, st);
}

result run_text(xf_label_routine routine, memory_format &f, const std::u16string &v, int32_t w,
                int64_t cap, uint32_t option_flags) {
  f.done();
  frame_box b = frame_box::chars(std::string(reinterpret_cast<const char *>(v.data()), 2 * v.size()), w, 0, cap);
  b.f.input_encoding = XF_ENC_UTF16LE;
  b.f.option_flags = option_flags;
  xf_status st = routine(&b.f, f.header(), f.ranges());
  return finish(b, st);
}

}  // namespace xfmt::test
