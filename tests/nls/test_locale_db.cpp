// getZAVLocDB and the internal accessor: record selection by id and through
// ZAV_LOCALE, buffer handling, and the fixed order of the 136 records.
#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "nls/locale.hpp"
#include "xfmt/xfmt.h"
#include "catalog/platform.hpp"

namespace {

struct expected_record {
  const char *name;
  const char *code;
};

// Ids are positions in this list; callers store them, so it never changes.
const expected_record kRecords[136] = {
    {"Afrikaans_SouthAfrica", "af_ZA"}, {"Albanian_Albania", "sq_AL"}, {"Arabic_Algeria", "ar_DZ"},
    {"Arabic_Bahrain", "ar_BH"}, {"Arabic_Egypt", "ar_EG"}, {"Arabic_India", "ar_IN"},
    {"Arabic_Iraq", "ar_IQ"}, {"Arabic_Jordan", "ar_JO"}, {"Arabic_Kuwait", "ar_KW"},
    {"Arabic_Lebanon", "ar_LB"}, {"Arabic_Libya", "ar_LY"}, {"Arabic_Morocco", "ar_MA"},
    {"Arabic_Oman", "ar_OM"}, {"Arabic_Qatar", "ar_QA"}, {"Arabic_SaudiArabia", "ar_SA"},
    {"Arabic_Sudan", "ar_SD"}, {"Arabic_Syria", "ar_SY"}, {"Arabic_Tunisia", "ar_TN"},
    {"Arabic_UnitedArabEmirates", "ar_AE"}, {"Arabic_Yemen", "ar_YE"}, {"Bengali_India", "bn_IN"},
    {"Bosnian_BosniaHerzegovina", "bs_BA"}, {"Bulgarian_Bulgaria", "bg_BG"},
    {"Belarusian_Belarus", "be_BY"}, {"Catalan_Spain", "ca_ES"}, {"Chinese_China", "zh_CN"},
    {"Chinese_HongKong", "zh_HK"}, {"Chinese_Macau", "zh_MO"}, {"Chinese_Singapore", "zh_SG"},
    {"Chinese_Taiwan", "zh_TW"}, {"Cornish_UnitedKingdom", "kw_GB"},
    {"Croatian_BosniaHerzegovina", "hr_BA"}, {"Croatian_Croatia", "hr_HR"},
    {"Czech_CzechRepublic", "cs_CZ"}, {"Danish_Denmark", "da_DK"}, {"Dutch_Belgium", "nl_BE"},
    {"Dutch_Netherlands", "nl_NL"}, {"English_Australia", "en_AU"}, {"English_Belgium", "en_BE"},
    {"English_Botswana", "en_BW"}, {"English_Canada", "en_CA"}, {"English_Caribbean", "en_CB"},
    {"English_HongKong", "en_HK"}, {"English_India", "en_IN"}, {"English_Ireland", "en_IE"},
    {"English_Jamaica", "en_JM"}, {"English_Malta", "en_MT"}, {"English_NewZealand", "en_NZ"},
    {"English_Philippines", "en_PH"}, {"English_Singapore", "en_SG"},
    {"English_SouthAfrica", "en_ZA"}, {"English_UnitedKingdom", "en_GB"},
    {"English_UnitedStates", "en_US"}, {"English_Zimbabwe", "en_ZW"},
    {"Estonian_Estonia", "et_EE"}, {"Faeroese_FaroeIsland", "fo_FO"}, {"Finnish_Finland", "fi_FI"},
    {"French_Belgium", "fr_BE"}, {"French_Canada", "fr_CA"}, {"French_France", "fr_FR"},
    {"French_Luxembourg", "fr_LU"}, {"French_Switzerland", "fr_CH"}, {"German_Austria", "de_AT"},
    {"German_Germany", "de_DE"}, {"German_Liechtenstein", "de_LI"}, {"German_Luxembourg", "de_LU"},
    {"German_Switzerland", "de_CH"}, {"Greek_Cyprus", "el_CY"}, {"Greek_Greece", "el_GR"},
    {"Greenlandic_Greenland", "kl_GL"}, {"Hebrew_Israel", "he_IL"}, {"Hindi_India", "hi_IN"},
    {"Hungarian_Hungary", "hu_HU"}, {"Icelandic_Iceland", "is_IS"},
    {"Indonesian_Indonesia", "id_ID"}, {"Irish_Ireland", "ga_IE"}, {"Italian_Italy", "it_IT"},
    {"Italian_Switzerland", "it_CH"}, {"Japanese_Japan", "ja_JP"}, {"Korean_SouthKorea", "ko_KR"},
    {"Latvian_Latvia", "lv_LV"}, {"Lithuanian_Lithuania", "lt_LT"},
    {"Macedonian_Macedonia", "mk_MK"}, {"Malay_Malaysia", "ms_MY"}, {"Maltese_Malta", "mt_MT"},
    {"Basque_Spain", "eu_ES"}, {"Marathi_India", "mr_IN"}, {"NorwegianBokmal_Norway", "nb_NO"},
    {"NorwegianNynorsk_Norway", "nn_NO"}, {"Norwegian_Norway", "no_NO"},
    {"Persian_India", "fa_IN"}, {"Persian_Iran", "fa_IR"}, {"Polish_Poland", "pl_PL"},
    {"Portuguese_Brazil", "pt_BR"}, {"Portuguese_Portugal", "pt_PT"},
    {"Romanian_Romania", "ro_RO"}, {"Russian_Russia", "ru_RU"}, {"Russian_Ukraine", "ru_UA"},
    {"Serbian_BosniaHerzegovina", "sr_BA"}, {"Serbian_Montenegro", "sr_ME"},
    {"Serbian_Serbia", "sr_RS"}, {"Kazakh_Kazakhstan", "kk_KZ"},
    {"SerbianLatin_BosniaHerzegovina", "sh_BA"}, {"SerbianLatin_Montenegro", "sh_ME"},
    {"SerbianLatin_Serbia", "sh_RS"}, {"Slovak_Slovakia", "sk_SK"},
    {"Slovenian_Slovenia", "sl_SI"}, {"Spanish_Argentina", "es_AR"}, {"Spanish_Bolivia", "es_BO"},
    {"Spanish_Chile", "es_CL"}, {"Spanish_Colombia", "es_CO"}, {"Spanish_CostaRica", "es_CR"},
    {"Spanish_DominicanRepublic", "es_DO"}, {"Spanish_Ecuador", "es_EC"},
    {"Spanish_ElSalvador", "es_SV"}, {"Spanish_Guatemala", "es_GT"}, {"Spanish_Honduras", "es_HN"},
    {"Spanish_Mexico", "es_MX"}, {"Spanish_Nicaragua", "es_NI"}, {"Spanish_Panama", "es_PA"},
    {"Spanish_Paraguay", "es_PY"}, {"Spanish_Peru", "es_PE"}, {"Spanish_PuertoRico", "es_PR"},
    {"Spanish_Spain", "es_ES"}, {"Spanish_UnitedStates", "es_US"}, {"Spanish_Uruguay", "es_UY"},
    {"Spanish_Venezuela", "es_VE"}, {"Swedish_Sweden", "sv_SE"}, {"Tamil_India", "ta_IN"},
    {"Telugu_India", "te_IN"}, {"Thai_Thailand", "th_TH"}, {"Turkish_Turkey", "tr_TR"},
    {"Ukrainian_Ukraine", "uk_UA"}, {"Vietnamese_Vietnam", "vi_VN"}, {"Polish_XX", "pl_XX"},
    {"Chinese_XX", "zh_XX"},
};

// Sets ZAV_LOCALE (or unsets it) for one test and restores it afterwards.
class zav_locale_env {
 public:
  explicit zav_locale_env(const char *value) {
    if (const char *old = std::getenv("ZAV_LOCALE")) saved_ = old;
    if (value) setenv("ZAV_LOCALE", value, 1);
    else unsetenv("ZAV_LOCALE");
    xfmt::platform::reload_environment();  // ZAV_LOCALE is read once
  }
  ~zav_locale_env() {
    if (saved_) setenv("ZAV_LOCALE", saved_->c_str(), 1);
    else unsetenv("ZAV_LOCALE");
    xfmt::platform::reload_environment();
  }
  zav_locale_env(const zav_locale_env &) = delete;
  zav_locale_env &operator=(const zav_locale_env &) = delete;

 private:
  std::optional<std::string> saved_;
};

// getZAVLocDB into a 160-byte buffer; the text, or "<-1>" on failure.
std::string db(int field, int id, int capacity = 160) {
  std::vector<char> buf(static_cast<size_t>(capacity > 0 ? capacity : 1), 'x');
  int n = getZAVLocDB(buf.data(), capacity, field, id);
  if (n < 0) return "<" + std::to_string(n) + ">";
  return std::string(buf.data(), static_cast<size_t>(n));
}

TEST(locale_records, ids_names_and_codes_in_order) {
  for (int id = 1; id <= 136; ++id) {
    const expected_record &r = kRecords[id - 1];
    std::string code = r.code;
    EXPECT_EQ(db(0, id), r.name) << id;
    EXPECT_EQ(db(4, id), code.substr(0, 2)) << id;
    EXPECT_EQ(db(5, id), code.substr(3, 2)) << id;
    EXPECT_EQ(db(2, id), code.substr(0, 2)) << id;
  }
}

TEST(get_zav_loc_db, by_id) {
  EXPECT_EQ(db(0, 1), "Afrikaans_SouthAfrica");
  EXPECT_EQ(db(0, 136), "Chinese_XX");
  EXPECT_EQ(db(158, 1), "<U00A0>");
  EXPECT_EQ(db(160, 1), "");                 // empty field: 0
  EXPECT_EQ(db(8, 53), "");
}

TEST(get_zav_loc_db, field_longer_than_capacity_leaves_zeros) {
  char buf[8];
  std::fill(std::begin(buf), std::end(buf), 'x');
  EXPECT_EQ(getZAVLocDB(buf, 3, 0, 1), -1);  // "Afrikaans_SouthAfrica" into 3 bytes
  EXPECT_EQ(buf[0], 0);
  EXPECT_EQ(buf[1], 0);
  EXPECT_EQ(buf[2], 0);
  EXPECT_EQ(buf[3], 'x');                    // nothing past the capacity
  buf[2] = 'x';
  EXPECT_EQ(getZAVLocDB(buf, 2, 2, 1), 2);   // "af" fits exactly
  EXPECT_EQ(std::string(buf, 2), "af");
  EXPECT_EQ(buf[2], 'x');
}

TEST(get_zav_loc_db, zero_fills_the_whole_capacity) {
  char buf[160];
  std::fill(std::begin(buf), std::end(buf), 'x');
  EXPECT_EQ(getZAVLocDB(buf, 160, 2, 1), 2);
  for (int i = 2; i < 160; ++i) ASSERT_EQ(buf[i], 0) << i;
}

TEST(get_zav_loc_db, bad_arguments) {
  char buf[4] = {'x', 'x', 'x', 'x'};
  EXPECT_EQ(getZAVLocDB(buf, 4, 189, 1), -1);
  EXPECT_EQ(getZAVLocDB(buf, 4, -1, 1), -1);
  EXPECT_EQ(buf[0], 0);
  EXPECT_EQ(getZAVLocDB(buf, 0, 160, 1), 0);   // an empty field fits in nothing
  EXPECT_EQ(getZAVLocDB(buf, -1, 160, 1), -1);
  EXPECT_EQ(getZAVLocDB(nullptr, 160, 0, 1), -1);
  EXPECT_EQ(getZAVLocDB(nullptr, 160, 160, 1), 0);
}

TEST(zav_locale, unset_means_en_us) {
  zav_locale_env env(nullptr);
  EXPECT_EQ(db(0, 0), "English_UnitedStates");
  EXPECT_EQ(db(0, 137), "English_UnitedStates");
  EXPECT_EQ(db(0, -5), "English_UnitedStates");
  EXPECT_EQ(xfmt::nls::resolve_locale_id(0), 53);
}

TEST(zav_locale, only_positions_0_1_3_4_count) {
  for (const char *v : {"de-CH", "de_CH.UTF-8", "DExCH", "de_ch", "DE_CH@euro"}) {
    zav_locale_env env(v);
    EXPECT_EQ(db(0, 0), "German_Switzerland") << v;
    EXPECT_EQ(xfmt::nls::resolve_locale_id(0), 67) << v;
  }
}

TEST(zav_locale, no_match) {
  for (const char *v : {"German_Switzerland", "", "de", "de_C", "xx_YY", "iw_IL"}) {
    zav_locale_env env(v);
    EXPECT_EQ(db(0, 0), "<-1>") << v;
    EXPECT_EQ(xfmt::nls::resolve_locale_id(0), 0) << v;
    EXPECT_EQ(db(0, 53), "English_UnitedStates") << v;   // an id still works
  }
}

TEST(zav_locale, fixed_codes_and_first_match) {
  {
    zav_locale_env env("pl_XX");
    EXPECT_EQ(xfmt::nls::resolve_locale_id(0), 135);
  }
  {
    zav_locale_env env("zh_XX");
    EXPECT_EQ(xfmt::nls::resolve_locale_id(0), 136);
  }
  {
    zav_locale_env env("sh_RS");
    EXPECT_EQ(xfmt::nls::resolve_locale_id(0), 105);
  }
}

TEST(zav_locale, every_record_reachable) {
  for (int id = 1; id <= 136; ++id) {
    std::string code = kRecords[id - 1].code;
    std::string mixed = code;
    mixed[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(mixed[0])));
    mixed[4] = static_cast<char>(std::tolower(static_cast<unsigned char>(mixed[4])));
    mixed[2] = '.';
    for (const std::string &v : {code, mixed, code + ".ISO8859-1"}) {
      zav_locale_env env(v.c_str());
      EXPECT_EQ(xfmt::nls::resolve_locale_id(0), id) << v;
    }
  }
}

TEST(zav_locale, read_once_until_reloaded) {
  zav_locale_env env("fr_FR");
  EXPECT_EQ(db(0, 0), "French_France");
  setenv("ZAV_LOCALE", "ja_JP", 1);
  EXPECT_EQ(db(0, 0), "French_France");
  xfmt::platform::reload_environment();
  EXPECT_EQ(db(0, 0), "Japanese_Japan");
}

TEST(locale_accessor, frame_and_fields) {
  zav_locale_env env("de_DE");
  xf_frame f{};
  f.option_word = 0x10000u | 79u;                      // validate bit does not disturb
  EXPECT_EQ(xfmt::nls::frame_locale_id(&f), 79);
  f.option_word = 0x12345u << 16;                      // locale bits zero
  EXPECT_EQ(xfmt::nls::frame_locale_id(&f), 64);
  f.option_word = 137;
  EXPECT_EQ(xfmt::nls::frame_locale_id(&f), 64);

  EXPECT_EQ(xfmt::nls::locale_field(1, 0), "Afrikaans_SouthAfrica");
  EXPECT_EQ(xfmt::nls::locale_field(1, 158), "<U00A0>");  // escapes stay
  EXPECT_EQ(xfmt::nls::locale_field(1, 160), "");
  EXPECT_EQ(xfmt::nls::locale_field(0, 0), "");
  EXPECT_EQ(xfmt::nls::locale_field(137, 0), "");
  EXPECT_EQ(xfmt::nls::locale_field(1, 189), "");
  EXPECT_TRUE(xfmt::nls::locale_field_ok(1, 160));
  EXPECT_TRUE(xfmt::nls::locale_field_ok(136, 188));
  EXPECT_FALSE(xfmt::nls::locale_field_ok(0, 0));
  EXPECT_FALSE(xfmt::nls::locale_field_ok(137, 0));
  EXPECT_FALSE(xfmt::nls::locale_field_ok(1, -1));
  EXPECT_FALSE(xfmt::nls::locale_field_ok(1, 189));
}

}  // namespace
