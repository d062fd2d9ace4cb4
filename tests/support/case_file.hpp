// Case tables kept as data files under tests/data: one case per line, fields
// separated by one or more tabs, '#' starts a comment line. A field in double
// quotes keeps its blanks and takes the escapes \t \n \\ \" and \xHH. Every
// failure names the file and the line it came from.
#pragma once

#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace xfmt::test {

struct case_line {
  std::string where;                // "datetime/word_dates.tsv:12"
  std::vector<std::string> fields;  // quotes removed, escapes applied
};

// Every case of tests/data/<path>; a file that cannot be read, or holds no
// case, is a test failure.
std::vector<case_line> read_cases(const std::string &path);

// A status by its name less the XF_ / XF_E_ prefix (OK, OVERFLOW,
// DATE_RANGE, IN_INVALID, ...) or as a number.
xf_status status_named(const std::string &name);

// A double: a decimal or hexadecimal number, nan, inf, -inf, or a missing
// value written as the host shows it ("." "._" ".A" ... ".Z"), or bits:HEX
// for a bit pattern.
double value_named(const std::string &text);

// The routine of a catalogued name ("@" first for an informat); a name the
// catalogue lacks is a test failure and gives nullptr.
xf_routine routine_named(const std::string &name);

// A format of a numeric value, one line: NAME  w  d  value  "text"  status.
// The output buffer has exactly w bytes followed by guard bytes; the text
// is compared with the output length's bytes, the guard must stay intact.
// A text followed by the field ... is padded with blanks to w.
void check_format_line(const case_line &c);

// Every line of a format table file through check_format_line.
void check_format_file(const std::string &path);

}  // namespace xfmt::test
