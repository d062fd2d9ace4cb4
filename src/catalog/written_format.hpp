// Conversions as hosts write them ("DATETIME22.3", "@COMMA12.", "AGEGRP."):
// the record of xfx.h filled from the catalog, and the bounded text writer the
// functions of xfx.h share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/bounded_text.hpp"
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
  text_sink(char *out, size_t capacity)
      : text_(out, out != nullptr && capacity > 0 ? capacity - 1 : 0),
        terminated_(out != nullptr && capacity > 0) {
    terminate();
  }
  void put(std::string_view s) {
    text_.put(s);
    terminate();
  }
  void put(char c) {
    text_.put_char(c);
    terminate();
  }
  void put_number(int64_t v) {
    text_.put_signed(v);
    terminate();
  }
  size_t length() const { return text_.length(); }

 private:
  // The room leaves one byte for the terminator, so written() is in bounds.
  void terminate() {
    if (terminated_) text_.p[text_.written()] = '\0';
  }
  core::bounded_text text_;
  bool terminated_;
};

}  // namespace xfmt::catalog
