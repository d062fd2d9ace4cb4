// NLNUM and NLMNY against the C library's own formatting ("%'.*f" under
// uselocale, strfmon_l) in every locale of the database that the machine
// has as <code>.UTF-8. Where the two differ for a known reason, the reason
// is listed below as data; the test fails on any difference not listed and
// on any listed reason that no longer makes a difference.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <locale.h>
#include <monetary.h>  // strfmon_l
#include <string>
#include <vector>

#include "support/frame.hpp"
#include "xfmt/xfmt.h"
#include "core/platform.hpp"

namespace {

// The reasons, each with the rewriting that makes the two texts agree.
enum reason : unsigned {
  fixed_record = 1,      // record 1 (af_ZA) keeps its fixed marks: "," and U+00A0
  narrow_nbsp = 2,       // the C library groups with U+202F, the database with U+00A0
  first_group_only = 4,  // money groups by the first size of "3;2" (12,34,567 there)
  paren_blank = 8,       // sign position 0: a positive amount keeps a blank where ")" goes
  sign_space = 16,       // sep_by_space 2 (blank beside the sign) counts as a blank by the value
};

// The locales (space-separated codes) where a name differs for a reason.
struct known_difference {
  const char *name;
  unsigned reason;
  const char *locales;
};

const known_difference known[] = {
    {"NLNUM", fixed_record, "af_ZA"},
    {"NLMNY", fixed_record, "af_ZA"},
    {"NLNUM", narrow_nbsp,
     "cs_CZ es_CR es_MX et_EE fi_FI fr_CA fr_FR fr_LU kk_KZ lv_LV mk_MK nb_NO nn_NO pl_PL ru_RU "
     "sk_SK sv_SE uk_UA"},
    {"NLMNY", narrow_nbsp,
     "be_BY bg_BG bs_BA cs_CZ de_AT es_CR et_EE fi_FI fr_CA fr_FR fr_LU kk_KZ lv_LV mk_MK nb_NO "
     "nn_NO pl_PL ru_RU ru_UA sk_SK sv_SE uk_UA"},
    {"NLMNY", first_group_only, "ar_IN bn_IN en_IN hi_IN mr_IN ta_IN te_IN"},
    {"NLMNY", paren_blank, "en_HK en_PH en_SG fr_CA ms_MY zh_HK zh_SG"},
    {"NLMNY", sign_space, "de_CH de_LI de_LU fr_CH it_CH kk_KZ uk_UA"},
};

const double values[] = {0,    42,    1234567.891, -9876.25, 0.75, -0.25, 12345678901.25,
                         1e-7, -1e-7, -1234.75,    999.999,  0.1,  7e14};

// NLNUM rounds halfway values away from zero, as F rounds them (with the
// one-unit nudge: 1.005, stored just below, shows 1.01); the C library rounds
// the stored value exactly and exact ties to even. For NLNUM the C library
// text is taken of the neighbour one unit further from zero, which rounds as
// F does. NLMNY prints its digits as the money formats do, exactly as the C
// library does, and is compared on the tie itself.
struct tie {
  double value;
  int decimals;
};
const tie ties[] = {{0.125, 2}, {-0.375, 2}, {1.005, 2}, {1234.565, 2},
                    {2.5, 0},   {-0.5, 0},   {0.5, 0},   {-9876.5, 0}};

std::string replace_all(std::string s, const std::string &from, const std::string &to) {
  for (size_t i = s.find(from); i != std::string::npos; i = s.find(from, i + to.size()))
    s.replace(i, from.size(), to);
  return s;
}

std::string strip(std::string s, const std::string &chars) {
  std::string out;
  for (char c : s)
    if (chars.find(c) == std::string::npos) out += c;
  return out;
}

// Both texts rewritten by the listed reasons (fixed_record compares nothing).
bool agree(std::string ours, std::string theirs, unsigned reasons) {
  if (reasons & fixed_record) return true;
  if (reasons & narrow_nbsp) theirs = replace_all(theirs, "\xE2\x80\xAF", "\xC2\xA0");
  if ((reasons & paren_blank) && !ours.empty() && ours.back() == ' ') ours.pop_back();
  if (reasons & first_group_only) {
    ours = strip(ours, ",");
    theirs = strip(theirs, ",");
  }
  if (reasons & sign_space) {
    ours = strip(ours, " ");
    theirs = strip(theirs, " ");
  }
  return ours == theirs;
}

std::string ours(xf_routine r, int id, double v, int d) {
  xfmt::test::frame_box b = xfmt::test::frame_box::number(v, 32, d, 128);
  b.f.option_word = static_cast<uint64_t>(id);
  EXPECT_EQ(r(&b.f), XF_OK);
  const std::string field = b.str();  // right-aligned: blanks on the left only
  const size_t first = field.find_first_not_of(' ');
  return first == std::string::npos ? std::string() : field.substr(first);
}

std::string theirs(bool money, locale_t loc, double v, int d) {
  char out[128];
  if (money) {
    char pattern[16];
    std::snprintf(pattern, sizeof pattern, "%%.%dn", d);
    // The format is built at run time for the precision; strfmon takes no '*'.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    ssize_t n = strfmon_l(out, sizeof out, loc, pattern, v);
#pragma GCC diagnostic pop
    return n < 0 ? std::string("(strfmon failed)") : std::string(out, static_cast<size_t>(n));
  }
  std::snprintf(out, sizeof out, "%'.*f", d, v);
  return out;
}

unsigned listed(const char *name, const std::string &code) {
  unsigned reasons = 0;
  for (const auto &k : known)
    if (std::string(name) == k.name && (" " + std::string(k.locales) + " ").find(" " + code + " ") !=
                                           std::string::npos)
      reasons |= k.reason;
  return reasons;
}

struct outcome {
  std::vector<std::string> unexplained;
  std::vector<std::string> needless;  // a listed reason that explains nothing
  int locales = 0;
};

// The name against the C library in every locale the machine has.
void compare(const char *name, xf_routine routine, bool money) {
  outcome o;
  for (int id = 1; id <= 136; ++id) {
    const std::string code = std::string(ZAVlocaleData[id - 1][4].text, 2) + "_" +
                             std::string(ZAVlocaleData[id - 1][5].text, 2);
    locale_t loc = newlocale(LC_ALL_MASK, (code + ".UTF-8").c_str(), nullptr);
    if (loc == nullptr) continue;  // not on this machine
    ++o.locales;
    locale_t old = uselocale(loc);  // also the codeset of our output: UTF-8
    xfmt::platform::reload_environment();             // which is read once
    const unsigned reasons = listed(name, code);
    unsigned needed = 0;
    auto check = [&](const std::string &a, const std::string &b, const std::string &what) {
      if (a == b) return;
      if (!agree(a, b, reasons)) {
        o.unexplained.push_back(std::string(name) + " " + code + " " + what + ": ours [" + a +
                                "] C library [" + b + "]");
        return;
      }
      for (unsigned r = 1; r <= sign_space; r <<= 1)
        if ((reasons & r) && !agree(a, b, reasons & ~r)) needed |= r;
    };
    for (int d : {0, 2})
      for (double v : values)
        // 32 bytes do not hold 700 000 000 000 000,00 with 3-byte group
        // marks and a symbol: the money field then drops its grouping.
        if (!money || v < 1e12) check(ours(routine, id, v, d), theirs(money, loc, v, d),
              std::to_string(v) + " d" + std::to_string(d));
    for (const tie &t : ties) {
      const double away =
          money ? t.value : std::nextafter(t.value, std::copysign(INFINITY, t.value));
      check(ours(routine, id, t.value, t.decimals), theirs(money, loc, away, t.decimals),
            "tie " + std::to_string(t.value) + " d" + std::to_string(t.decimals));
    }
    if ((reasons & ~needed) != 0)
      o.needless.push_back(std::string(name) + " " + code + " reasons " +
                           std::to_string(reasons & ~needed));
    uselocale(old);
    xfmt::platform::reload_environment();
    freelocale(loc);
  }
  EXPECT_GT(o.locales, 100) << "locales-all is not installed";
  for (const auto &s : o.unexplained) ADD_FAILURE() << "unlisted difference: " << s;
  for (const auto &s : o.needless) ADD_FAILURE() << "listed but no longer different: " << s;
}

TEST(numbers_libc, nlnum_matches_grouped_printf) { compare("NLNUM", nlnum, false); }
TEST(numbers_libc, nlmny_matches_strfmon) { compare("NLMNY", nlmny, true); }

}  // namespace
