// The English-like test record, read from tests/data/nls/english_record.txt.
#include "record.hpp"

#include "support/rows.hpp"

namespace xfmt::test {

test_record english_like() {
  static const test_record record = [] {
    test_record r;
    for (const auto &l : tab_lines("nls/english_record.txt"))
      for (size_t k = 1; k < l.size(); ++k)
        r.fields[std::stoi(l.at(0)) + static_cast<int>(k) - 1] = l[k];
    return r;
  }();
  return record;
}

}  // namespace xfmt::test
