// Building the records of one user-defined format from the control file's
// rows: the header (with its anchor), range entries, text and picture labels,
// all allocated on the resolution's chain.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace xfmt::userfmt {

// Reader result codes (negative: the request fails).
inline constexpr int read_found = 0;
inline constexpr int read_not_found = 1;
inline constexpr int read_open_failed = -1;
inline constexpr int read_malformed = -2;
inline constexpr int read_bad_row = -3;
inline constexpr int read_no_memory = -4;
inline constexpr int read_bad_datatype = -9;
inline constexpr int read_missing_column = -14;
inline constexpr int read_nested_format = -16;
inline constexpr int read_unsupported = -17;
inline constexpr int read_bad_type = -20;
inline constexpr int read_too_large = -21;

enum column : int {
  col_fmtname, col_type, col_min, col_max, col_default, col_fuzz, col_hlo, col_start, col_end,
  col_sexcl, col_eexcl, col_label, col_prefix, col_language, col_datatype, col_fill, col_decsep,
  col_dig3sep, col_mult, col_noedit, column_count
};

// The column of a cell name, or -1.
int column_of(std::string_view name);
// Columns every row needs, and those a picture row needs besides.
bool needed_column(int c);
bool picture_column(int c);

struct row_cells {
  std::array<std::string, column_count> text;
  std::array<bool, column_count> present{};
};

class format_builder {
 public:
  // name: 32 bytes, blank padded, without its "$" or "@" prefix.
  format_builder(int32_t request_kind, const char *name, void **chain);

  // True when the row's FMTNAME is the requested name.
  bool wanted(const row_cells &row) const;
  // Builds the row's records; 0 or a negative code.
  int add(const row_cells &row, const std::array<bool, column_count> &declared);
  // Completes the format: read_not_found when no row was taken, else
  // read_found with the header and its ranges stored in the context.
  int finish(xf_ufmt_context *context);
  // Why the last row was refused, in words, when the refusal has a more
  // precise reason than its code's; else null.
  const char *refusal() const { return refusal_; }

 private:
  int start_header(char type);
  int numeric_entry(const row_cells &row, uint8_t flags, const void *label, bool low, bool high);
  int character_entry(const row_cells &row, uint8_t flags, const void *label, bool low, bool high);
  const void *text_label(const std::string &utf8);
  const void *picture_label(const row_cells &row, int &rc);
  bool to_units(const std::string &utf8);
  void *alloc(uint64_t size);

  int32_t request_kind_;
  char name_[32];
  std::size_t name_length_;
  void **chain_;
  xf_user_format *header_ = nullptr;
  std::vector<const void *> entries_;
  std::vector<uint16_t> units_;
  const char *refusal_ = nullptr;
};

// Number of a cell: "." ordinary missing, ".A"-".Z" and "._" special
// missing, else a decimal number. False when the text is not a number.
bool read_number(std::string_view text, double &value);

}  // namespace xfmt::userfmt
