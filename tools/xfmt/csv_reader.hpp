// Records of a CSV stream, read as they come: fields separated by commas,
// records by LF, CR LF or a lone CR; a field in double quotes may hold
// commas, line ends and "" for one quote. Every byte is kept, NUL included.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace xfmt::cli {

class csv_reader {
 public:
  enum class result { record, end, unterminated_quote, utf16 };

  // Reads from an open stream; a UTF-8 byte-order mark at its start is
  // dropped (had_bom() tells). The stream stays the caller's.
  explicit csv_reader(std::FILE *in);

  // The next record into fields (one field for an empty line). unterminated_quote:
  // the input ended inside a quoted field (line() is where it began); utf16:
  // the stream starts with a UTF-16 byte-order mark, which is not read.
  result next(std::vector<std::string> &fields);

  // Line of the input on which the last record began (1 for the first).
  uint64_t line() const { return record_line_; }
  // Input bytes consumed so far.
  uint64_t bytes_read() const { return consumed_; }
  bool had_bom() const { return bom_; }
  // Whether the last record's single field was empty or blank and unquoted:
  // an empty or blank line.
  bool blank_line() const { return blank_; }

 private:
  int get();  // next byte, or -1 at the end
  void unget(int c);

  std::FILE *in_;
  char buf_[1 << 16];
  size_t pos_ = 0, len_ = 0;
  int pending_ = -2;  // a byte given back, -2 for none
  uint64_t consumed_ = 0, line_ = 1, record_line_ = 0;
  bool started_ = false, bom_ = false, utf16_ = false, blank_ = false;
};

}  // namespace xfmt::cli
