// Slow literal transcription of numeric pictures, step by step with strings
// and snprintf, for differential tests of yfpict.
#pragma once

#include <string>

namespace xfmt::oracle {

struct picture_spec {
  std::string tpl;
  char fill = ' ';
  std::string prefix;
  double mult = 0;
  bool noedit = false;
};

// The w-wide field, or an empty string when the value goes to the standard
// number routine (missing, or more than 16 digits).
std::string picture_field(const picture_spec &p, int w, bool round, double value);

}  // namespace xfmt::oracle
