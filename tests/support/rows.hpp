// Tables of cases that are not one frame through the case runner: plain
// tab-separated rows under tests/data, read by the test they belong to, with
// the few field decoders those tests share.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace xfmt::test {

// The lines of a tab-separated file under tests/data ('#' starts a comment
// line), each split at its tabs; a file that cannot be read fails the test.
std::vector<std::vector<std::string>> tab_lines(const std::string &path);

// The same, with "file:line" in front of each line's fields (field 0), for
// failure messages; an empty file fails the test.
std::vector<std::vector<std::string>> tab_rows(const std::string &path);

// A field's bytes: the escapes \t \n \r \0 \\ and \xHH (two digits).
std::string unescaped(const std::string &field);

// A decimal or 0x number.
int64_t int_of(const std::string &field);

}  // namespace xfmt::test
