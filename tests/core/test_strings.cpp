// String helpers: trimming, case, comparison, searching, translating and
// deleting, one call a row of core/strings.tsv; wztxlit; min and max.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/byte_area_rows.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::byte_call;

const xfmt::test::byte_helper helpers[] = {
    {"zstrip", [](const byte_call &c) { return zstrip(c.p, c.n); }, nullptr},
    {"wzstrip", [](const byte_call &c) { return wzstrip(c.p, c.n); }, nullptr},
    {"wzstrup", nullptr, [](const byte_call &c) { wzstrup(c.p, c.n); }},
    {"wzsteqn", [](const byte_call &c) { return wzsteqn(c.p, c.n, c.s, c.m); }, nullptr},
    {"wzstpos", [](const byte_call &c) { return wzstpos(c.p, c.n, c.byte()); }, nullptr},
    {"wzstver", [](const byte_call &c) { return wzstver(c.p, c.n, c.s, c.m); }, nullptr},
    {"wzstnot", [](const byte_call &c) { return wzstnot(c.p, c.n, c.byte()); }, nullptr},
    {"STQX", [](const byte_call &c) { return STQX(c.p, c.n, c.s); }, nullptr},
    {"STQXN", [](const byte_call &c) { return STQXN(c.p, c.n, c.s); }, nullptr},
    {"wzstndx", [](const byte_call &c) { return wzstndx(c.p, c.n, c.s, c.m); }, nullptr},
    {"wzstrns", nullptr, [](const byte_call &c) { wzstrns(c.p, c.n, c.s, c.s + c.m, c.m); }},
    {"wzstdel", [](const byte_call &c) { return wzstdel(c.p, c.n, c.s, c.m); }, nullptr},
};

TEST(strings, calls_of_the_strings_table) { xfmt::test::run_byte_area_rows("core/strings.tsv", helpers); }

TEST(wztxlit, returns_its_argument) {
  const char *s = "x";
  EXPECT_EQ(wztxlit(s), s);
}

TEST(min_max, exported_names_live_beside_std) {
  EXPECT_EQ(min(3, -4), -4);
  EXPECT_EQ(max(3, -4), 3);
  EXPECT_EQ(::min(INT32_MIN, INT32_MAX), INT32_MIN);
  EXPECT_EQ(std::min(2.5, 1.5), 1.5);  // std's templates are untouched
  EXPECT_EQ(std::max<int64_t>(1, 2), 2);
}

}  // namespace
