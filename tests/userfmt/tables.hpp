// In-memory user-defined formats for the lookup tests: records built the way
// a host builds them, owned by the test.
#pragma once

#include <cstdint>
#include <cstring>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace xfmt::test {

std::u16string u16(const std::string &ascii);
std::vector<uint8_t> key(double v);
double missing_letter(char c);  // '.' ordinary, '_' and 'A'-'Z' special

// One format; entries and labels live as long as the object.
class memory_format {
 public:
  explicit memory_format(int16_t kind = 1, const std::string &name = "T");

  const void *text_label(const std::string &ascii);
  const void *picture(const std::string &tpl, char fill, const std::string &prefix, double mult,
                      bool noedit = false, uint8_t datatype = 0);
  const void *format_label(const std::string &name, int16_t width, uint8_t decimals);
  const void *label_list(const std::vector<const void *> &labels);

  // Numeric range [start, end] (LOW/HIGH by flags), label text.
  void range(double start, double end, const std::string &label, uint8_t flags = 0, double fuzz = 0);
  void range_label(double start, double end, const void *label, uint8_t flags = 0, double fuzz = 0);
  void value(double v, const std::string &label);
  void char_range(const std::string &start, const std::string &end, const std::string &label,
                  uint8_t flags = 0);
  void char_value(const std::string &v, const std::string &label);
  void fixed(uint8_t kind, const std::string &start, const std::string &end, const std::string &label,
             uint8_t flags = 0);
  void other(const std::string &label);

  xf_user_format *header() { return &headers_[1]; }
  void *ranges() { return ranges_.empty() ? nullptr : ranges_.data(); }
  // Sets the count after the entries are added.
  void done();

  // The headers array and pointer array as a one-format catalog.
  xf_user_format *anchor() { return headers_.data(); }

 private:
  void *raw(std::size_t size);
  std::vector<xf_user_format> headers_;
  std::vector<void *> ranges_;
  std::deque<std::unique_ptr<uint64_t[]>> blocks_;
};

// Runs a lookup routine on a number, width w, capacity cap (default w).
struct result {
  std::string text;
  xf_status status;
  uint32_t flags;
  uint32_t encoding;
};
result run_number(xf_label_routine routine, memory_format &f, double v, int32_t w, int64_t cap = -1,
                  uint32_t option_flags = 0, int32_t d = 0);
result run_text(xf_label_routine routine, memory_format &f, const std::u16string &v, int32_t w,
                int64_t cap = -1, uint32_t option_flags = 0);

}  // namespace xfmt::test
