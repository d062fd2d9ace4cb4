// Rows of the control file to records: one header per requested format,
// a range entry per row (an OTHER row gives only a label), text labels in
// UTF-16 units and picture labels with their text area (and a date
// template's compiled plans).
#include "userfmt/format_builder.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "core/missing.hpp"
#include "userfmt/datefmt.hpp"
#include "userfmt/keys.hpp"
#include "userfmt/records.hpp"

namespace xfmt::userfmt {
namespace {

constexpr const char *column_names[column_count] = {
    "FMTNAME", "TYPE", "MIN", "MAX", "DEFAULT", "FUZZ", "HLO", "START", "END", "SEXCL",
    "EEXCL", "LABEL", "PREFIX", "LANGUAGE", "DATATYPE", "FILL", "DECSEP", "DIG3SEP", "MULT", "NOEDIT"};

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t' || s.front() == '\n')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\n')) s.remove_suffix(1);
  return s;
}

char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c; }

bool equals_upper(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (upper(a[i]) != upper(b[i])) return false;
  return true;
}

bool has_letter(std::string_view s, char letter) {
  for (char c : s)
    if (upper(c) == letter) return true;
  return false;
}

bool flag_yes(const std::string &s) { return !s.empty() && upper(s[0]) == 'Y'; }

int16_t clamp16(std::size_t n) { return static_cast<int16_t>(std::min<std::size_t>(n, 32767)); }

uint16_t width_of(const std::string &text, uint16_t fallback) {
  double v;
  if (!read_number(text, v) || is_missing(v) || !(v >= 0)) return fallback;
  return static_cast<uint16_t>(std::min(v, 65535.0));
}

int compare_numeric_starts(const void *a, const void *b) {
  uint64_t x = load_key(static_cast<const xf_range_numeric *>(a)->low_key);
  uint64_t y = load_key(static_cast<const xf_range_numeric *>(b)->low_key);
  return x < y ? -1 : x > y ? 1 : 0;
}

int compare_char_starts(const void *a, const void *b) {
  auto x = static_cast<const xf_range_char *>(a), y = static_cast<const xf_range_char *>(b);
  bool xl = x->flags & XF_RANGE_LOW, yl = y->flags & XF_RANGE_LOW;
  if (xl || yl) return xl == yl ? 0 : xl ? -1 : 1;
  return zstrcomu(char_range_start(x), x->start_length, char_range_start(y), y->start_length);
}

// Compares the end of a (the furthest end seen so far) with the start of b
// in the order of the search: LOW starts below everything, HIGH ends above.
int compare_end_start(const void *a, const void *b, bool character) {
  if (character) {
    auto x = static_cast<const xf_range_char *>(a), y = static_cast<const xf_range_char *>(b);
    if (x->flags & XF_RANGE_HIGH) return 1;
    if (y->flags & XF_RANGE_LOW) return 1;
    return zstrcomu(char_range_end(x), x->end_length, char_range_start(y), y->start_length);
  }
  auto x = static_cast<const xf_range_numeric *>(a), y = static_cast<const xf_range_numeric *>(b);
  uint64_t end = load_key(x->end_key), start = load_key(y->start_key);
  return end < start ? -1 : end > start ? 1 : 0;
}

// True when some value falls in two ranges of the sorted entries: a start
// below the furthest end before it, or equal to it with both ends included.
template <class Ranked>
bool ranges_overlap(const Ranked *order, std::size_t n, bool character) {
  if (n < 2) return false;
  const void *furthest = order[0].first;
  for (std::size_t i = 1; i < n; ++i) {
    const void *e = order[i].first;
    const auto *fe = static_cast<const xf_range_numeric *>(furthest);
    const uint8_t ef = character ? static_cast<const xf_range_char *>(e)->flags
                                 : static_cast<const xf_range_numeric *>(e)->flags;
    const uint8_t ff = character ? static_cast<const xf_range_char *>(furthest)->flags : fe->flags;
    const int c = compare_end_start(furthest, e, character);
    if (c > 0 || (c == 0 && !(ff & XF_RANGE_END_EXCL) && !(ef & XF_RANGE_START_EXCL))) return true;
    // e ends further when its end lies above the furthest end so far.
    const bool further =
        character ? ((ef & XF_RANGE_HIGH) ||
                     (!(ff & XF_RANGE_HIGH) &&
                      zstrcomu(char_range_end(static_cast<const xf_range_char *>(e)),
                               static_cast<const xf_range_char *>(e)->end_length,
                               char_range_end(static_cast<const xf_range_char *>(furthest)),
                               static_cast<const xf_range_char *>(furthest)->end_length) > 0))
                  : load_key(static_cast<const xf_range_numeric *>(e)->end_key) > load_key(fe->end_key);
    if (further) furthest = e;
  }
  return false;
}

}  // namespace

int column_of(std::string_view name) {
  for (int i = 0; i < column_count; ++i)
    if (name == column_names[i]) return i;
  return -1;
}

bool needed_column(int c) { return c <= col_label; }
bool picture_column(int c) { return c > col_label; }

bool read_number(std::string_view text, double &value) {
  text = trimmed(text);
  if (text.empty()) return false;
  if (text[0] == '.' && text.size() <= 2) {
    if (text.size() == 1) {
      value = missing_ordinary();
      return true;
    }
    char c = upper(text[1]);
    if (c == '_') value = missing_value(0);
    else if (c >= 'A' && c <= 'Z') value = missing_value(2 + (c - 'A'));
    else if (c < '0' || c > '9') return false;
    if (c == '_' || (c >= 'A' && c <= 'Z')) return true;
  }
  if (text[0] == '+') text.remove_prefix(1);
  auto r = std::from_chars(text.data(), text.data() + text.size(), value);
  return r.ec == std::errc() && r.ptr == text.data() + text.size() && !std::isnan(value);
}

format_builder::format_builder(int32_t request_kind, const char *name, void **chain)
    : request_kind_(request_kind), chain_(chain) {
  std::memcpy(name_, name, sizeof name_);
  name_length_ = sizeof name_;
  while (name_length_ > 0 && name_[name_length_ - 1] == ' ') --name_length_;
}

// A character format may be written with its "$" in the file as well.
bool format_builder::wanted(const row_cells &row) const {
  std::string_view n = trimmed(row.text[col_fmtname]);
  if (!n.empty() && n[0] == '$') n.remove_prefix(1);
  return equals_upper(n, {name_, name_length_});
}

void *format_builder::alloc(uint64_t size) { return xfmalloc(chain_, size); }

// The anchor and the header stand together, as in a catalog of one format:
// nested labels find the anchor by walking back from the header.
int format_builder::start_header(char type) {
  auto *pair = static_cast<xf_user_format *>(alloc(2 * sizeof(xf_user_format)));
  if (!pair) return read_no_memory;
  std::memcpy(pair[0].marker, "00000000", 8);
  std::memset(pair[0].name, ' ', sizeof pair[0].name);
  header_ = &pair[1];
  std::memset(header_->marker, ' ', sizeof header_->marker);
  std::memset(header_->name, ' ', sizeof header_->name);
  std::memcpy(header_->name, name_, name_length_);
  header_->kind = type == 'C' ? kind_character : type == 'P' ? kind_picture : kind_numeric;
  header_->internal[0] = 3;
  header_->internal[1] = 1;
  header_->linear_search = 1;
  return read_found;
}

bool format_builder::to_units(const std::string &utf8) {
  units_.resize(utf8.size() + 1);
  uint32_t chars = 0, bytes = 0;
  uint32_t rc = UTF8ToUNICODE(reinterpret_cast<const uint8_t *>(utf8.data()),
                              static_cast<uint32_t>(utf8.size()), units_.data(),
                              static_cast<uint32_t>(units_.size() * 2), &chars, &bytes);
  units_.resize(chars);
  return rc == 0;
}

const void *format_builder::text_label(const std::string &utf8) {
  if (!to_units(utf8) || units_.size() > 32767) return nullptr;
  auto *l = static_cast<xf_label_text *>(alloc(label_text_offset + units_.size() * 2));
  if (!l) return nullptr;
  l->label_kind = XF_LABEL_TEXT;
  l->length = static_cast<int16_t>(units_.size());
  if (!units_.empty())
    std::memcpy(reinterpret_cast<unsigned char *>(l) + label_text_offset, units_.data(), units_.size() * 2);
  return l;
}

const void *format_builder::picture_label(const row_cells &row, int &rc) {
  std::string_view type = trimmed(row.text[col_datatype]);
  uint8_t datatype = 0;
  if (type == "DATE") datatype = 1;
  else if (type == "TIME") datatype = 2;
  else if (type == "DATETIME") datatype = 3;
  else if (type.size() == 4 || type.size() == 8) return rc = read_bad_datatype, nullptr;
  double mult = 0, noedit = 0;
  if (!trimmed(row.text[col_mult]).empty() && !read_number(row.text[col_mult], mult))
    return rc = read_bad_row, nullptr;
  if (!trimmed(row.text[col_noedit]).empty() && !read_number(row.text[col_noedit], noedit))
    return rc = read_bad_row, nullptr;
  const std::string &tpl = row.text[col_label];
  const std::string &prefix = row.text[col_prefix];
  std::string_view lang = trimmed(row.text[col_language]);
  std::size_t total = tpl.size() + prefix.size() + lang.size();
  if (total > 32767) return rc = read_bad_row, nullptr;
  // A date template is compiled here, once, and its plans kept after the
  // text; one too long to keep compiles on each call instead.
  nls::pattern_plan plans[date_plans_max];
  std::size_t plan_count = 0;
  if (datatype != 0)
    plan_count = compile_date_template(tpl.data(), static_cast<int32_t>(tpl.size()), datatype, plans);
  const std::size_t steps_at = steps_offset_after(total);
  const std::size_t size =
      plan_count > 0 ? steps_at + plan_count * sizeof plans[0] : picture_text_offset + total;
  auto *p = static_cast<xf_picture_label *>(alloc(size));
  if (!p) return rc = read_no_memory, nullptr;
  p->label_kind = XF_LABEL_PICTURE;
  p->datatype = datatype;
  auto first = [](const std::string &s) { return s.empty() ? ' ' : s[0]; };
  p->fill = first(row.text[col_fill]);
  p->decsep = first(row.text[col_decsep]);
  p->dig3sep = first(row.text[col_dig3sep]);
  p->noedit = (noedit != 0 && !is_missing(noedit)) ? 1 : 0;
  p->picture_length = clamp16(tpl.size());
  p->digit_count = clamp16(static_cast<std::size_t>(
      std::count_if(tpl.begin(), tpl.end(), [](char c) { return c >= '0' && c <= '9'; })));
  p->prefix_offset = clamp16(tpl.size());
  p->prefix_length = clamp16(prefix.size());
  p->language_offset = clamp16(tpl.size() + prefix.size());
  p->language_length = clamp16(lang.size());
  set_picture_mult(p, is_missing(mult) ? 0.0 : mult);
  char *area = reinterpret_cast<char *>(p) + picture_text_offset;
  std::memcpy(area, tpl.data(), tpl.size());
  std::memcpy(area + tpl.size(), prefix.data(), prefix.size());
  std::memcpy(area + tpl.size() + prefix.size(), lang.data(), lang.size());
  if (plan_count > 0) {
    std::memcpy(reinterpret_cast<char *>(p) + steps_at, plans, plan_count * sizeof plans[0]);
    mark_picture_compiled(p, plan_count);
  }
  return p;
}

constexpr const char *start_above_end = "a range whose START lies above its END";

int format_builder::numeric_entry(const row_cells &row, uint8_t flags, const void *label, bool low,
                                  bool high) {
  double start = 0, end = 0;
  std::string_view end_text = trimmed(row.text[col_end]);
  if (!low && !read_number(row.text[col_start], start)) return read_bad_row;
  if (!high) {
    if (end_text.empty()) {
      if (low) return read_bad_row;  // LOW to an empty end: nothing to stop at
      end = start;
    } else if (!read_number(end_text, end)) {
      return read_bad_row;
    }
  }
  // A range whose start lies above its end can match nothing under the
  // linear search yet would mislead the bisection: the row is refused.
  if (!low && !high && key_of(start) > key_of(end)) {
    refusal_ = start_above_end;
    return read_bad_row;
  }
  double fuzz = header_->fuzz;
  auto *e = static_cast<xf_range_numeric *>(alloc(sizeof(xf_range_numeric)));
  if (!e) return read_no_memory;
  e->entry_kind = XF_RANGE_NUMERIC;
  e->flags = flags;
  e->label = label;
  store_key(e->start_key, low ? key_low : key_of(start));
  store_key(e->low_key, low ? key_low : key_of(is_missing(start) ? start : start - fuzz));
  store_key(e->end_key, high ? key_high : key_of(end));
  store_key(e->high_key, high ? key_high : key_of(is_missing(end) ? end : end + fuzz));
  entries_.push_back(e);
  return read_found;
}

int format_builder::character_entry(const row_cells &row, uint8_t flags, const void *label, bool low,
                                    bool high) {
  std::vector<uint16_t> start;
  if (!low) {
    if (!to_units(row.text[col_start])) return read_bad_row;
    start = units_;
  }
  const std::string &end_text = row.text[col_end];
  if (!high) {
    if (end_text.empty()) units_ = start;
    else if (!to_units(end_text)) return read_bad_row;
  } else {
    units_.clear();
  }
  if (start.size() > 65535 || units_.size() > 65535) return read_bad_row;
  if (!low && !high &&
      zstrcomu(start.data(), static_cast<int32_t>(start.size()), units_.data(),
               static_cast<int32_t>(units_.size())) > 0) {
    refusal_ = start_above_end;  // as for numbers
    return read_bad_row;
  }
  std::size_t size = char_range_text_offset + 2 * (start.size() + units_.size());
  auto *e = static_cast<xf_range_char *>(alloc((size + 7) & ~std::size_t{7}));
  if (!e) return read_no_memory;
  e->entry_kind = XF_RANGE_CHAR;
  e->flags = flags;
  e->start_length = static_cast<uint16_t>(start.size());
  e->end_length = static_cast<uint16_t>(units_.size());
  e->label = label;
  auto *text = reinterpret_cast<unsigned char *>(e) + char_range_text_offset;
  if (!start.empty()) std::memcpy(text, start.data(), start.size() * 2);
  if (!units_.empty()) std::memcpy(text + start.size() * 2, units_.data(), units_.size() * 2);
  entries_.push_back(e);
  return read_found;
}

int format_builder::add(const row_cells &row, const std::array<bool, column_count> &declared) {
  std::string_view type_text = trimmed(row.text[col_type]);
  char type = type_text.empty() ? ' ' : upper(type_text[0]);
  if (type != 'N' && type != 'P' && type != 'C') return read_bad_type;
  int32_t kind = type == 'C' ? kind_character : kind_numeric;
  if (kind != request_kind_) return read_found;  // a format of the other class, or an informat request
  if (type == 'P')
    for (int c = 0; c < column_count; ++c)
      if (picture_column(c) && !declared[static_cast<std::size_t>(c)]) return read_missing_column;
  std::string_view hlo = row.text[col_hlo];
  if (has_letter(hlo, 'F')) return read_nested_format;
  if (!header_) {
    if (int rc = start_header(type)) return rc;
  }
  if (type == 'P') header_->kind = kind_picture;
  header_->linear_search = has_letter(hlo, 'S') ? 0 : 1;
  header_->round = has_letter(hlo, 'R') ? 1 : 0;
  header_->multilabel = has_letter(hlo, 'M') ? 1 : 0;
  header_->min_width = width_of(row.text[col_min], header_->min_width);
  header_->max_width = width_of(row.text[col_max], header_->max_width);
  header_->default_width = width_of(row.text[col_default], header_->default_width);
  double fuzz = 0;
  if (!trimmed(row.text[col_fuzz]).empty() && !read_number(row.text[col_fuzz], fuzz)) return read_bad_row;
  header_->fuzz = is_missing(fuzz) ? 0.0 : fuzz;

  int rc = read_found;
  const void *label = type == 'P' ? picture_label(row, rc) : text_label(row.text[col_label]);
  if (!label) return rc != read_found ? rc : read_bad_row;
  ++header_->label_count;
  header_->max_label_length =
      std::max(header_->max_label_length, clamp16(row.text[col_label].size()));

  if (has_letter(hlo, 'O')) {
    header_->has_other = 1;
    header_->other_label = label;
    return read_found;
  }
  bool low = has_letter(hlo, 'L') || equals_upper(trimmed(row.text[col_start]), "LOW");
  bool high = has_letter(hlo, 'H') || equals_upper(trimmed(row.text[col_end]), "HIGH");
  uint8_t flags = static_cast<uint8_t>((low ? XF_RANGE_LOW : 0) | (high ? XF_RANGE_HIGH : 0) |
                                       (flag_yes(row.text[col_sexcl]) ? XF_RANGE_START_EXCL : 0) |
                                       (flag_yes(row.text[col_eexcl]) ? XF_RANGE_END_EXCL : 0));
  if (kind == kind_character) return character_entry(row, flags, label, low, high);
  return numeric_entry(row, flags, label, low, high);
}

int format_builder::finish(xf_ufmt_context *context) {
  if (!header_) return read_not_found;
  // Bisection needs the entries in order of their starts (LOW first); ties
  // keep the file's order.
  if (header_->linear_search == 0) {
    struct ranked {
      const void *first;
      std::size_t second;
    };
    std::vector<ranked> order(entries_.size());
    for (std::size_t i = 0; i < entries_.size(); ++i) order[i] = {entries_[i], i};
    bool character = header_->kind == kind_character;
    // Raw pointers: vector iterators would export a comparison helper of the
    // standard library from the shared object.
    std::sort(order.data(), order.data() + order.size(), [character](const auto &a, const auto &b) {
      int c = character ? compare_char_starts(a.first, b.first) : compare_numeric_starts(a.first, b.first);
      return c != 0 ? c < 0 : a.second < b.second;
    });
    // One rule for overlapping ranges, whatever the search: the first range
    // in the file's order wins. A bisection could land on any of them, so a
    // format whose ranges overlap is searched linearly in the file's order.
    if (ranges_overlap(order.data(), order.size(), character)) header_->linear_search = 1;
    else
      for (std::size_t i = 0; i < order.size(); ++i) entries_[i] = order[i].first;
  }
  // One leading word before the range pointers holds the search index of a
  // numeric format searched by bisection (null otherwise).
  auto *block = static_cast<const void **>(alloc((entries_.size() + 1) * sizeof(void *)));
  if (!block) return read_no_memory;
  const void **array = block + 1;
  if (!entries_.empty()) std::memcpy(array, entries_.data(), entries_.size() * sizeof(void *));
  if (header_->linear_search == 0 && header_->kind != kind_character && !entries_.empty()) {
    auto *index = static_cast<bound_pair *>(alloc(entries_.size() * sizeof(bound_pair)));
    if (!index) return read_no_memory;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      auto e = static_cast<const xf_range_numeric *>(entries_[i]);
      bool single = e->entry_kind == XF_RANGE_NUMERIC_VALUE;
      index[i].low = load_key(single ? e->start_key : e->low_key);
      index[i].high = load_key(single ? e->start_key : e->high_key);
    }
    block[0] = index;
    header_->reserved[0] = header_indexed;
  }
  header_->range_count = static_cast<int64_t>(entries_.size());
  // Widths a file left empty: 1 to 40, the default the longest label.
  if (header_->min_width == 0) header_->min_width = 1;
  if (header_->max_width == 0) header_->max_width = 40;
  if (header_->max_width < header_->min_width) header_->max_width = header_->min_width;
  if (header_->default_width == 0)
    header_->default_width = static_cast<uint16_t>(std::clamp<int>(
        header_->max_label_length, header_->min_width, header_->max_width));
  context->control = header_;
  context->word2 = array;
  return read_found;
}

}  // namespace xfmt::userfmt
