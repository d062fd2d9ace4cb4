// The 69 national date informats @<lang>DFDE, @<lang>DFMY, @<lang>DFDT:
// the examples of each shape, every month name of every language in both
// encodings, refusals (another language's month, a day that does not
// exist, trailing text), EUR following the frame's locale, and round trips
// through the national date formats' month names.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "datetime/calendar.hpp"
#include "informats/informat_run.hpp"
#include "nls/locale.hpp"
#include "oracle/text_oracle.hpp"

namespace {

using xfmt::datetime::days_from_ymd;
using xfmt::test::frame_box;
using xfmt::test::hex;
using xfmt::test::num;
using xfmt::test::run_informat;
using xfmt::oracle::unicode_to_utf8;


struct language {
  const char *prefix;
  const char *locale;  // language_COUNTRY of its record
  xf_routine de, dt, my;
};

#define LANG(p, P, loc) {#P, loc, zifm##p##de, zifm##p##dt, zifm##p##my}
const language languages[] = {
    LANG(afr, AFR, "af_ZA"), LANG(cat, CAT, "ca_ES"), LANG(cro, CRO, "hr_HR"), LANG(csy, CSY, "cs_CZ"),
    LANG(dan, DAN, "da_DK"), LANG(des, DES, "de_CH"), LANG(deu, DEU, "de_DE"), LANG(eng, ENG, "en_GB"),
    LANG(esp, ESP, "es_ES"), LANG(fin, FIN, "fi_FI"), LANG(fra, FRA, "fr_FR"), LANG(frs, FRS, "fr_CH"),
    LANG(hun, HUN, "hu_HU"), LANG(ita, ITA, "it_IT"), LANG(mac, MAC, "mk_MK"), LANG(nld, NLD, "nl_NL"),
    LANG(nor, NOR, "nb_NO"), LANG(pol, POL, "pl_PL"), LANG(ptg, PTG, "pt_PT"), LANG(rus, RUS, "ru_RU"),
    LANG(slo, SLO, "sl_SI"), LANG(sve, SVE, "sv_SE"),
};
#undef LANG

int record_id(const char *locale) {
  char name[6];
  for (int i = 0; i < 5; ++i) name[i] = locale[i];
  uint32_t id = 0;
  EXPECT_EQ(LocnameToID(name, 5, &id), 0u) << locale;
  return static_cast<int>(id);
}

uint64_t at(int64_t y, int32_t m, int32_t d, int64_t h = 0, int64_t mi = 0, double s = 0) {
  return num(static_cast<double>(days_from_ymd(y, m, d)) * (h < 0 ? 1.0 : 86400.0) +
             static_cast<double>((h < 0 ? 0 : h) * 3600 + mi * 60) + s);
}
uint64_t day(int64_t y, int32_t m, int32_t d) { return at(y, m, d, -1); }

// A field of the record as UTF-16 units ("<U00E4>" escapes resolved; the
// month names are all in the basic plane).
std::vector<uint16_t> code_points(std::string_view field) {
  std::vector<uint16_t> cps;
  for (size_t i = 0; i < field.size();) {
    if (field[i] == '<' && i + 1 < field.size() && field[i + 1] == 'U') {
      const size_t close = field.find('>', i);
      cps.push_back(static_cast<uint16_t>(std::stoul(std::string(field.substr(i + 2, close - i - 2)), nullptr, 16)));
      i = close + 1;
    } else {
      cps.push_back(static_cast<unsigned char>(field[i++]));
    }
  }
  return cps;
}

// The Windows-1252 bytes of the text; false when a character has none.
bool as_cp1252(const std::vector<uint16_t> &cps, std::string &out) {
  out.clear();
  for (uint16_t c : cps) {
    int byte = -1;
    for (int b = 0; b < 256 && byte < 0; ++b)
      if (wlt1unic[b] == c) byte = b;
    if (byte < 0) return false;
    out.push_back(static_cast<char>(byte));
  }
  return true;
}

// Every name of every month, in UTF-8 and (where the page has the letters)
// Windows-1252, upper and lower case, reads as its month in all three shapes.
TEST(NationalDateInformats, EveryMonthNameOfEveryLanguage) {
  for (const language &l : languages) {
    const int id = record_id(l.locale);
    for (int m = 0; m < 12; ++m) {
      for (int field : {59, 71, 83, 95}) {
        const auto cps = code_points(xfmt::nls::locale_field(id, field + m));
        std::vector<std::string> forms{unicode_to_utf8(cps, 1024).bytes};
        std::string single;
        if (as_cp1252(cps, single)) forms.push_back(single);
        std::vector<uint16_t> upper = cps;
        for (uint16_t &c : upper) {
          if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7) || (c >= 0x430 && c <= 0x44F)) c -= 32;
          else if (c >= 0x450 && c <= 0x45F) c -= 80;
        }
        forms.push_back(unicode_to_utf8(upper, 1024).bytes);
        for (const std::string &name : forms) {
          const std::string date = "15 " + name + " 2023";
          EXPECT_EQ(hex(run_informat(l.de, date, 40).bits), hex(day(2023, m + 1, 15))) << l.prefix << " [" << date << "]";
          EXPECT_EQ(hex(run_informat(l.my, name + " 23", 40).bits), hex(day(2023, m + 1, 1))) << l.prefix << " [" << name << "]";
          EXPECT_EQ(hex(run_informat(l.dt, "15" + name + "2023 08:05", 40).bits), hex(at(2023, m + 1, 15, 8, 5)))
              << l.prefix << " [" << name << "]";
        }
      }
    }
  }
}

// The national formats write month names the informats of the language read:
// NLDATEMN's name of every month, and NLDATE's whole date where the
// language writes day, month name and year with nothing else.
TEST(NationalDateInformats, RoundTripThroughNationalFormats) {
  for (const language &l : languages) {
    const int id = record_id(l.locale);
    const std::string_view pattern = xfmt::nls::locale_field(id, 28);
    // Dates of day, month name and year with only blanks and points between
    // them; patterns with words ("de") or text after the year are not DFDE's.
    const bool day_first = pattern == "%d %B %Y" || pattern == "%#d %B %Y" || pattern == "%#d. %B %Y";
    for (int m = 1; m <= 12; ++m) {
      const double v = static_cast<double>(days_from_ymd(2023, m, 15));
      for (xf_routine nl : {nldatemn, nldate}) {
        if (nl == nldate && !day_first) continue;
        frame_box b = frame_box::number(v, 60, 0, 120);
        b.f.option_word = static_cast<uint64_t>(id);
        b.f.requested_output_encoding = XF_ENC_UTF16LE;
        ASSERT_EQ(nl(&b.f), XF_OK) << l.prefix;
        std::vector<uint16_t> units;
        for (uint32_t i = 0; i + 1 < b.f.output_length; i += 2) units.push_back(static_cast<uint16_t>(b.out[i] | b.out[i + 1] << 8));
        std::string text = unicode_to_utf8(units, 1024).bytes;
        while (!text.empty() && text.back() == ' ') text.pop_back();
        while (!text.empty() && text.front() == ' ') text.erase(0, 1);
        if (nl == nldatemn) text = "15 " + text + " 2023";
        EXPECT_EQ(hex(run_informat(l.de, text, 40).bits), hex(num(v))) << l.prefix << " [" << text << "]";
      }
    }
  }
}

// The month keys the informats filter names with are generated from the
// locale database; a change of the database needs the generator run again.
TEST(NationalDateInformats, MonthKeysMatchTheLocaleDatabase) {
  std::string root = XFMT_SOURCE_DIR;
  if (std::system("command -v python3 >/dev/null 2>&1") != 0) GTEST_SKIP() << "python3 missing";
  std::string cmd = "cd '" + root + "' && python3 tools/gen/gen_month_keys.py --check";
  EXPECT_EQ(std::system(cmd.c_str()), 0);
}

}  // namespace
