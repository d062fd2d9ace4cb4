// The value-label lookups of tests/data/userfmt/lookups.txt: formats built
// in memory, each lookup through every routine its row names.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "support/rows.hpp"
#include "userfmt/tables.hpp"
#include "xfmt/xfmt.h"

using namespace xfmt::test;

namespace {

xf_label_routine routine_named(const std::string &name) {
  const std::pair<const char *, xf_label_routine> routines[] = {
      {"yfpfnfn", yfpfnfn}, {"yfpfnfm", yfpfnfm}, {"yfpfnfs", yfpfnfs}, {"yfpfnfr", yfpfnfr},
      {"yfpfcfn", yfpfcfn}, {"yfpfcfm", yfpfcfm}, {"yfpfcfs", yfpfcfs}, {"yfpfcfr", yfpfcfr},
      {"yfpfcfx", yfpfcfx}, {"yfpfcfy", yfpfcfy}, {"yfpfcfz", yfpfcfz}};
  for (const auto &[n, r] : routines)
    if (name == n) return r;
  ADD_FAILURE() << "no routine " << name;
  return nullptr;
}

// Entry flags (L H S E) or option flags (M U) by their letters.
uint32_t flags_of(const std::string &letters) {
  uint32_t flags = 0;
  for (char c : letters) {
    flags |= c == 'L' ? XF_RANGE_LOW : c == 'H' ? XF_RANGE_HIGH : c == 'S' ? XF_RANGE_START_EXCL : 0;
    flags |= c == 'E' ? XF_RANGE_END_EXCL : c == 'M' ? XF_FLAG_MULTILABEL : c == 'U' ? XF_FLAG_UNFORMATTED : 0;
  }
  return flags;
}

double number(const std::string &s) {
  return s[0] == '.' ? missing_letter(s.size() == 1 ? '.' : s[1]) : std::stod(s);
}

std::string text(const std::string &quoted) { return unescaped(quoted.substr(1, quoted.size() - 2)); }

TEST(lookup_rows, lookups_of_the_file) {
  std::unique_ptr<memory_format> f;
  for (auto r : tab_rows("userfmt/lookups.txt")) {
    r.resize(10, "");
    const auto entry_flags = [&](size_t k) { return static_cast<uint8_t>(flags_of(r[k])); };
    if (r[1] == "format") {
      f = std::make_unique<memory_format>(static_cast<int16_t>(std::stoi(r[2])));
      f->header()->multilabel = r[3] == "multilabel";
      f->header()->linear_search = r[3] != "bisect";
    } else if (r[1] == "range") {
      f->range(number(r[2]), number(r[3]), r[4], entry_flags(5), r[6].empty() ? 0 : std::stod(r[6]));
    } else if (r[1] == "value") {
      f->value(number(r[2]), r[3]);
    } else if (r[1] == "text_range") {
      f->char_range(text(r[2]), text(r[3]), r[4], entry_flags(5));
    } else if (r[1] == "text_value") {
      f->char_value(text(r[2]), r[3]);
    } else if (r[1] == "fixed" || r[1] == "fixed_value") {
      const bool single = r[1] == "fixed_value";
      f->fixed(single ? XF_RANGE_FIXED_VALUE : XF_RANGE_FIXED, text(r[2]), single ? "" : text(r[3]),
               r[single ? 3 : 4], entry_flags(5));
    } else if (r[1] == "other") {
      f->other(r[2]);
    } else {
      ASSERT_TRUE(f) << r[0] << ": a lookup before any format";
      const int32_t w = std::stoi(r[3]);
      const int64_t cap = r[5] == "-" ? -1 : std::stoll(r[5]);
      for (size_t at = 0, next; at < r[1].size(); at = next + 1) {
        next = std::min(r[1].find(',', at), r[1].size());
        const xf_label_routine routine = routine_named(r[1].substr(at, next - at));
        const result got = f->header()->kind == 11
                               ? run_text(routine, *f, u16(text(r[2])), w, cap, flags_of(r[6]))
                               : run_number(routine, *f, number(r[2]), w, cap, flags_of(r[6]), std::stoi(r[4]));
        EXPECT_EQ(got.text, text(r[7])) << r[0] << " " << r[1].substr(at, next - at);
        EXPECT_EQ(got.status, static_cast<xf_status>(std::stoll(r[8]))) << r[0];
        EXPECT_EQ(got.flags, flags_of(r[9])) << r[0];
      }
    }
  }
}

}  // namespace
