// Conversions as hosts write them: "DATETIME22.3", "$CHAR10.", "BEST.",
// "@COMMA12.", "date9.", a user-defined "AGEGRP." read through a context.
// The text is split into name, width and decimals, the name found in the
// catalog (or read as a user-defined format) and the numbers checked against
// its limits.
#include "catalog/written_format.hpp"

#include <cstring>

#include "catalog/chain.hpp"
#include "catalog/handle_kind.hpp"
#include "catalog/handle_release.hpp"
#include "catalog/intrinsics.hpp"
#include "catalog/name_families.hpp"

namespace xfmt::catalog {
namespace {

constexpr uint32_t name_capacity = sizeof(xfx_spec{}.name) - 1;  // 39; longest name read

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

bool same_name(const fmtinfo_eachfmt &r, const char *name, uint32_t length) {
  return r.name_length == length && std::memcmp(r.name, name, length) == 0;
}

// The pieces of a written conversion.
struct pieces {
  char name[name_capacity + 2] = {};  // room for the "@" of an informat
  uint32_t length = 0;                // of name, "@" included
  bool informat = false;
  int32_t width = 0, decimals = 0;
  bool width_given = false, decimals_given = false;
};

// Reads digits from text[i..end) into v; false when there are more than five.
bool read_number(const char *text, size_t &i, size_t end, int32_t &v) {
  v = 0;
  size_t start = i;
  for (; i < end && is_digit(text[i]); ++i) {
    if (i - start >= 5) return false;
    v = v * 10 + (text[i] - '0');
  }
  return true;
}

// Steps: trim blanks; an optional "@"; the name (a leading "$", then
// letters, digits, "_" and "-"); digits at the end of the name are the
// width; then "." and optional decimals; nothing after them.
xfx_error split(const char *text, size_t length, bool informat, pieces &p) {
  size_t i = 0, end = length;
  while (i < end && (text[i] == ' ' || text[i] == '\t')) ++i;
  while (end > i && (text[end - 1] == ' ' || text[end - 1] == '\t')) --end;
  if (i < end && text[i] == '@') {
    informat = true;
    ++i;
  }
  p.informat = informat;
  if (informat) p.name[p.length++] = '@';
  size_t name_start = i;
  if (i < end && text[i] == '$') ++i;
  while (i < end && (is_letter(text[i]) || is_digit(text[i]) || text[i] == '_' || text[i] == '-')) ++i;
  size_t name_end = i;
  while (name_end > name_start && is_digit(text[name_end - 1])) --name_end;
  size_t n = name_end - name_start;
  if (n == 0 || n > name_capacity) return XFX_E_SYNTAX;
  size_t first = name_start + (text[name_start] == '$' ? 1 : 0);  // first letter after a "$"
  if (first < name_end && !is_letter(text[first]) && text[first] != '_') return XFX_E_SYNTAX;
  for (size_t k = 0; k < n; ++k) p.name[p.length++] = upper(text[name_start + k]);
  size_t w = name_end;
  if (w < i) {
    if (!read_number(text, w, i, p.width)) return XFX_E_SYNTAX;
    p.width_given = true;
  }
  if (i < end && text[i] == '.') {
    ++i;
    if (i < end) {
      if (!is_digit(text[i]) || !read_number(text, i, end, p.decimals)) return XFX_E_SYNTAX;
      p.decimals_given = true;
    }
  }
  return i == end ? XFX_OK : XFX_E_SYNTAX;
}

// "$" and "$F" (any case) stand for "$CHAR", as resolution has it.
void expand_character_shorthand(pieces &p) {
  const char *n = p.name + (p.informat ? 1 : 0);
  uint32_t len = p.length - (p.informat ? 1 : 0);
  if (n[0] == '$' && (len == 1 || (len == 2 && n[1] == 'F'))) {
    std::memcpy(p.name + (p.informat ? 1 : 0), "$CHAR", 5);
    p.length = 5 + (p.informat ? 1 : 0);
  }
}

void set_name(xfx_spec &spec, const char *name, uint32_t length) {
  if (length > name_capacity) length = name_capacity;
  std::memcpy(spec.name, name, length);
  spec.name[length] = '\0';
  spec.name_length = length;
}

// A name outside the catalog read as a user-defined format; the handle is
// only needed for its widths and is released at once.
bool read_user_format(const pieces &p, void *context, xfx_spec &spec) {
  uint16_t block[8] = {};
  void *handle = nullptr;
  const char *name = p.name + (p.informat ? 1 : 0);
  int32_t n = static_cast<int32_t>(p.length - (p.informat ? 1 : 0));
  if (xfname2(name, n, p.informat ? 73 : 0, block, &handle, context) != XF_OK || handle == nullptr) return false;
  auto *h = static_cast<xf_user_handle *>(handle);
  bool built = is_user_handle(h) && h->routine != nullptr;
  release_handle(handle);
  set_name(spec, name, static_cast<uint32_t>(n));
  spec.flags = XFX_USER | (built ? XFX_BUILT : 0u) | (p.informat ? XFX_INFORMAT : 0u) |
               (name[0] == '$' ? XFX_CHARACTER : 0u);
  spec.family = name[0] == '$' ? XFX_FAMILY_CHARACTER : XFX_FAMILY_NUMBER;
  spec.min_width = block[0];
  spec.max_width = block[1];
  spec.default_width = block[2];
  spec.min_decimals = 0;
  spec.max_decimals = 31;
  spec.default_decimals = 0;
  spec.width = block[2];
  return true;
}

}  // namespace

bool find_catalog_name(const char *name, uint32_t length, catalog_match &match) {
  match = catalog_match{};
  for (const fmtposs_row &p : fmtposs) {
    if (!same_name(p.row, name, length)) continue;
    xf_status st = 0;
    const fmtinfo *module = xfload(nullptr, p.module_name, p.module_name_length, &st);
    if (module == nullptr) return false;
    for (uint64_t i = 0; i < module->count; ++i) {
      if (same_name(module->rows[i], name, length)) {
        match.poss = &p;
        match.row = &module->rows[i];
        return true;
      }
    }
    return false;
  }
  if (const fmtposs_row *intr = find_intrinsic(name, length)) {
    match.poss = intr;
    match.row = &intr->row;
    match.intrinsic = true;
    return true;
  }
  return false;
}

void fill_from_catalog(xfx_spec &spec, const catalog_match &m) {
  const fmtinfo_eachfmt &r = *m.row;
  bool informat = r.name[0] == '@';
  const char *name = r.name + (informat ? 1 : 0);
  uint32_t n = r.name_length - (informat ? 1 : 0);
  set_name(spec, name, n);
  spec.min_width = r.min_width;
  spec.max_width = r.max_width;
  spec.default_width = r.default_width;
  spec.min_decimals = r.min_decimals;
  spec.max_decimals = r.max_decimals;
  spec.default_decimals = r.default_decimals;
  spec.width = r.default_width;
  spec.decimals = r.default_decimals;
  std::memset(spec.module, 0, sizeof spec.module);
  if (!m.intrinsic) std::memcpy(spec.module, m.poss->module_name, 8);
  uint32_t flags = (informat ? XFX_INFORMAT : 0u) | (name[0] == '$' ? XFX_CHARACTER : 0u) |
                   (r.routine != nullptr ? XFX_BUILT : 0u) | (r.national != 0 ? XFX_NATIONAL : 0u);
  if (m.intrinsic) {
    spec.family = XFX_FAMILY_NONE;
    flags |= XFX_INTRINSIC;
  } else if (name[0] == '-') {
    spec.family = XFX_FAMILY_NONE;
    flags |= XFX_SEPARATOR;
  } else {
    name_traits t = traits_of(name, n, informat);
    spec.family = t.family;
    flags |= t.flags;
  }
  spec.flags = flags;
}

}  // namespace xfmt::catalog

using namespace xfmt::catalog;

extern "C" {

xfx_error xfx_parse_spec(const char *text, size_t length, uint32_t options, void *context, xfx_spec *spec) {
  if (spec == nullptr) return XFX_E_ARGUMENT;
  std::memset(spec, 0, sizeof *spec);
  if (text == nullptr) return XFX_E_ARGUMENT;
  pieces p;
  xfx_error e = split(text, length, (options & XFX_PARSE_INFORMAT) != 0, p);
  if (e != XFX_OK) {
    if (p.length > (p.informat ? 1u : 0u))
      set_name(*spec, p.name + (p.informat ? 1 : 0), p.length - (p.informat ? 1 : 0));
    return e;
  }
  expand_character_shorthand(p);
  catalog_match m;
  if (find_catalog_name(p.name, p.length, m)) {
    fill_from_catalog(*spec, m);
  } else if (context == nullptr || !read_user_format(p, context, *spec)) {
    set_name(*spec, p.name + (p.informat ? 1 : 0), p.length - (p.informat ? 1 : 0));
    if (p.informat) spec->flags |= XFX_INFORMAT;
    return XFX_E_UNKNOWN_NAME;
  }
  if (p.width_given) {
    spec->width = p.width;
    spec->flags |= XFX_WIDTH_GIVEN;
  }
  if (p.decimals_given) {
    spec->decimals = p.decimals;
    spec->flags |= XFX_DECIMALS_GIVEN;
  }
  if (spec->width < spec->min_width || spec->width > spec->max_width) return XFX_E_WIDTH;
  if (spec->decimals < spec->min_decimals || spec->decimals > spec->max_decimals) return XFX_E_DECIMALS;
  return XFX_OK;
}

const char *xfx_error_text(xfx_error error) {
  switch (error) {
    case XFX_OK: return "ok";
    case XFX_E_SYNTAX: return "not a format (NAME, optional width, '.', optional decimals)";
    case XFX_E_UNKNOWN_NAME: return "unknown format name";
    case XFX_E_WIDTH: return "width outside the limits";
    case XFX_E_DECIMALS: return "decimals outside the limits";
    case XFX_E_ARGUMENT: return "invalid argument";
    case XFX_E_CAPACITY: return "output buffer too small";
    case XFX_E_NOT_BUILT: return "conversion not built in this library";
    case XFX_E_ENCODING: return "text is not valid UTF-8";
    default: return "unknown error";
  }
}

size_t xfx_error_message(xfx_error error, const char *text, size_t length, const xfx_spec *spec, char *out,
                         size_t capacity) {
  text_sink s(out, capacity);
  std::string_view written = text != nullptr ? std::string_view(text, length) : std::string_view{};
  bool informat = spec != nullptr && (spec->flags & XFX_INFORMAT) != 0;
  std::string_view name = spec != nullptr ? std::string_view(spec->name, spec->name_length) : written;
  switch (error) {
    case XFX_E_SYNTAX:
      s.put("'");
      s.put(written);
      s.put("' is not a format (NAME, optional width, '.', optional decimals)");
      break;
    case XFX_E_UNKNOWN_NAME:
      s.put(informat ? "informat '" : "format '");
      s.put(name);
      s.put("' is not known");
      break;
    case XFX_E_WIDTH:
    case XFX_E_DECIMALS:
      if (spec == nullptr) {
        s.put(xfx_error_text(error));
        break;
      }
      s.put(error == XFX_E_WIDTH ? "width " : "decimals ");
      s.put_number(error == XFX_E_WIDTH ? spec->width : spec->decimals);
      s.put(error == XFX_E_WIDTH ? " is outside the limits of " : " are outside the limits of ");
      if (informat) s.put('@');
      s.put(name);
      s.put(" (");
      s.put_number(error == XFX_E_WIDTH ? spec->min_width : spec->min_decimals);
      s.put(" to ");
      s.put_number(error == XFX_E_WIDTH ? spec->max_width : spec->max_decimals);
      s.put(")");
      break;
    case XFX_E_NOT_BUILT:
      if (informat) s.put('@');
      s.put(name);
      s.put(" is not built in this library yet");
      break;
    default: s.put(xfx_error_text(error)); break;
  }
  return s.length();
}

size_t xfx_spec_text(const xfx_spec *spec, char *out, size_t capacity) {
  text_sink s(out, capacity);
  if (spec == nullptr) return 0;
  if (spec->flags & XFX_INFORMAT) s.put('@');
  s.put(std::string_view(spec->name, spec->name_length));
  s.put_number(spec->width);
  s.put('.');
  if (spec->decimals != 0) s.put_number(spec->decimals);
  return s.length();
}

size_t xfx_describe(const xfx_spec *spec, char *out, size_t capacity) {
  text_sink s(out, capacity);
  if (spec == nullptr) return 0;
  bool informat = (spec->flags & XFX_INFORMAT) != 0;
  if (spec->flags & XFX_SEPARATOR) {
    s.put("separator row of the catalog: no conversion");
  } else if (spec->flags & XFX_INTRINSIC) {
    s.put("intrinsic name answered without a module");
  } else if (spec->flags & XFX_USER) {
    s.put(informat ? "reads " : "");
    s.put((spec->flags & XFX_CHARACTER) ? "user-defined text labels" : "user-defined value labels");
  } else {
    describe_name(spec->name, spec->name_length, informat, s);
  }
  return s.length();
}

}  // extern "C"
