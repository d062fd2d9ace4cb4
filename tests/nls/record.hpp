// A locale record built by a test: field number to text, read through the
// same field_reader the database is read through.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "nls/expand.hpp"

namespace xfmt::test {

struct test_record {
  std::map<int, std::string> fields;

  nls::field_reader reader() const { return {this, &read_field}; }

  static bool read_field(const void *ctx, int field, std::string_view *text) {
    const auto &f = static_cast<const test_record *>(ctx)->fields;
    auto it = f.find(field);
    if (it == f.end()) return false;
    *text = it->second;
    return true;
  }
};

// An English-like record with distinct first and second name sets, enough
// for every conversion of the expander.
test_record english_like();

}  // namespace xfmt::test
