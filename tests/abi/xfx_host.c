/* A C99 host of the extension header xfx.h, linked against libxfmt.so:
 * written conversions parsed into records, the catalog as data checked
 * against the pinned interface (every example is converted again through
 * xfname/xffmt), missing values, strftime patterns proved against the C
 * library's strftime over random dates, and whole-column conversion against
 * one xffmt call per value.
 * Usage: xfx_host CONTROL-FILE (a cntlout.xml defining AGEGRP and REGION).
 * XFMT_SEED replays the random dates. */
#include <locale.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

#include "xfmt/xfx.h"

#define LAYOUT(name, cond) typedef char layout_##name[(cond) ? 1 : -1]
LAYOUT(spec_size, sizeof(xfx_spec) == 116);
LAYOUT(spec_flags, offsetof(xfx_spec, flags) == 44);
LAYOUT(spec_width, offsetof(xfx_spec, width) == 52);
LAYOUT(spec_limits, offsetof(xfx_spec, min_width) == 60);
LAYOUT(spec_module, offsetof(xfx_spec, module) == 72);
LAYOUT(entry_size, sizeof(xfx_catalog_entry) == 544);
LAYOUT(entry_output, offsetof(xfx_catalog_entry, example_output) == 348);
LAYOUT(entry_status, offsetof(xfx_catalog_entry, example_status) == 508);

static int failures = 0;
static unsigned long long seed = 0, first_seed = 0;

#define CHECK(cond, what)                                                              \
  do {                                                                                 \
    if (!(cond)) {                                                                     \
      fprintf(stderr, "xfx_host: %s:%d: %s (%s)\n", __FILE__, __LINE__, #cond, what); \
      ++failures;                                                                      \
    }                                                                                  \
  } while (0)

static unsigned long long next_random(void) {
  seed ^= seed << 13;
  seed ^= seed >> 7;
  seed ^= seed << 17;
  return seed;
}

/* --- written conversions ----------------------------------------------- */

struct parse_case {
  const char *text;
  uint32_t options;
  xfx_error error;
  const char *name;
  int32_t width, decimals;
  uint32_t flags; /* of XFX_INFORMAT | XFX_CHARACTER | XFX_WIDTH_GIVEN | XFX_DECIMALS_GIVEN */
  uint32_t family;
};

static const struct parse_case parse_cases[] = {
    {"DATETIME22.3", 0, XFX_OK, "DATETIME", 22, 3, XFX_WIDTH_GIVEN | XFX_DECIMALS_GIVEN, XFX_FAMILY_DATETIME},
    {"$CHAR10.", 0, XFX_OK, "$CHAR", 10, 0, XFX_CHARACTER | XFX_WIDTH_GIVEN, XFX_FAMILY_CHARACTER},
    {"BEST.", 0, XFX_OK, "BEST", 12, 0, 0, XFX_FAMILY_NUMBER},
    {"BEST", 0, XFX_OK, "BEST", 12, 0, 0, XFX_FAMILY_NUMBER},
    {"@COMMA12.", 0, XFX_OK, "COMMA", 12, 0, XFX_INFORMAT | XFX_WIDTH_GIVEN, XFX_FAMILY_NUMBER},
    {"COMMA12.2", XFX_PARSE_INFORMAT, XFX_OK, "COMMA", 12, 2, XFX_INFORMAT | XFX_WIDTH_GIVEN | XFX_DECIMALS_GIVEN,
     XFX_FAMILY_NUMBER},
    {"date9.", 0, XFX_OK, "DATE", 9, 0, XFX_WIDTH_GIVEN, XFX_FAMILY_DATE},
    {"  f8.2 ", 0, XFX_OK, "F", 8, 2, XFX_WIDTH_GIVEN | XFX_DECIMALS_GIVEN, XFX_FAMILY_NUMBER},
    {"$10.", 0, XFX_OK, "$CHAR", 10, 0, XFX_CHARACTER | XFX_WIDTH_GIVEN, XFX_FAMILY_CHARACTER},
    {"$f5.", 0, XFX_OK, "$CHAR", 5, 0, XFX_CHARACTER | XFX_WIDTH_GIVEN, XFX_FAMILY_CHARACTER},
    {"$", 0, XFX_OK, "$CHAR", 8, 0, XFX_CHARACTER, XFX_FAMILY_CHARACTER},
    {"@$CHAR5.", 0, XFX_OK, "$CHAR", 5, 0, XFX_INFORMAT | XFX_CHARACTER | XFX_WIDTH_GIVEN, XFX_FAMILY_CHARACTER},
    {"E8601DA10.", 0, XFX_OK, "E8601DA", 10, 0, XFX_WIDTH_GIVEN, XFX_FAMILY_DATE},
    {"TIME8.", 0, XFX_OK, "TIME", 8, 0, XFX_WIDTH_GIVEN, XFX_FAMILY_DURATION},
    {"TOD8.", 0, XFX_OK, "TOD", 8, 0, XFX_WIDTH_GIVEN, XFX_FAMILY_TIME},
    {"DOLLAR12.2", 0, XFX_OK, "DOLLAR", 12, 2, XFX_WIDTH_GIVEN | XFX_DECIMALS_GIVEN, XFX_FAMILY_CURRENCY},
    {"PERCENT8.1", 0, XFX_OK, "PERCENT", 8, 1, XFX_WIDTH_GIVEN | XFX_DECIMALS_GIVEN, XFX_FAMILY_PERCENT},
    {"IB4.", 0, XFX_OK, "IB", 4, 0, XFX_WIDTH_GIVEN, XFX_FAMILY_BINARY},
    {"NLDATE20.", 0, XFX_OK, "NLDATE", 20, 0, XFX_WIDTH_GIVEN, XFX_FAMILY_DATE},
    {"NLSTRMON.", 0, XFX_OK, "NLSTRMON", 20, 0, 0, XFX_FAMILY_NATIONAL},
    {"NLDATM.", 0, XFX_OK, "NLDATM", 30, 0, 0, XFX_FAMILY_DATETIME},
    {"F40.", 0, XFX_E_WIDTH, "F", 40, 0, XFX_WIDTH_GIVEN, XFX_FAMILY_NUMBER},
    {"F0.", 0, XFX_E_WIDTH, "F", 0, 0, XFX_WIDTH_GIVEN, XFX_FAMILY_NUMBER},
    {"DATE9.2", 0, XFX_E_DECIMALS, "DATE", 9, 2, XFX_WIDTH_GIVEN | XFX_DECIMALS_GIVEN, XFX_FAMILY_DATE},
    {"NOSUCH8.", 0, XFX_E_UNKNOWN_NAME, "NOSUCH", 0, 0, 0, 0},
    {"@DATE8.", XFX_PARSE_INFORMAT, XFX_OK, "DATE", 8, 0, XFX_INFORMAT | XFX_WIDTH_GIVEN, XFX_FAMILY_DATE},
    {"@@DATE8.", 0, XFX_E_SYNTAX, "", 0, 0, 0, 0},
    {"9X.", 0, XFX_E_SYNTAX, "", 0, 0, 0, 0},
    {"F8.2x", 0, XFX_E_SYNTAX, "F", 0, 0, 0, 0},
    {"F8.-2", 0, XFX_E_SYNTAX, "F", 0, 0, 0, 0},
    {"F123456.", 0, XFX_E_SYNTAX, "F", 0, 0, 0, 0},
    {"", 0, XFX_E_SYNTAX, "", 0, 0, 0, 0},
    {"  ", 0, XFX_E_SYNTAX, "", 0, 0, 0, 0},
    {"F 8.2", 0, XFX_E_SYNTAX, "F", 0, 0, 0, 0},
};

static void check_parse(void) {
  const uint32_t mask = XFX_INFORMAT | XFX_CHARACTER | XFX_WIDTH_GIVEN | XFX_DECIMALS_GIVEN;
  size_t i;
  for (i = 0; i < sizeof parse_cases / sizeof parse_cases[0]; ++i) {
    const struct parse_case *c = &parse_cases[i];
    xfx_spec s;
    xfx_error e = xfx_parse_spec(c->text, strlen(c->text), c->options, NULL, &s);
    CHECK(e == c->error, c->text);
    CHECK(strcmp(s.name, c->name) == 0 && s.name_length == strlen(c->name), c->text);
    if (e == XFX_OK || e == XFX_E_WIDTH || e == XFX_E_DECIMALS) {
      CHECK(s.width == c->width && s.decimals == c->decimals, c->text);
      CHECK((s.flags & mask) == c->flags, c->text);
      CHECK(s.family == c->family, c->text);
      CHECK((s.flags & XFX_BUILT) != 0, c->text);
    }
  }
  {
    /* Reads length bytes only: "DATE9.junk" cut to 6 bytes is DATE9. */
    xfx_spec s;
    CHECK(xfx_parse_spec("DATE9.junk", 6, 0, NULL, &s) == XFX_OK && s.width == 9, "length counts");
    CHECK(xfx_parse_spec(NULL, 0, 0, NULL, &s) == XFX_E_ARGUMENT, "NULL text");
    CHECK(xfx_parse_spec("F", 1, 0, NULL, NULL) == XFX_E_ARGUMENT, "NULL record");
  }
}

static void check_messages(void) {
  xfx_spec s;
  char out[128];
  const char *t = "F40.";
  xfx_error e = xfx_parse_spec(t, strlen(t), 0, NULL, &s);
  size_t n = xfx_error_message(e, t, strlen(t), &s, out, sizeof out);
  CHECK(strcmp(out, "width 40 is outside the limits of F (1 to 32)") == 0, out);
  CHECK(n == strlen(out), "message length");
  /* A small buffer: cut, terminated, the whole length returned. */
  CHECK(xfx_error_message(e, t, strlen(t), &s, out, 6) == n && strcmp(out, "width") == 0, "cut message");
  CHECK(xfx_error_message(e, t, strlen(t), &s, NULL, 0) == n, "measure only");
  t = "@COMMA12.40";
  e = xfx_parse_spec(t, strlen(t), 0, NULL, &s);
  xfx_error_message(e, t, strlen(t), &s, out, sizeof out);
  CHECK(strcmp(out, "decimals 40 are outside the limits of @COMMA (0 to 31)") == 0, out);
  t = "ZZTOP.";
  e = xfx_parse_spec(t, strlen(t), 0, NULL, &s);
  xfx_error_message(e, t, strlen(t), &s, out, sizeof out);
  CHECK(strcmp(out, "format 'ZZTOP' is not known") == 0, out);
  CHECK(strcmp(xfx_error_text(XFX_E_SYNTAX), xfx_error_text(12345)) != 0, "error texts differ");
  CHECK(strcmp(xfx_error_text(12345), "unknown error") == 0, "unknown error text");
}

/* Writing a record back and parsing it again gives the same record. */
static void check_round_trip(void) {
  const char *texts[] = {"DATETIME22.3", "@COMMA12.2", "$CHAR10.", "BEST.", "date9.", "$"};
  size_t i;
  for (i = 0; i < sizeof texts / sizeof texts[0]; ++i) {
    xfx_spec a, b;
    char out[64];
    CHECK(xfx_parse_spec(texts[i], strlen(texts[i]), 0, NULL, &a) == XFX_OK, texts[i]);
    xfx_spec_text(&a, out, sizeof out);
    CHECK(xfx_parse_spec(out, strlen(out), 0, NULL, &b) == XFX_OK, out);
    CHECK(strcmp(a.name, b.name) == 0 && a.width == b.width && a.decimals == b.decimals &&
              (a.flags & XFX_INFORMAT) == (b.flags & XFX_INFORMAT),
          out);
  }
}

static void check_user_formats(const char *control) {
  xf_ufmt_context ctx;
  xfx_spec s;
  xfx_error e;
  memset(&ctx, 0, sizeof ctx);
  ctx.control_path = control;
  e = xfx_parse_spec("agegrp.", 7, 0, &ctx, &s);
  CHECK(e == XFX_OK, "AGEGRP.");
  CHECK(strcmp(s.name, "AGEGRP") == 0 && (s.flags & XFX_USER) && s.family == XFX_FAMILY_NUMBER, "AGEGRP record");
  CHECK(s.width == 8 && s.min_width == 1 && s.max_width == 40 && s.module[0] == '\0', "AGEGRP widths");
  e = xfx_parse_spec("$REGION12.", 10, 0, &ctx, &s);
  CHECK(e == XFX_OK && (s.flags & XFX_CHARACTER) && s.family == XFX_FAMILY_CHARACTER && s.width == 12, "$REGION");
  CHECK(xfx_parse_spec("AGEGRP41.", 9, 0, &ctx, &s) == XFX_E_WIDTH, "AGEGRP41.");
  CHECK(xfx_parse_spec("NOSUCH.", 7, 0, &ctx, &s) == XFX_E_UNKNOWN_NAME, "NOSUCH with a context");
  CHECK(xfx_parse_spec("AGEGRP.", 7, 0, NULL, &s) == XFX_E_UNKNOWN_NAME, "AGEGRP without a context");
}

/* --- the catalog ------------------------------------------------------- */

static int printable_ascii(const char *s) {
  for (; *s; ++s)
    if ((unsigned char)*s < 0x20 || (unsigned char)*s >= 0x7F || *s == '\\') return 0;
  return 1;
}

/* The bytes an example shows: each byte of a layout is written \xHH.
 * Returns the length. */
static uint32_t shown_bytes(const char *shown, int raw, unsigned char *bytes, size_t capacity) {
  uint32_t n = 0;
  while (*shown && n < capacity) {
    unsigned hi, lo;
    if (raw && shown[0] == '\\' && shown[1] == 'x' && sscanf(shown + 2, "%1x%1x", &hi, &lo) == 2) {
      bytes[n++] = (unsigned char)(hi * 16 + lo);
      shown += 4;
    } else {
      bytes[n++] = (unsigned char)*shown++;
    }
  }
  return n;
}

/* Converts the example again through the pinned interface. */
static void check_example(const xfx_catalog_entry *e) {
  const xfx_spec *s = &e->spec;
  xfx_spec ex;
  void *handle = NULL;
  char out[256];
  xf_frame f;
  double v = 0;
  int informat = (s->flags & XFX_INFORMAT) != 0;
  unsigned char input[64];
  xf_status st;
  CHECK(xfx_parse_spec(e->example_spec, strlen(e->example_spec), 0, NULL, &ex) == XFX_OK, e->example_spec);
  if (xfname(s->name, (int32_t)s->name_length, informat ? 73 : 0, NULL, &handle) != 0) {
    CHECK(0, s->name);
    return;
  }
  memset(&f, 0, sizeof f);
  f.width = ex.width;
  f.decimals = ex.decimals;
  f.output = out;
  f.output_capacity = sizeof out;
  if (informat && !(s->flags & XFX_CHARACTER)) {
    f.input = input;
    f.input_length = shown_bytes(e->example_value, (s->flags & XFX_BYTES) != 0, input, sizeof input);
    f.output = &v;
    f.output_capacity = 8;
  } else if (s->flags & XFX_CHARACTER) {
    f.input = input;
    f.input_length = shown_bytes(e->example_value, informat && (s->flags & XFX_BYTES) != 0, input, sizeof input);
  } else {
    v = strtod(e->example_value, NULL);
    f.input = &v;
    f.input_length = 8;
  }
  st = xffmt(&f, handle);
  CHECK(st == e->example_status, e->example_spec);
  if (informat && !(s->flags & XFX_CHARACTER)) {
    if (e->example_output[0] == '.') /* NaN never equals NaN: a missing value is compared as missing */
      CHECK(xfx_is_missing(v) && xfx_missing_symbol(v) == (e->example_output[1] ? e->example_output[1] : '.'),
            e->example_spec);
    else
      CHECK(v == strtod(e->example_output, NULL), e->example_spec);
  } else {
    CHECK(f.output_length == strlen(e->example_output) && memcmp(out, e->example_output, f.output_length) == 0,
          e->example_spec);
  }
  if (!(s->flags & XFX_INTRINSIC)) xfdel(handle);
}

static void check_catalog(void) {
  uint32_t n = xfx_catalog_count(), i, built = 0, checked = 0, separators = 0, national = 0;
  const fmtposs_row *table = NULL;
  uint64_t rows = 0;
  xfx_catalog_entry e;
  get_fmt_poss_table(&table, &rows);
  CHECK(n == rows + 3, "catalog count");
  CHECK(xfx_catalog_entry_at(n, &e) == XFX_E_ARGUMENT, "index past the end");
  CHECK(xfx_catalog_entry_at(0, NULL) == XFX_E_ARGUMENT, "NULL entry");
  for (i = 0; i < n; ++i) {
    CHECK(xfx_catalog_entry_at(i, &e) == XFX_OK, "entry");
    CHECK(e.description[0] != '\0' && strlen(e.description) < sizeof e.description, e.spec.name);
    if (i < rows) {
      const fmtinfo_eachfmt *r = &table[i].row;
      uint32_t at = r->name[0] == '@' ? 1 : 0;
      CHECK(e.spec.name_length == r->name_length - at && memcmp(e.spec.name, r->name + at, e.spec.name_length) == 0,
            e.spec.name);
      CHECK(memcmp(e.spec.module, table[i].module_name, 8) == 0, e.spec.name);
      CHECK(((e.spec.flags & XFX_INFORMAT) != 0) == (at == 1), e.spec.name);
    } else {
      CHECK((e.spec.flags & XFX_INTRINSIC) != 0, e.spec.name);
    }
    if (e.spec.flags & XFX_SEPARATOR) {
      ++separators;
      CHECK(e.spec.family == XFX_FAMILY_NONE, e.spec.name);
      continue;
    }
    if (!(e.spec.flags & XFX_INTRINSIC)) CHECK(e.spec.family != XFX_FAMILY_NONE, e.spec.name);
    if (strncmp(e.spec.name, "NL", 2) == 0) {
      ++national;
      CHECK((e.spec.flags & XFX_NATIONAL) != 0, e.spec.name);
    }
    if (!(e.spec.flags & XFX_BUILT)) {
      CHECK(e.example_status == XF_E_NOT_BUILT && e.example_output[0] == '\0', e.spec.name);
      continue;
    }
    ++built;
    CHECK(e.example_status != XF_E_NOT_BUILT && e.example_spec[0] != '\0', e.spec.name);
    /* Stars are no example: every default width that cannot show the
     * example value is widened. */
    CHECK(e.example_status != XF_E_OVERFLOW, e.example_spec);
    /* Plain ASCII examples, and the bytes an informat reads, go through
     * xffmt again, byte for byte. */
    if ((printable_ascii(e.example_value) ||
         (e.spec.flags & (XFX_INFORMAT | XFX_BYTES)) == (XFX_INFORMAT | XFX_BYTES)) &&
        printable_ascii(e.example_output) &&
        !(e.spec.flags & (XFX_NATIONAL | XFX_INTRINSIC)) && strcmp(e.spec.name, "INTRINSIC-CRDATE") != 0) {
      check_example(&e);
      ++checked;
    }
  }
  CHECK(separators == 4, "four separator rows");
  CHECK(national >= 140, "national names flagged");
  CHECK(checked > 150, "examples checked through xffmt");
  printf("xfx_host: %u catalog entries, %u built, %u examples converted again\n", n, built, checked);
}

/* --- missing values ---------------------------------------------------- */

static void check_missing(void) {
  const char *symbols = "._ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  size_t i;
  double v, w;
  for (i = 0; symbols[i]; ++i) {
    char what[2] = {symbols[i], 0};
    CHECK(xfx_missing_value(symbols[i], &v) == XFX_OK, what);
    CHECK(xfx_is_missing(v) == 1 && xfx_missing_symbol(v) == symbols[i], what);
    if (symbols[i] >= 'A' && symbols[i] <= 'Z') {
      CHECK(xfx_missing_value(symbols[i] - 'A' + 'a', &w) == XFX_OK && memcmp(&v, &w, 8) == 0, what);
    }
  }
  CHECK(xfx_missing_value('.', &v) == XFX_OK, ".");
  {
    uint64_t bits;
    memcpy(&bits, &v, 8);
    CHECK(bits == 0xFFFFFE0000000000ull, "ordinary missing bits");
  }
  CHECK(xfx_missing_value('?', &v) == XFX_E_ARGUMENT, "bad symbol");
  CHECK(xfx_missing_value('A', NULL) == XFX_E_ARGUMENT, "NULL value");
  CHECK(xfx_is_missing(NAN) == 0 && xfx_missing_symbol(NAN) == 0, "NaN is not missing");
  CHECK(xfx_is_missing(1.5) == 0 && xfx_missing_symbol(0.0) == 0, "numbers are not missing");
  {
    uint64_t bits = 0xFFFF000000000000ull; /* selector 0: missing, shown blank */
    memcpy(&v, &bits, 8);
    CHECK(xfx_is_missing(v) == 1 && xfx_missing_symbol(v) == ' ', "blank missing");
  }
}

/* --- strftime patterns ------------------------------------------------- */

static int same_ignoring_case(const char *a, const char *b) {
  for (; *a && *b; ++a, ++b) {
    char x = *a >= 'a' && *a <= 'z' ? (char)(*a - 32) : *a;
    char y = *b >= 'a' && *b <= 'z' ? (char)(*b - 32) : *b;
    if (x != y) return 0;
  }
  return *a == *b;
}

static void trim(char *s) {
  size_t n = strlen(s), k = 0;
  while (n > 0 && s[n - 1] == ' ') s[--n] = '\0';
  while (s[k] == ' ') ++k;
  memmove(s, s + k, n - k + 1);
}

/* Days since 1960-01-01 of a civil date (proleptic Gregorian). */
static long days_of(int y, int m, int d) {
  long yy = m <= 2 ? y - 1 : y;
  long era = (yy >= 0 ? yy : yy - 399) / 400;
  long yoe = yy - era * 400;
  long doy = (153 * ((m + 9) % 12) + 2) / 5 + d - 1;
  long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 715815;
}

static int pattern_proven(const xfx_spec *s, const char *pattern, int rounds) {
  void *handle = NULL;
  int r, ok = 1;
  if (xfname(s->name, (int32_t)s->name_length, 0, NULL, &handle) != 0) return 0;
  for (r = 0; r < rounds && ok; ++r) {
    struct tm tm;
    char lib[128], libc[128];
    xf_frame f;
    double v;
    long days;
    int y = 1900 + (int)(next_random() % 200), mo = 1 + (int)(next_random() % 12);
    int d = 1 + (int)(next_random() % 28), h = (int)(next_random() % 24), mi = (int)(next_random() % 60);
    int sec = (int)(next_random() % 60);
    memset(&tm, 0, sizeof tm);
    tm.tm_year = y - 1900;
    tm.tm_mon = mo - 1;
    tm.tm_mday = d;
    tm.tm_hour = h;
    tm.tm_min = mi;
    tm.tm_sec = sec;
    days = days_of(y, mo, d);
    tm.tm_wday = (int)(((days + 5) % 7 + 7) % 7);
    tm.tm_yday = (int)(days - days_of(y, 1, 1));
    strftime(libc, sizeof libc, pattern, &tm);
    v = s->family == XFX_FAMILY_DATE       ? (double)days
        : s->family == XFX_FAMILY_DATETIME ? days * 86400.0 + h * 3600 + mi * 60 + sec
                                           : h * 3600.0 + mi * 60 + sec;
    memset(&f, 0, sizeof f);
    f.width = s->width;
    f.decimals = s->decimals;
    f.input = &v;
    f.input_length = 8;
    f.output = lib;
    f.output_capacity = sizeof lib - 1;
    xffmt(&f, handle);
    lib[f.output_length] = '\0';
    trim(lib);
    trim(libc);
    if (!same_ignoring_case(lib, libc)) {
      fprintf(stderr, "xfx_host: %s%d. with %s: library [%s], strftime [%s] (seed %llu)\n", s->name, s->width,
              pattern, lib, libc, first_seed);
      ok = 0;
    }
  }
  xfdel(handle);
  return ok;
}

static void check_patterns(void) {
  struct {
    const char *spec, *pattern;
  } fixed[] = {{"DATE9.", "%d%b%Y"},         {"DATE7.", "%d%b%y"},
               {"E8601DT19.", "%Y-%m-%dT%H:%M:%S"}, {"TIME8.", "%k:%M:%S"},
               {"DDMMYY10.", "%d/%m/%Y"},    {"DATETIME20.", "%d%b%Y:%H:%M:%S"},
               {"WEEKDATE29.", ""},          {"YYQ6.", ""},
               {"NLDATE20.", ""},            {"F8.2", ""},
               {"TIME11.2", ""},             {"@DATE9.", ""}};
  size_t i;
  uint32_t n = xfx_catalog_count(), k, proven = 0;
  for (i = 0; i < sizeof fixed / sizeof fixed[0]; ++i) {
    xfx_spec s;
    char out[64];
    CHECK(xfx_parse_spec(fixed[i].spec, strlen(fixed[i].spec), 0, NULL, &s) == XFX_OK, fixed[i].spec);
    CHECK(xfx_strftime_pattern(&s, out, sizeof out) == strlen(fixed[i].pattern), fixed[i].spec);
    CHECK(strcmp(out, fixed[i].pattern) == 0, fixed[i].spec);
  }
  CHECK(xfx_strftime_pattern(NULL, NULL, 0) == 0, "NULL spec");
  /* Every pattern the catalog's names give, at every width of the name,
   * writes what the format writes for random moments of 1900-2099. */
  for (k = 0; k < n; ++k) {
    xfx_catalog_entry e;
    int32_t w;
    xfx_catalog_entry_at(k, &e);
    for (w = e.spec.min_width; w <= e.spec.max_width && w <= 40; ++w) {
      char pattern[64];
      xfx_spec s = e.spec;
      s.width = w;
      if (xfx_strftime_pattern(&s, pattern, sizeof pattern) == 0) continue;
      ++proven;
      CHECK(pattern_proven(&s, pattern, 200), pattern);
    }
  }
  CHECK(proven > 100, "patterns found");
  printf("xfx_host: %u patterns proved against strftime\n", proven);
}

/* --- whole columns ------------------------------------------------------ */

/* A column of random values through xfx_convert_fixed equals one xffmt call
 * per value, for a few conversions; texts and informats through the other
 * column functions. */
static void check_columns(void) {
  const char *specs[] = {"F8.2", "DATE9.", "COMMA12.2", "TIME8.", "BEST12."};
  enum { n = 500 };
  static double values[n];
  static char fields[n * 16];
  static xf_status statuses[n];
  size_t i, k;
  for (k = 0; k < sizeof specs / sizeof specs[0]; ++k) {
    xfx_conversion *c = NULL;
    const xfx_spec *s;
    void *handle = NULL;
    CHECK(xfx_open(specs[k], strlen(specs[k]), 0, 0, NULL, &c) == XFX_OK, specs[k]);
    if (c == NULL) continue;
    s = xfx_conversion_spec(c);
    for (i = 0; i < n; ++i) {
      unsigned long long r = next_random();
      values[i] = r % 10 == 0 ? NAN : (double)(long long)(r % 4000000) / 100.0 - 5000.0;
    }
    CHECK(xfx_convert_fixed(c, n, values, NULL, NULL, XFX_COL_NAN_MISSING, fields, 16, ' ', statuses) == XFX_OK,
          specs[k]);
    xfname(s->name, (int32_t)s->name_length, 0, NULL, &handle);
    for (i = 0; i < n; ++i) {
      char out[16];
      xf_frame f;
      double v = values[i];
      if (v != v) xfx_missing_value('.', &v);
      memset(&f, 0, sizeof f);
      memset(out, ' ', sizeof out);
      f.width = s->width;
      f.decimals = s->decimals;
      f.input = &v;
      f.input_length = 8;
      f.output = out;
      f.output_capacity = sizeof out;
      CHECK(xffmt(&f, handle) == statuses[i], specs[k]);
      CHECK(memcmp(out, fields + i * 16, 16) == 0, specs[k]);
    }
    xfdel(handle);
    xfx_close(c);
  }
  {
    xfx_conversion *c = NULL;
    const char *texts = "1,234.50(7).Cjunk";
    int64_t offsets[5] = {0, 8, 11, 13, 17};
    double out[4];
    CHECK(xfx_open("@COMMA12.", 9, 0, 0, NULL, &c) == XFX_OK, "@COMMA12.");
    CHECK(xfx_convert_numbers(c, 4, texts, offsets, out, statuses) == XFX_OK, "numbers");
    CHECK(out[0] == 1234.5 && out[1] == -7 && xfx_missing_symbol(out[2]) == 'C', "numbers read");
    CHECK(statuses[3] == XF_IN_INVALID && xfx_missing_symbol(out[3]) == '.', "invalid text");
    xfx_close(c);
  }
  {
    xfx_conversion *c = NULL;
    const char *texts = "caf\xC3\xA9\xC5\x82";
    int64_t offsets[3] = {0, 5, 7};
    char data[32];
    int64_t out[3];
    size_t done = 0;
    CHECK(xfx_open("$UPCASE8.", 9, 0, 0, NULL, &c) == XFX_OK, "$UPCASE8.");
    CHECK(xfx_convert_strings(c, 2, NULL, texts, offsets, 0, data, sizeof data, out, statuses, &done) == XFX_OK,
          "strings");
    CHECK(done == 2 && out[1] == 5 && memcmp(data, "CAF\xC3\x89", 5) == 0, "upper case, UTF-8 kept");
    CHECK(statuses[1] == XFX_S_UNREPRESENTABLE && out[2] == out[1], "no place in Windows-1252");
    xfx_close(c);
  }
}

int main(int argc, char **argv) {
  const char *env = getenv("XFMT_SEED");
  if (argc < 2) {
    fprintf(stderr, "usage: xfx_host CONTROL-FILE\n");
    return 2;
  }
  seed = env != NULL ? strtoull(env, NULL, 10) : (unsigned long long)time(NULL);
  if (seed == 0) seed = 88172645463325252ull;
  first_seed = seed;
  printf("xfx_host: seed %llu\n", seed);
  setlocale(LC_ALL, "C");
  check_parse();
  check_messages();
  check_round_trip();
  check_user_formats(argv[1]);
  check_catalog();
  check_missing();
  check_patterns();
  check_columns();
  if (failures != 0) {
    fprintf(stderr, "xfx_host: %d failures\n", failures);
    return 1;
  }
  printf("xfx_host: all checks passed\n");
  return 0;
}
