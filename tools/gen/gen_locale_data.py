#!/usr/bin/env python3
"""Writes src/nls/locale_data.cpp: the 136 locale records of 189 fields, and
src/nls/locale_fields.hpp: one name per field position, for the C++ to use
instead of bare field numbers.

Sources, all read at development time only:
  - the C library's locale sources, /usr/share/i18n/locales/* (Debian package
    `locales`): month and weekday names, AM/PM, the numeric date order and
    separator, the 24-hour time, monetary and numeric marks, grouping, sign
    positions, paper size;
  - CLDR as ICU ships it (Debian package `libicu-dev`), read through the small
    helper icu_dump.cpp, compiled here: long, medium and full date patterns,
    time patterns, year-month, month-day, year and year-quarter patterns,
    quarter names, stand-alone weekday names, number, currency and percent
    pictures, AM/PM where the C library has none, and the currency of the
    countries the C library has no locale for.

    python3 tools/gen/gen_locale_data.py [--out FILE] [--fields-out FILE]

Locales the C library lacks take the conventions of the nearest real locale
(NEAREST below): Chinese_Macau from zh_HK with the pataca; Croatian_Bosnia
from hr_HR with the money of bs_BA; English_Belgium from en_GB with the money
and numbers of nl_BE; English_Caribbean from en_AG; English_Jamaica from en_AG
with the Jamaican dollar; English_Malta from en_GB with the money and numbers
of mt_MT; Norwegian_Norway from nb_NO; Persian_India from fa_IR with the money
and numbers of hi_IN; Serbian_Bosnia from sr_RS with the money of bs_BA;
SerbianLatin_* from sr_RS@latin (with the money of bs_BA and sr_ME for Bosnia
and Montenegro); Polish_XX from pl_PL; Chinese_XX from zh_CN.
"""
import argparse
import hashlib
import os
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
sys.path.insert(0, HERE)
import glibc_locale as glibc  # noqa: E402

FIELDS = 189

# The name of each field position, as the C++ reads it (namespace lf). A run
# of fields (months, weekdays, quarters, fonts) is named by its first field.
FIELD_NAMES = [
    (0, "full_name", "Language_Country"),
    (1, "language_name", ""),
    (2, "language_code", "two letters, lower case"),
    (3, "country_name", ""),
    (4, "match_language", "language code matched against ZAV_LOCALE"),
    (5, "match_country", "country code matched against ZAV_LOCALE"),
    (6, "date_order", "\"DMY\", \"MDY\" or \"YMD\""),
    (7, "paper_name", "\"A4\" or \"LETTER\""),
    (8, "unused_8", "8-12 empty in every record"),
    (13, "default_date_format", ""),
    (14, "default_datetime_format", ""),
    (15, "default_time_format", ""),
    (16, "default_number_format", ""),
    (17, "default_percent_format", ""),
    (18, "device_font_1", "18-27: ten device font names"),
    (28, "date_default", "date patterns"),
    (29, "date_short", ""),
    (30, "date_medium", ""),
    (31, "date_long", ""),
    (32, "date_weekday_long", ""),
    (33, "date_weekday_short", ""),
    (34, "year_month_long", ""),
    (35, "year_month_short", ""),
    (36, "month_day_long", ""),
    (37, "month_day_short", ""),
    (38, "year_long", ""),
    (39, "year_short", ""),
    (40, "year_quarter_long", ""),
    (41, "year_quarter_short", ""),
    (42, "year_week_long", ""),
    (43, "year_week_short", ""),
    (44, "datetime_default", "datetime patterns"),
    (45, "datetime_short", ""),
    (46, "datetime_24_hour", ""),
    (47, "datetime_numeric_date", ""),
    (48, "datetime_medium", ""),
    (49, "datetime_long", ""),
    (50, "datetime_weekday_long", ""),
    (51, "datetime_weekday_short", ""),
    (52, "time_default", "time patterns"),
    (53, "time_24_hour", ""),
    (54, "time_without_seconds", ""),
    (55, "time_with_seconds", ""),
    (56, "time_with_zone", ""),
    (57, "time_with_zone_2", ""),
    (58, "date_and_time", "\"%x %X\""),
    (59, "month_abbr_jan", "59-70"),
    (71, "month_full_jan", "71-82"),
    (83, "month_abbr_2_jan", "83-94, second set"),
    (95, "month_full_2_jan", "95-106, second set"),
    (107, "weekday_abbr_sun", "107-113, Sunday first"),
    (114, "weekday_full_sun", "114-120"),
    (121, "weekday_abbr_2_sun", "121-127, second set"),
    (128, "weekday_full_2_sun", "128-134, second set"),
    (135, "quarter_abbr_1", "135-138"),
    (139, "quarter_full_1", "139-142"),
    (143, "quarter_abbr_2_1", "143-146, second set"),
    (147, "quarter_full_2_1", "147-150, second set"),
    (151, "am_marker", ""),
    (152, "pm_marker", ""),
    (153, "date_separator", ""),
    (154, "digit_code", "\"0\", \"1\" or \"6\""),
    (155, "currency_code", "ISO 4217"),
    (156, "currency_symbol", "local"),
    (157, "money_decimal_point", ""),
    (158, "money_thousands_separator", ""),
    (159, "money_grouping", ""),
    (160, "money_positive_sign", ""),
    (161, "money_negative_sign", ""),
    (162, "money_international_fraction_digits", ""),
    (163, "money_fraction_digits", ""),
    (164, "money_symbol_precedes_positive", "164-169: the six money flags, in this order"),
    (165, "money_space_positive", ""),
    (166, "money_symbol_precedes_negative", ""),
    (167, "money_space_negative", ""),
    (168, "money_positive_sign_position", ""),
    (169, "money_negative_sign_position", ""),
    (170, "money_picture_local", ""),
    (171, "money_picture_neutral", ""),
    (172, "decimal_point", ""),
    (173, "thousands_separator", ""),
    (174, "grouping", ""),
    (175, "positive_sign", ""),
    (176, "negative_sign", ""),
    (177, "symbol_precedes_positive", "177-182: the six flags again, for plain numbers"),
    (178, "space_positive", ""),
    (179, "symbol_precedes_negative", ""),
    (180, "space_negative", ""),
    (181, "positive_sign_position", ""),
    (182, "negative_sign_position", ""),
    (183, "number_picture_local", ""),
    (184, "number_picture_neutral", ""),
    (185, "percent_picture_local", ""),
    (186, "percent_picture_neutral", ""),
    (187, "paper_height_mm", ""),
    (188, "paper_width_mm", ""),
]

# code -> where each kind of data comes from when it is not the code itself.
#   time: LC_TIME and LC_PAPER; money: LC_MONETARY; num: LC_NUMERIC;
#   icu: the ICU locale id; cur: take the currency code and symbol from ICU.
NEAREST = {
    "zh_MO": dict(time="zh_HK", money="zh_HK", num="zh_HK", icu="zh_Hant_MO", cur=True),
    "hr_BA": dict(time="hr_HR", money="bs_BA", num="hr_HR", icu="hr_BA"),
    "en_BE": dict(time="en_GB", money="nl_BE", num="nl_BE", icu="en_BE"),
    "en_CB": dict(time="en_AG", money="en_AG", num="en_AG", icu="en_AG"),
    "en_JM": dict(time="en_AG", money="en_AG", num="en_AG", icu="en_JM", cur=True),
    "en_MT": dict(time="en_GB", money="mt_MT", num="mt_MT", icu="en_MT"),
    "no_NO": dict(time="nb_NO", money="nb_NO", num="nb_NO", icu="nb_NO"),
    "fa_IN": dict(time="fa_IR", money="hi_IN", num="hi_IN", icu="fa_IR"),
    "sr_BA": dict(time="sr_RS", money="bs_BA", num="sr_RS", icu="sr_Cyrl_BA"),
    "sh_BA": dict(time="sr_RS@latin", money="bs_BA", num="sr_RS@latin", icu="sr_Latn_BA"),
    "sh_ME": dict(time="sr_RS@latin", money="sr_ME", num="sr_RS@latin", icu="sr_Latn_ME"),
    "sh_RS": dict(time="sr_RS@latin", money="sr_RS@latin", num="sr_RS@latin", icu="sr_Latn_RS"),
    "pl_XX": dict(time="pl_PL", money="pl_PL", num="pl_PL", icu="pl_PL"),
    "zh_XX": dict(time="zh_CN", money="zh_CN", num="zh_CN", icu="zh_Hans_CN"),
}
# ICU ids where the plain code would pick another script or none.
ICU_ID = {
    "zh_CN": "zh_Hans_CN", "zh_SG": "zh_Hans_SG", "zh_HK": "zh_Hant_HK", "zh_TW": "zh_Hant_TW",
    "sr_RS": "sr_Cyrl_RS", "sr_ME": "sr_Cyrl_ME",
}

# Fields every record shares: default conversion names and device fonts.
COMMON = {13: "NLDATE16.", 14: "NLDATM24.", 15: "NLTIME8.", 16: "BEST12.", 17: "PERCENT12."}
FONTS = ["COMPLEX", "SIMPLEX", "ITALIC", "BRUSH", "SIMPLEX", "BRUSH", "SIMPLEX", "COMPLEX", "SWISS", "ITALIC"]

# Record 1 keeps these values whatever the sources say (the rest of it is
# generated like any other record).
RECORD1 = {
    6: "YMD", 7: "A4",
    28: "%d %B %Y", 29: "%Y-%m-%d", 30: "%d %b %Y", 31: "%d %B %Y", 32: "%A %d %B %Y",
    33: "%a %d %b %Y", 34: "%#B %Y", 35: "%#b %Y", 36: "%d %B", 37: "%d %b", 38: "%Y",
    39: "%y", 40: "%Q %Y", 41: "%q %Y", 42: "%Y-W%U", 43: "%y-W%U",
    44: "%d %B %Y %I:%M:%S %p", 45: "%d %b %Y %I:%M:%S %p", 46: "%d %B %Y %H:%M:%S",
    47: "%Y-%m-%d %I:%M:%S %p", 48: "%d %b %Y %I:%M:%S %p", 49: "%d %B %Y %I:%M:%S %p",
    50: "%A %d %B %Y %I:%M:%S %p", 51: "%a %d %b %Y %I:%M:%S %p", 52: "%I:%M:%S %p",
    53: "%H:%M:%S", 54: "%I:%M %p", 55: "%I:%M:%S %p", 56: "%I:%M:%S %p %Z",
    57: "%I:%M:%S %p %Z", 58: "%x %X",
    59: "Jan", 70: "Des", 71: "Januarie", 82: "Desember",
    107: "So", 113: "Sa", 114: "Sondag", 120: "Saterdag",
    135: "K1", 136: "K2", 137: "K3", 138: "K4",
    139: "1ste kwartaal", 140: "2de kwartaal", 141: "3de kwartaal", 142: "4de kwartaal",
    151: "vm.", 152: "nm.", 153: "-", 154: "0", 155: "ZAR", 156: "R", 157: ",",
    158: "\u00a0", 159: "3", 160: "", 161: "-", 162: "2", 163: "2",
    164: "1", 165: "0", 166: "1", 167: "0", 168: "1", 169: "1",
    170: "\u00a4#.##0,00", 171: "\u00a4#,##0.#", 172: ",", 173: "\u00a0", 174: "3",
    175: "", 176: "-", 177: "1", 178: "0", 179: "1", 180: "0", 181: "1", 182: "1",
    183: "#.##0,###", 184: "#,##0.#", 185: "#.##0%", 186: "#,##0.#%", 187: "297", 188: "210",
}
# Second set of abbreviated month names of record 1: the first set.
RECORD1_SAME = [(83 + i, 59 + i) for i in range(12)]


def read_tsv(name):
    with open(os.path.join(HERE, name), encoding="ascii") as f:
        return [l.rstrip("\n").split("\t") for l in f if l.strip() and not l.startswith("#")]


# ---------------------------------------------------------------- ICU

def icu_dump(ids):
    src = os.path.join(HERE, "icu_dump.cpp")
    with open(src, "rb") as f:
        tag = hashlib.sha256(f.read()).hexdigest()[:16]
    exe = os.path.join(tempfile.gettempdir(), f"xfmt_icu_dump_{tag}")
    if not os.path.exists(exe):
        flags = subprocess.check_output(["pkg-config", "--cflags", "--libs", "icu-i18n", "icu-uc"], text=True).split()
        subprocess.check_call(["c++", "-std=c++17", "-O1", src, "-o", exe + ".tmp"] + flags)
        os.replace(exe + ".tmp", exe)
    out = subprocess.check_output([exe] + sorted(set(ids)), text=True, encoding="utf-8")
    data = {}
    for line in out.split("\n"):
        if line:
            loc, key, val = line.split("\t", 2)
            data.setdefault(loc, {})[key] = val
    return data


# Letters of ICU date patterns and what they become; a run's length picks the
# form. "d" (one letter) is the unpadded day, "dd" the two-digit one, and so on.
class NoConversion(ValueError):
    """An ICU field the date expander has no conversion for."""


def icu_letter(ch, n, era):
    if ch in "yu":
        return ("%+y" if era else "%y") if n == 2 else ("%+Y" if era else "%Y")
    if ch == "M":
        return {1: "%#m", 2: "%m", 3: "%b", 4: "%B"}.get(n, "%b")
    if ch == "L":
        return {1: "%#m", 2: "%m", 3: "%#b", 4: "%#B"}.get(n, "%#b")
    if ch == "d":
        return "%#d" if n == 1 else "%d"
    if ch == "E":
        return "%A" if n == 4 else "%a"
    if ch == "c":
        return "%#A" if n == 4 else "%#a"
    if ch == "h":
        return "%#I" if n == 1 else "%I"
    if ch == "H":
        return "%#H" if n == 1 else "%H"
    if ch == "K":
        return "%L"
    if ch == "k":
        return "%#K" if n == 1 else "%K"
    if ch == "m":
        return "%M"
    if ch == "s":
        return "%S"
    if ch in "abB":
        return "%p"
    if ch in "zZvVOxX":
        return "%Z"
    if ch in "Qq":  # the quarter number alone has no conversion
        if n < 3:
            raise NoConversion(ch)
        return ("%Q" if n == 4 else "%q") if ch == "Q" else ("%#Q" if n == 4 else "%#q")
    if ch == "w":
        return "%U"
    if ch == "D":
        return "%j"
    if ch in "GS":   # era and fractions of a second: left out
        return ""
    raise ValueError(f"ICU pattern letter {ch!r}")


def from_icu(p, era=False):
    out, i, n = [], 0, len(p)
    while i < n:
        c = p[i]
        if c == "'":
            if i + 1 < n and p[i + 1] == "'":
                out.append("'")
                i += 2
                continue
            j = p.index("'", i + 1)
            out.append(p[i + 1:j].replace("%", "%%"))
            i = j + 1
        elif c.isascii() and c.isalpha():
            j = i
            while j < n and p[j] == c:
                j += 1
            out.append(icu_letter(c, j - i, era))
            i = j
        else:
            out.append("%%" if c == "%" else c)
            i += 1
    return tidy("".join(out))


def numeric_quarter(u, key, names, letters, era):
    """A pattern with the quarter number alone ("y年第Q季度"): the literal text
    around it that every quarter name of the set shares ("第" and "季度" of
    "第一季度") is taken into a quarter-name conversion ("%Y年%Q"). The widest
    such window wins; None when no window explains the names."""
    p = u[key]
    m = re.search(r"(?<![A-Za-z])Q{1,2}(?![A-Za-z])", p)
    if m is None:
        return None
    q = [u[f"{names}{i}"] for i in range(4)]
    before = re.search(r"[^A-Za-z']*$", p[:m.start()]).group(0)
    after = re.match(r"[^A-Za-z']*", p[m.end():]).group(0)
    for nb in range(len(before), -1, -1):
        for na in range(len(after), -1, -1):
            pre, suf = before[len(before) - nb:], after[:na]
            if (nb or na) and all(x.startswith(pre) and x.endswith(suf) and len(x) > nb + na for x in q):
                return from_icu(p[:m.start() - nb] + letters + p[m.end() + na:], era)
    return None


# Bidirectional marks are left out (single-byte code pages have none of them)
# and CLDR's narrow no-break space before AM/PM becomes a blank.
def tidy(p):
    p = p.replace("\u202f", " ").replace("\u200e", "").replace("\u200f", "").replace("\u061c", "")
    return re.sub(r" +", " ", p).strip()


# ---------------------------------------------------------------- C library

GLIBC_SIMPLE = set("aAbBdeHIjmMpSyYzZuwUWVgGT%")


def from_glibc(p):
    """A C-library strftime pattern in the letters the date expander knows."""
    out, i, n = [], 0, len(p)
    while i < n:
        c = p[i]
        if c != "%":
            out.append(c)
            i += 1
            continue
        i += 1
        nopad = False
        while i < n and p[i] in "-_0^#":
            nopad = nopad or p[i] in "-_"
            i += 1
        alt_era = False
        while i < n and p[i] in "EO":
            alt_era = alt_era or p[i] == "E"
            i += 1
        L = p[i]
        i += 1
        # "%Ey" is the year of the locale's era (Buddhist in Thailand).
        if alt_era and L in "yY":
            out.append("%+" + L)
            continue
        rep = {"h": "%b", "D": "%m/%d/%y", "F": "%Y-%m-%d", "R": "%H:%M", "r": "%I:%M:%S %p",
               "k": "%H", "l": "%I", "P": "%p", "n": " ", "t": " ", "C": "", "s": ""}.get(L)
        if rep is None:
            if L not in GLIBC_SIMPLE:
                raise ValueError(f"strftime letter {L!r} in {p!r}")
            rep = "%" + L
            if nopad and L in "dmHI":
                rep = "%#" + L
        out.append(rep)
    return tidy("".join(out))


def date_order(pat):
    pos = {}
    for m in re.finditer(r"%#?\+?([a-zA-Z])", pat):
        k = {"d": "D", "e": "D", "m": "M", "b": "M", "B": "M", "Y": "Y", "y": "Y"}.get(m.group(1))
        if k and k not in pos:
            pos[k] = m.start()
    if len(pos) != 3:
        return None
    return "".join(sorted(pos, key=pos.get))


def date_separator(pat):
    for c in re.sub(r"%#?[a-zA-Z%]", "", pat):
        if c in "-./":
            return c
    return None


# The narrow no-break space that newer locale sources use between digit groups
# exists in no single-byte code page; the no-break space does (0xA0 in the
# Latin and Windows pages), so groups stay apart after transcoding.
def separator(s):
    return s.replace("\u202f", "\u00a0")


def grouping(vals):
    g = [v for v in vals if isinstance(v, int)]
    if not g or g[0] <= 0:
        return "0"
    while len(g) > 1 and g[-1] == g[-2]:
        g.pop()
    return ";".join(str(v) for v in g)


# ---------------------------------------------------------------- pictures

def picture(p, local_decimal):
    """An ICU number picture (positive part), with the marks swapped to the
    locale's when its decimal mark is a comma."""
    p = p.split(";")[0]
    if local_decimal == ",":
        p = p.translate(str.maketrans({",": ".", ".": ","}))
    return tidy(p)


# ---------------------------------------------------------------- records

def first(vals, default=""):
    return vals[0] if vals and vals[0] is not None else default


def build_record(ident, full, code, icu):
    near = NEAREST.get(code, {})
    tloc = near.get("time", code)
    t = glibc.read_category(tloc, "LC_TIME")
    mon_ = glibc.read_category(near.get("money", code), "LC_MONETARY")
    num = glibc.read_category(near.get("num", code), "LC_NUMERIC")
    paper = glibc.read_category(tloc, "LC_PAPER")
    u = icu[near.get("icu", ICU_ID.get(code, code))]

    r = [""] * FIELDS
    lang, country = full.split("_", 1)
    r[0], r[1], r[3] = full, lang, country
    r[2] = r[4] = code[:2].lower()
    r[5] = code[3:].upper()
    for k, v in COMMON.items():
        r[k] = v
    r[18:28] = FONTS

    # Dates: the numeric form from the C library when it is numeric, else ICU's
    # short form with a four-digit year.
    d_fmt = from_glibc(first(t.get("d_fmt")))
    # When the C library counts years in the locale's era, so do the others.
    era = "%+" in d_fmt
    if re.search(r"%#?[aAbB]", d_fmt) or not re.search(r"%#?m", d_fmt) or not re.search(r"%#?[de]", d_fmt):
        d_fmt = from_icu(u["date_short"], era).replace("%y", "%Y")

    def icu(key, fallback=None):
        try:
            return from_icu(u[key], era)
        except NoConversion:
            return fallback

    r[6] = date_order(d_fmt)
    r[29] = d_fmt
    r[30] = icu("date_medium")
    r[31] = r[28] = icu("date_long")
    r[32] = icu("date_full")
    r[33] = r[32].replace("%A", "%a").replace("%B", "%b").replace("%#B", "%#b")
    r[34] = icu("skel_yMMMM")
    r[35] = icu("skel_yMMM")
    r[36] = icu("skel_MMMMd")
    r[37] = icu("skel_MMMd")
    r[38] = icu("skel_y")
    r[39] = icu("skel_yy")
    r[40] = icu("skel_yQQQQ") or numeric_quarter(u, "skel_yQQQQ", "q_wide", "QQQQ", era) or "%Q %Y"
    r[41] = icu("skel_yQQQ") or numeric_quarter(u, "skel_yQQQ", "q_abbr", "QQQ", era) or "%q %Y"
    r[42], r[43] = "%Y-W%U", "%y-W%U"

    # Times: 24-hour from the C library (its own if it is a 24-hour form);
    # the locale's usual clock from ICU.
    t_fmt = from_glibc(first(t.get("t_fmt"))).replace("%Z", "").strip()
    r[53] = t_fmt if re.search(r"%#?H|%T", t_fmt) else "%H:%M:%S"
    r[55] = r[52] = icu("time_medium")
    r[54] = icu("time_short")
    r[56] = r[57] = r[55] + " %Z"
    r[44] = r[31] + " " + r[55]
    r[45] = r[30] + " " + r[55]
    r[46] = r[31] + " " + r[53]
    r[47] = r[29] + " " + r[55]
    r[48] = r[30] + " " + r[55]
    r[49] = r[31] + " " + r[55]
    r[50] = r[32] + " " + r[55]
    r[51] = r[33] + " " + r[55]
    r[58] = "%x %X"

    # Names.
    abmon, mon = t["abmon"], t["mon"]
    ab_alt = t.get("ab_alt_mon") or abmon
    alt = t.get("alt_mon") or mon
    assert all(len(x) == 12 for x in (abmon, mon, ab_alt, alt)), code
    assert len(t["abday"]) == 7 and len(t["day"]) == 7, code
    r[59:71], r[71:83], r[83:95], r[95:107] = abmon, mon, ab_alt, alt
    r[107:114], r[114:121] = t["abday"], t["day"]
    r[121:128] = [u[f"wd_sa_abbr{i}"] for i in range(7)]
    r[128:135] = [u[f"wd_sa_wide{i}"] for i in range(7)]
    r[135:139] = [u[f"q_abbr{i}"] for i in range(4)]
    r[139:143] = [u[f"q_wide{i}"] for i in range(4)]
    r[143:147] = [u[f"q_sa_abbr{i}"] for i in range(4)]
    r[147:151] = [u[f"q_sa_wide{i}"] for i in range(4)]
    am_pm = t.get("am_pm") or ["", ""]
    if not am_pm[0] or not am_pm[1]:
        am_pm = [u["ampm0"], u["ampm1"]]
    r[151], r[152] = am_pm[0], am_pm[1]
    # Some sources pad names to a common width (" 1<U6708>" in Japanese);
    # the formats pad by themselves where a layout asks for it.
    r[59:153] = [str(x).strip() for x in r[59:153]]
    r[153] = date_separator(d_fmt) or date_separator(from_icu(u["date_short"])) or "/"
    r[154] = "0"

    # Money.
    if near.get("cur"):
        r[155], r[156] = u["cur_code"], u["cur_symbol"]
    else:
        r[155] = first(mon_.get("int_curr_symbol")).strip()
        r[156] = first(mon_.get("currency_symbol"))
    r[157] = first(mon_.get("mon_decimal_point"), ".")
    r[158] = separator(first(mon_.get("mon_thousands_sep")))
    r[159] = grouping(mon_.get("mon_grouping", []))
    r[160] = first(mon_.get("positive_sign"))
    r[161] = first(mon_.get("negative_sign"), "-")
    r[162] = str(first(mon_.get("int_frac_digits"), 2))
    r[163] = str(first(mon_.get("frac_digits"), 2))
    flags = ["p_cs_precedes", "p_sep_by_space", "n_cs_precedes", "n_sep_by_space", "p_sign_posn", "n_sign_posn"]
    defaults = [1, 0, 1, 0, 1, 1]
    for k, (f, d) in enumerate(zip(flags, defaults)):
        v = first(mon_.get(f), d)
        r[164 + k] = str(v if isinstance(v, int) and v >= 0 else d)
    r[170] = picture(u["num_currency"], r[157])
    r[171] = picture(u["num_currency"], ".")

    # Numbers.
    r[172] = first(num.get("decimal_point"), ".")
    r[173] = separator(first(num.get("thousands_sep")))
    r[174] = grouping(num.get("grouping", []))
    r[175], r[176] = r[160], r[161]
    r[177:183] = r[164:170]
    r[183] = picture(u["num_decimal"], r[172])
    r[184] = picture(u["num_decimal"], ".")
    r[185] = picture(u["num_percent"], r[172])
    r[186] = picture(u["num_percent"], ".")

    # Paper.
    h = first(paper.get("height"), 297)
    r[7], r[187], r[188] = ("LETTER", "279", "216") if h == 279 else ("A4", "297", "210")

    if ident == 1:
        for k, v in RECORD1.items():
            r[k] = v
        for k, src in RECORD1_SAME:
            r[k] = r[src]
    return r


# ---------------------------------------------------------------- output

def escape(s, field):
    out = []
    for ch in s:
        cp = ord(ch)
        if cp < 0x80:
            out.append(ch)
        elif cp == 0xA4 and field == 170:
            out.append("<u00a4>")
        elif cp > 0xFFFF:
            cp -= 0x10000
            out.append("<U%04X><U%04X>" % (0xD800 + (cp >> 10), 0xDC00 + (cp & 0x3FF)))
        else:
            out.append("<U%04X>" % cp)
    return "".join(out)


def locales_version():
    try:
        return subprocess.check_output(["dpkg-query", "-W", "-f=${Version}", "locales"], text=True,
                                       stderr=subprocess.DEVNULL).strip()
    except (OSError, subprocess.CalledProcessError):
        return "unknown"


def c_string(s):
    return '"' + s.replace("\\", "\\\\").replace('"', '\\"').replace("??", '?""?') + '"'


def fields_header():
    positions = [k for k, _, _ in FIELD_NAMES]
    assert positions == sorted(set(positions)) and positions[0] == 0 and positions[-1] == FIELDS - 1
    out = ["// Generated by tools/gen/gen_locale_data.py; regenerate with: python3 tools/gen/gen_locale_data.py\n",
           "// The position of each field of a locale record (ZAVlocaleData[id - 1][field]). A run of\n",
           "// fields (months, weekdays, quarters) is named by its first field: month_full_jan + 11 is\n",
           "// December. Do not edit: change FIELD_NAMES in the generator and rerun it.\n",
           "#pragma once\n\n",
           "namespace xfmt::nls::lf {\n\n",
           "enum : int {\n"]
    for k, name, note in FIELD_NAMES:
        line = f"    {name} = {k},"
        out.append(f"{line:<48}// {note}\n" if note else line + "\n")
    out.append("};\n\n}  // namespace xfmt::nls::lf\n")
    return "".join(out)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--out", default=os.path.join(ROOT, "src/nls/locale_data.cpp"))
    ap.add_argument("--fields-out", default=os.path.join(ROOT, "src/nls/locale_fields.hpp"))
    args = ap.parse_args()
    with open(args.fields_out, "w", encoding="ascii", newline="\n") as f:
        f.write(fields_header())

    recs = read_tsv("locale_list.txt")
    assert len(recs) == 136
    ids = [NEAREST.get(c, {}).get("icu", ICU_ID.get(c, c)) for _, _, c in recs]
    icu = icu_dump(ids)

    out = ["// Generated by tools/gen/gen_locale_data.py; regenerate with: python3 tools/gen/gen_locale_data.py\n",
           f"// Sources: /usr/share/i18n/locales (package locales {locales_version()}), ICU {icu['-']['icu']} data (package libicu-dev).\n",
           "// 136 locale records of 189 fields; locale id k is row k-1. Characters outside ASCII\n",
           "// are written as <U00A0> escapes. Do not edit: change the generator and rerun it.\n",
           '#include "xfmt/xfmt.h"\n\n#include <cstdint>\n\n',
           "#define F(s) {sizeof(s) - 1, s}\n",
           "#define E {0, nullptr}\n\n",
           "extern \"C\" const zav_locale_field ZAVlocaleData[136][189] = {\n"]
    for ident, full, code in recs:
        r = build_record(int(ident), full, code, icu)
        out.append(f"    // {ident} {full} ({code})\n    {{\n")
        for k, v in enumerate(r):
            v = escape(str(v), k)
            out.append(f"        F({c_string(v)}),  // {k}\n" if v else f"        E,  // {k}\n")
        out.append("    },\n")
    out.append("};\n\n#undef F\n#undef E\n\n")
    # Fields 4 and 5 again, lower case and packed four bytes to a word
    # (language in the low half), so the ZAV_LOCALE scan compares integers.
    out.append("namespace xfmt::nls {\n\n")
    out.append("extern const uint32_t locale_codes[136];\n")
    out.append("const uint32_t locale_codes[136] = {\n")
    for ident, full, code in recs:
        c = code[:2].lower() + code[3:5].lower()
        word = sum(ord(ch) << (8 * i) for i, ch in enumerate(c))
        out.append(f"    0x{word:08X}u,  // {ident} {c[:2]} {c[2:]}\n")
    out.append("};\n\n}  // namespace xfmt::nls\n")
    with open(args.out, "w", encoding="ascii", newline="\n") as f:
        f.write("".join(out))


if __name__ == "__main__":
    main()
