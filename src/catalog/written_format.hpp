// Conversions as hosts write them ("DATETIME22.3", "@COMMA12.", "AGEGRP."):
// the record of xfx.h filled from the catalog, and the bounded text writer the
// functions of xfx.h share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "xfmt/xfx.h"

namespace xfmt::catalog {

// The catalog rows behind a name ("@" in front for an informat).
struct catalog_match {
  const fmtposs_row *poss = nullptr;     // possible-format row, or the intrinsic row
  const fmtinfo_eachfmt *row = nullptr;  // module row (the intrinsic row's own row)
  bool intrinsic = false;
};

// Looks a name up as resolution does (catalog first, then the intrinsic
// names), without allocating a handle.
bool find_catalog_name(const char *name, uint32_t length, catalog_match &match);

// Fills spec from catalog rows: name without "@", limits, defaults as width
// and decimals, module, family and flags (nothing given yet).
void fill_from_catalog(xfx_spec &spec, const catalog_match &match);

// Writes text into out (capacity bytes, NUL-terminated when capacity > 0)
// while counting the whole length, so callers can report truncation.
class text_sink {
 public:
  text_sink(char *out, size_t capacity) : out_(out), capacity_(capacity) { terminate(); }
  void put(std::string_view s) {
    for (char c : s) put(c);
  }
  void put(char c) {
    if (out_ != nullptr && length_ + 1 < capacity_) out_[length_] = c;
    ++length_;
    terminate();
  }
  void put_number(int64_t v);
  size_t length() const { return length_; }

 private:
  void terminate() {
    if (out_ == nullptr || capacity_ == 0) return;
    out_[length_ < capacity_ ? length_ : capacity_ - 1] = '\0';
  }
  char *out_;
  size_t capacity_;
  size_t length_ = 0;
};

}  // namespace xfmt::catalog
