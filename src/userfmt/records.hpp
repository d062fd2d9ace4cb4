// Internal views of the user-defined format records declared in xfmt.h:
// text pointers behind the fixed parts, label lists, and the picture's mult.
// The lookup, picture and reader files of this subsystem include this one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "xfmt/xfmt.h"

namespace xfmt::userfmt {

static_assert(sizeof(xf_user_format) == 96);
static_assert(offsetof(xf_user_format, range_count) == 48);
static_assert(offsetof(xf_user_format, other_label) == 80);
static_assert(sizeof(xf_range_numeric) == 48);
static_assert(offsetof(xf_range_numeric, high_key) == 40);
static_assert(sizeof(xf_range_char) == 16);
static_assert(offsetof(xf_range_char_value, flags) == 16);
static_assert(sizeof(xf_range_fixed) == 80);
static_assert(sizeof(xf_label_format) == 36);
static_assert(sizeof(xf_picture_label) == 32);
static_assert(sizeof(xf_ufmt_context) == 256);
static_assert(offsetof(xf_ufmt_context, catalog) == 48);

inline constexpr std::size_t char_range_text_offset = 16;
inline constexpr std::size_t char_value_text_offset = 18;
inline constexpr std::size_t label_text_offset = 4;
inline constexpr std::size_t label_list_offset = 8;
inline constexpr std::size_t picture_text_offset = 32;
inline constexpr int fixed_key_units = 16;

// Header kinds and request kinds.
inline constexpr int16_t kind_numeric = 1;
inline constexpr int16_t kind_picture = 3;
inline constexpr int16_t kind_character = 11;
inline constexpr int32_t request_num_informat = 20;
inline constexpr int32_t request_char_informat = 30;

// Numeric formats the reader builds for bisection carry a search index: the
// low and high bound keys of every entry side by side (a single value: its
// start twice), so that the bisection touches one contiguous array. The
// header's first reserved byte says so, and the pointer to the index stands
// in the word just before the range pointers.
inline constexpr uint8_t header_indexed = 1;
struct bound_pair {
  uint64_t low;
  uint64_t high;
};
inline const bound_pair *search_index(const xf_user_format *h, const void *const *ranges) {
  if (h->reserved[0] != header_indexed) return nullptr;
  const void *index;
  std::memcpy(&index, ranges - 1, sizeof index);
  return static_cast<const bound_pair *>(index);
}

// Date pictures the reader builds carry their template compiled (see
// userfmt/datefmt.hpp): the label's first four reserved bytes hold a mark,
// the fifth counts the plans, and the plans stand after the text area at the
// next multiple of 16 bytes in the same allocation. A label a host builds has
// zeros there and compiles on each call; the mark is four bytes rather than
// one so that a host which leaves the padding uninitialised is not taken for
// the reader.
inline constexpr unsigned char picture_compiled[4] = {'D', 'P', 'L', 'N'};
inline constexpr std::size_t picture_count_byte = 4;
inline constexpr std::size_t picture_steps_alignment = 16;
// Bytes of the text area: the template, prefix and language as laid out.
inline std::size_t picture_text_bytes(const xf_picture_label *p) {
  auto end = [](int16_t offset, int16_t length) -> std::size_t {
    if (length <= 0 || offset < 0) return 0;
    return static_cast<std::size_t>(offset) + static_cast<std::size_t>(length);
  };
  std::size_t n = end(0, p->picture_length);
  if (std::size_t e = end(p->prefix_offset, p->prefix_length); e > n) n = e;
  if (std::size_t e = end(p->language_offset, p->language_length); e > n) n = e;
  return n;
}
inline std::size_t steps_offset_after(std::size_t text_bytes) {
  const std::size_t end = picture_text_offset + text_bytes;
  return (end + picture_steps_alignment - 1) / picture_steps_alignment * picture_steps_alignment;
}
inline std::size_t picture_steps_offset(const xf_picture_label *p) {
  return steps_offset_after(picture_text_bytes(p));
}
inline uint8_t picture_plan_count(const xf_picture_label *p) {
  if (std::memcmp(p->reserved, picture_compiled, sizeof picture_compiled) != 0) return 0;
  return p->reserved[picture_count_byte];
}
inline void mark_picture_compiled(xf_picture_label *p, std::size_t plan_count) {
  std::memcpy(p->reserved, picture_compiled, sizeof picture_compiled);
  p->reserved[picture_count_byte] = static_cast<uint8_t>(plan_count);
}

inline uint8_t entry_kind(const void *e) { return *static_cast<const uint8_t *>(e); }

inline const uint16_t *units_at(const void *base, std::size_t offset) {
  return reinterpret_cast<const uint16_t *>(static_cast<const unsigned char *>(base) + offset);
}

inline const uint16_t *char_range_start(const xf_range_char *e) {
  return units_at(e, char_range_text_offset);
}
inline const uint16_t *char_range_end(const xf_range_char *e) {
  return char_range_start(e) + e->start_length;
}
inline const uint16_t *char_value_text(const xf_range_char_value *e) {
  return units_at(e, char_value_text_offset);
}

// Flags and label of any entry kind (kind 3 keeps its flags after the label).
inline uint8_t entry_flags(const void *e) {
  if (entry_kind(e) == XF_RANGE_CHAR_VALUE) return static_cast<const xf_range_char_value *>(e)->flags;
  return static_cast<const uint8_t *>(e)[1];
}
inline const void *entry_label(const void *e) {
  const void *label;
  std::memcpy(&label, static_cast<const unsigned char *>(e) + 8, sizeof label);
  return label;
}

inline uint8_t label_kind(const void *label) { return *static_cast<const uint8_t *>(label); }
inline const uint16_t *label_text(const xf_label_text *l) { return units_at(l, label_text_offset); }

inline uint32_t list_count(const void *list) { return static_cast<const xf_label_list *>(list)->count; }
inline const void *list_label(const void *list, uint32_t i) {
  const void *label;
  std::memcpy(&label,
              static_cast<const unsigned char *>(list) + label_list_offset + i * sizeof(void *),
              sizeof label);
  return label;
}

inline const char *picture_text(const xf_picture_label *p) {
  return reinterpret_cast<const char *>(p) + picture_text_offset;
}
// mult is stored with its bytes reversed.
inline double picture_mult(const xf_picture_label *p) {
  unsigned char b[8];
  for (int i = 0; i < 8; ++i) b[i] = p->mult[7 - i];
  double v;
  std::memcpy(&v, b, sizeof v);
  return v;
}
inline void set_picture_mult(xf_picture_label *p, double v) {
  unsigned char b[8];
  std::memcpy(b, &v, sizeof v);
  for (int i = 0; i < 8; ++i) p->mult[i] = b[7 - i];
}

inline const xf_user_format *as_header(const void *h) { return static_cast<const xf_user_format *>(h); }
inline const void *const *as_ranges(const void *r) { return static_cast<const void *const *>(r); }

}  // namespace xfmt::userfmt
