// The character format tables under tests/data/text, through the shared
// case runner.
#include <gtest/gtest.h>

#include "support/cases.hpp"

namespace {

TEST(text_tables, bidi_formats) { xfmt::test::run_case_file("text/bidi_formats.txt"); }
TEST(text_tables, char_formats) { xfmt::test::run_case_file("text/char_formats.txt"); }

}  // namespace
