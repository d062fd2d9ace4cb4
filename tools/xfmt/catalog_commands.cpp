// xfmt list and xfmt describe: the catalog as a person reads it, from the
// records of xfx.h (family, limits, description, a computed example).
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "core/status.hpp"
#include "commands.hpp"
#include "helpful_errors.hpp"
#include "iso_dates.hpp"

namespace xfmt::cli {
namespace {

std::string upper(std::string s) {
  for (char &c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return s;
}

const char *family_name(uint32_t f) {
  switch (f) {
    case XFX_FAMILY_NUMBER: return "number";
    case XFX_FAMILY_CURRENCY: return "currency";
    case XFX_FAMILY_PERCENT: return "percent";
    case XFX_FAMILY_DATE: return "date";
    case XFX_FAMILY_TIME: return "time";
    case XFX_FAMILY_DATETIME: return "datetime";
    case XFX_FAMILY_DURATION: return "duration";
    case XFX_FAMILY_BINARY: return "binary";
    case XFX_FAMILY_CHARACTER: return "character";
    case XFX_FAMILY_NATIONAL: return "national";
    default: return "-";
  }
}

// What a value of the family is, for describe.
std::string family_value(uint32_t f) {
  std::string hint = family_value_hint(f);
  if (!hint.empty()) return hint;
  switch (f) {
    case XFX_FAMILY_CURRENCY: return "an amount of money";
    case XFX_FAMILY_PERCENT: return "a proportion (0.125 is 12.5%)";
    case XFX_FAMILY_BINARY: return "a number or text, written as bytes or digits of a radix";
    case XFX_FAMILY_CHARACTER: return "text";
    case XFX_FAMILY_NATIONAL: return "a month (1-12), quarter (1-4) or weekday (1-7, 1 is Sunday) number";
    case XFX_FAMILY_NUMBER: return "a number";
    default: return "no value";
  }
}

// UTF-8 text of the catalog in the terminal's encoding; a character it
// cannot write is shown as \u{XXXX}.
std::string for_terminal(std::string_view utf8, const run_options &opt) {
  std::u32string chars;
  size_t bad = 0;
  if (!utf8_decode(utf8, chars, bad)) return std::string(utf8);
  std::string out, error;
  for (char32_t c : chars) {
    std::u32string one(1, c);
    if (!opt.terminal->encode(one, out, error)) {
      char buf[16];
      std::snprintf(buf, sizeof buf, "\\u{%04X}", static_cast<unsigned>(c));
      out += buf;
    }
  }
  return out;
}

// Positions a text takes on the terminal (characters of UTF-8).
size_t positions(const std::string &utf8) {
  size_t n = 0;
  for (char c : utf8) n += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  return n;
}

std::string padded(const std::string &s, size_t w) {
  size_t n = positions(s);
  return n >= w ? s : s + std::string(w - n, ' ');
}

struct listed {
  std::string name;  // "@" in front for an informat
  std::string sort_key;
  std::string family, limits, example, description;
};

std::string limits_text(const xfx_spec &s) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%u-%u/%u", unsigned{s.min_width}, unsigned{s.max_width},
                unsigned{s.default_width});
  std::string w = buf;
  if (s.max_decimals > 0) {
    std::snprintf(buf, sizeof buf, " d%u-%u/%u", unsigned{s.min_decimals}, unsigned{s.max_decimals},
                  unsigned{s.default_decimals});
    w += buf;
  }
  return w;
}

listed from_entry(const xfx_catalog_entry &e, const run_options &opt) {
  listed l;
  bool informat = (e.spec.flags & XFX_INFORMAT) != 0;
  l.name = std::string(informat ? "@" : "") + e.spec.name;
  l.family = family_name(e.spec.family);
  l.limits = limits_text(e.spec);
  l.description = e.description;
  if ((e.spec.flags & XFX_SEPARATOR) != 0) {
    l.family = "-";
    l.example = "(separator row)";
  } else if (e.example_status == XF_E_NOT_BUILT || (e.spec.flags & XFX_BUILT) == 0) {
    l.example = "(not built yet)";
  } else {
    l.example = std::string(e.example_spec) + " " + for_terminal(e.example_value, opt) + " -> " +
                for_terminal(e.example_output, opt);
  }
  return l;
}

// The three values describe shows for a family.
std::vector<std::string> example_values(uint32_t family) {
  switch (family) {
    case XFX_FAMILY_PERCENT: return {"0.125", "-0.5", "."};
    case XFX_FAMILY_DATE: return {"0", "23195", "2024-02-29"};
    case XFX_FAMILY_TIME: return {"0", "45296", "23:59:59"};
    case XFX_FAMILY_DURATION: return {"45296", "3600", "100:00:00"};
    case XFX_FAMILY_DATETIME: return {"0", "2004093296", "2024-02-29T23:59:59"};
    case XFX_FAMILY_BINARY: return {"65", "1234", "-1"};
    case XFX_FAMILY_CHARACTER: return {"Hello", "M\xC3\xBCller", "a, b"};
    case XFX_FAMILY_NATIONAL: return {"1", "2", "4"};
    default: return {"1234.567", "-42.5", "."};
  }
}

// A byte string with controls and high bytes as \xHH (binary layouts).
std::string shown_bytes(const std::string &b) {
  std::string out;
  for (char c : b) {
    auto u = static_cast<unsigned char>(c);
    if (u < 0x20 || u >= 0x7F) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\x%02X", u);
      out += buf;
    } else {
      out += c;
    }
  }
  return out;
}

}  // namespace

int cmd_list(const std::vector<std::string> &args, const run_options &opt) {
  bool names_only = false;
  std::string pattern;
  for (const std::string &a : args) {
    if (a == "--names") names_only = true;
    else if (a.size() > 2 && a.compare(0, 2, "--") == 0) return fail("list: unknown option '" + a + "' (see xfmt list --help)");
    else if (pattern.empty()) pattern = a;
    else return fail("usage: xfmt list [--names] [PREFIX | FORMAT]");
  }
  pattern = upper(pattern);
  // A format as written (a width or a point) names one conversion.
  bool exact = false;
  std::string want = pattern;
  if (pattern.find_first_of(".0123456789") != std::string::npos) {
    std::optional<conversion> c = conversion::make(pattern, pattern[0] == '@', opt, want);
    if (!c) return fail(want);
    want = (pattern[0] == '@' ? "@" : "") + c->name();
    exact = true;
  }
  std::vector<listed> rows;
  xfx_catalog_entry e;
  for (uint32_t i = 0, n = xfx_catalog_count(); i < n; ++i) {
    if (xfx_catalog_entry_at(i, &e) != XFX_OK) continue;
    listed l = from_entry(e, opt);
    if (exact ? l.name != want : l.name.compare(0, want.size(), want) != 0) continue;
    rows.push_back(std::move(l));
  }
  xf_ufmt_context ctx{};
  ctx.control_path = opt.control_file.c_str();
  for (const std::string &name : control_file_names(opt)) {
    if (exact ? name != want : name.compare(0, want.size(), want) != 0) continue;
    xfx_spec s{};
    listed l;
    l.name = name;
    if (xfx_parse_spec(name.data(), name.size(), 0, &ctx, &s) != XFX_OK) {
      l.family = "-";
      l.example = "(cannot be read)";
    } else {
      l.family = family_name(s.family);
      l.limits = limits_text(s);
      l.example = (s.flags & XFX_BUILT) != 0 ? "(see xfmt describe " + name + ".)" : "(not built yet)";
    }
    l.description = "user-defined, from " + opt.control_file;
    rows.push_back(std::move(l));
  }
  if (rows.empty()) return fail("no conversion name begins with '" + pattern + "'");
  // Sorted by name; a "$" or "@" in front does not count, so that DATE and
  // @DATE stand together.
  for (listed &l : rows) {
    size_t k = l.name.find_first_not_of("@$");
    l.sort_key = l.name.substr(k == std::string::npos ? 0 : k) + " " + l.name;
  }
  std::sort(rows.begin(), rows.end(), [](const listed &a, const listed &b) { return a.sort_key < b.sort_key; });
  std::string out;
  if (!names_only)
    out = padded("NAME", 16) + " " + padded("FAMILY", 10) + " " + padded("WIDTH", 16) + " " + padded("EXAMPLE", 36) +
          " DESCRIPTION\n";
  for (const listed &l : rows) {
    if (names_only) {
      out += l.name + "\n";
      continue;
    }
    out += padded(l.name, 16) + " " + padded(l.family, 10) + " " + padded(l.limits, 16) + " " +
           padded(l.example, 36) + " " + l.description + "\n";
  }
  std::fwrite(out.data(), 1, out.size(), stdout);
  return 0;
}

int cmd_describe(const std::vector<std::string> &args, const run_options &opt) {
  if (args.size() != 1 || args[0].compare(0, 2, "--") == 0) return fail("usage: xfmt describe FORMAT");
  const std::string &text = args[0];
  bool informat = !text.empty() && text[0] == '@';
  std::string error;
  std::optional<conversion> c = conversion::make(text, informat, opt, error);
  if (!c) return fail(error);
  const xfx_spec &s = c->spec();
  char description[256] = {};
  xfx_describe(&s, description, sizeof description);
  std::string out;
  out += c->text() + "  " + (informat ? "informat" : "format") + ", family " + family_name(s.family) + "\n";
  out += "  " + std::string(description) + "\n";
  out += "  value: " + family_value(s.family) + "\n";
  char buf[160];
  std::snprintf(buf, sizeof buf, "  width %u to %u (default %u)", unsigned{s.min_width}, unsigned{s.max_width},
                unsigned{s.default_width});
  out += buf;
  if (s.max_decimals == 0) {
    out += "; no decimals\n";
  } else {
    std::snprintf(buf, sizeof buf, "; decimals %u to %u (default %u)\n", unsigned{s.min_decimals},
                  unsigned{s.max_decimals}, unsigned{s.default_decimals});
    out += buf;
  }
  if (s.module[0] != '\0') out += std::string("  module ") + s.module;
  else if ((s.flags & XFX_USER) != 0) out += "  user-defined, from " + opt.control_file;
  else out += "  intrinsic";
  if ((s.flags & XFX_NATIONAL) != 0) out += "; its text follows the locale (--locale)";
  if ((s.flags & XFX_BYTES) != 0) out += "; writes bytes, not text";
  out += "\n";
  char pattern[64] = {};
  if (xfx_strftime_pattern(&s, pattern, sizeof pattern) > 0) out += std::string("  strftime pattern: ") + pattern + "\n";
  if ((s.flags & XFX_BUILT) == 0) {
    out += "  not built in this library yet: it resolves, but converts nothing\n";
    std::fwrite(out.data(), 1, out.size(), stdout);
    return 0;
  }
  out += "  examples:\n";
  std::vector<std::string> values = example_values(s.family);
  xfx_catalog_entry e;
  if (informat && (s.flags & XFX_BYTES) != 0) {
    // Bytes cannot be typed as text: the catalog's example, read by the
    // library with the width and decimals it shows, stands for them.
    for (uint32_t i = 0, n = xfx_catalog_count(); i < n; ++i)
      if (xfx_catalog_entry_at(i, &e) == XFX_OK && (e.spec.flags & XFX_INFORMAT) != 0 && c->name() == e.spec.name)
        out += "    " + padded(std::string(e.example_spec) + " '" + for_terminal(e.example_value, opt) + "'", 24) +
               " -> " + for_terminal(e.example_output, opt) + "\n";
  } else if (informat) {
    // Texts to read: what the format of the same name writes for the
    // family's values, else the catalog's example text.
    std::string ignored;
    std::string fmt = c->name() + std::to_string(c->width()) + "." + (c->decimals() ? std::to_string(c->decimals()) : "");
    std::optional<conversion> writer = conversion::make(fmt, false, opt, ignored);
    std::vector<std::string> texts;
    for (const std::string &v : values) {
      shown_field f;
      xf_status st = 0;
      if (writer && writer->is_built() && !writer->writes_bytes() && writer->put(v, f, st, ignored) &&
          (st == XF_OK || st == XF_REDUCED))
        texts.push_back(f.bytes);
    }
    for (uint32_t i = 0, n = xfx_catalog_count(); texts.empty() && i < n; ++i)
      if (xfx_catalog_entry_at(i, &e) == XFX_OK && (e.spec.flags & XFX_INFORMAT) != 0 && c->name() == e.spec.name)
        texts.push_back(for_terminal(e.example_value, opt));
    for (const std::string &t : texts) {
      std::string result, note;
      xf_status st = 0;
      if (!c->input(t, result, st, error, note)) result = "error: " + error;
      out += "    " + padded("'" + t + "'", 24) + " -> " + result + "\n";
    }
  } else {
    for (const std::string &v : values) {
      shown_field f;
      xf_status st = 0;
      std::string shown_value = c->is_character() || s.family == XFX_FAMILY_CHARACTER ? "'" + v + "'" : v;
      std::string value = v;
      std::u32string chars;
      if (c->is_character() && !opt.terminal->is_utf8()) {
        // The examples are written in UTF-8 here.
        size_t bad = 0;
        value.clear();
        if (utf8_decode(v, chars, bad)) opt.terminal->encode(chars, value, error);
        shown_value = "'" + value + "'";
      }
      std::string result;
      if (!c->put(value, f, st, error)) result = "error: " + error;
      else if (c->writes_bytes()) result = shown_bytes(f.bytes);
      else result = "[" + f.bytes + "]";
      if (st != XF_OK && st != XF_REDUCED && !result.empty() && result[0] == '[')
        result += "  (" + std::string(status_name(st)) + ")";
      out += "    " + padded(shown_value, 24) + " -> " + result + "\n";
    }
  }
  std::fwrite(out.data(), 1, out.size(), stdout);
  return 0;
}

}  // namespace xfmt::cli
