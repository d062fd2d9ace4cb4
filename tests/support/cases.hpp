// One conversion case and the check every table of cases goes through: the
// routine named in the catalogue (or given directly) runs on a fresh frame
// whose output buffer is followed by guard bytes, twice; the delivered bytes,
// the output length, the status, the untouched guard and the frame's width
// and decimals are compared.
//
// Case files under tests/data hold one case per line, fields separated by
// blanks or tabs, "#" starting a comment outside quotes:
//
//   # name   w   d   input          expected          status      options
//   COMMA    12  2   1234567.891    "1,234,567.89"    OK
//   @COMMA   8   0   "1,234.56"     1234.56           OK
//   $QUOTE   1   0   "abc"          "*"               E_OVERFLOW  cap=4
//
// name      catalogued name ("@" before an informat, "$" before a character one),
//           or zfmmiss (the missing-value display, not catalogued)
// input     a number (strtod syntax, inf, nan), a missing value (. ._ .A-.Z),
//           raw:HEX (the double's 64 bits), quoted text or hex:HH... (bytes)
// expected  quoted text or hex:HH...: the delivered field; a number, missing
//           value or raw:HEX: the 8 bytes of the double an informat stores
// status    OK, REDUCED, E_OVERFLOW, IN_INVALID ... (the XF_ name without
//           "XF_") or a number
// options   cap=N output capacity (default w; 8 for a stored double),
//           opt=N option word, flags=N option flags, enc=N input encoding,
//           renc=N requested output encoding, native (the hex: input and
//           field are written big-endian and mirrored on a little-endian host),
//           len=N the output length when it differs from the expected bytes,
//           which then cover the whole capacity (\xEE: a byte left untouched),
//           utf16 (UTF-16LE output asked for, capacity 2w by default; the
//           expected text is written in UTF-8 and compared as UTF-16LE),
//           utf8 (the process codeset is UTF-8 during the case), tz=ZONE (TZ
//           during the case), zav=VALUE (ZAV_LOCALE during the case; "-"
//           leaves it unset), noinput (a null input pointer claiming the
//           input's length, which must not be read), width=N (the frame's
//           width after the call; otherwise w and d must be as they were)
// Quoted text takes the escapes \" \\ \t \n \0 and \xHH (exactly two digits).
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xfmt/xfmt.h"

namespace xfmt::test {

struct format_case {
  std::string name;             // catalogued name, used when routine is null
  xf_routine routine = nullptr;
  int32_t w = 0, d = 0;
  bool text_input = false;
  double value = 0;             // the input when !text_input
  std::string text;             // the input when text_input
  bool stores_double = false;   // the result is the 8 bytes of a double
  std::string want;             // the expected field when !stores_double
  uint64_t want_bits = 0;       // the expected double's bits when stores_double
  xf_status status = XF_OK;
  int64_t capacity = -1;        // -1: w, or 8 when stores_double
  uint64_t option_word = 0;
  uint32_t option_flags = 0;
  uint32_t input_encoding = 0;
  uint32_t requested_encoding = 0;
  int64_t length = -1;          // >= 0: the output length; want is the whole capacity
  bool utf16 = false;           // want is UTF-8 text expected as UTF-16LE output
  bool utf8_codeset = false;    // the process codeset is UTF-8 during the case
  bool no_input = false;        // a null input that claims the input's length
  int32_t width_after = -1;     // >= 0: the frame's width after the call (else w)
  std::string zone;             // TZ during the case when not empty
  std::string zav_locale;       // ZAV_LOCALE during the case when not empty ("-": unset)
  std::string where;            // "file:line" of a case read from a file
};

// Builders for cases written in code.
format_case number_case(xf_routine r, double v, int32_t w, int32_t d, std::string want,
                        xf_status st = XF_OK);
format_case text_case(xf_routine r, std::string in, int32_t w, int32_t d, std::string want,
                      xf_status st = XF_OK);
format_case informat_case(xf_routine r, std::string in, int32_t w, int32_t d, uint64_t bits,
                          xf_status st = XF_OK);

// The routine of a catalogued name (exact, case sensitive) or zfmmiss, or null.
xf_routine routine_named(std::string_view name);

// Whether the case holds; the failure message says where it came from and
// what differed.
testing::AssertionResult holds(const format_case &c);

// The cases of a file under tests/data (a path relative to it); a line that
// does not parse fails the calling test, naming the file and line.
std::vector<format_case> read_cases(const std::string &file);

// Checks every case of the file; an empty file fails.
void run_case_file(const std::string &file);

// The expected bits of a stored double: a number, or a missing value
// ('.', '_', 'A'..'Z').
uint64_t num(double v);
uint64_t miss(char letter);

// Process settings changed for a while and put back; the library reads the
// codeset, ZAV_LOCALE and TZ once, so each change is followed by the reload
// it needs. The runner's utf8, tz= and zav= options go through them.
class codeset_scope {
 public:
  explicit codeset_scope(const char *locale_name);  // "C.UTF-8", "C"
  ~codeset_scope();
  codeset_scope(const codeset_scope &) = delete;
  codeset_scope &operator=(const codeset_scope &) = delete;

 private:
  std::string saved_;
};

// An environment variable the library reads (TZ, ZAV_LOCALE) set, or unset
// for null.
class variable_scope {
 public:
  variable_scope(const char *name, const char *value);
  ~variable_scope();
  variable_scope(const variable_scope &) = delete;
  variable_scope &operator=(const variable_scope &) = delete;

 private:
  void set(const char *value) const;
  const char *name_;
  std::optional<std::string> saved_;
};

// Bytes shown with every non-printing byte as \xHH, for messages.
std::string shown(std::string_view bytes);

}  // namespace xfmt::test
