// Helpful errors of the command.
#include "helpful_errors.hpp"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "userfmt/control_reader.hpp"
#include "userfmt/records.hpp"

namespace xfmt::cli {
namespace {

std::string upper(std::string s) {
  for (char &c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return s;
}

bool read_whole(const std::string &path, std::string &bytes) {
  std::FILE *f = std::fopen(path.c_str(), "rb");
  if (f == nullptr) return false;
  char buf[65536];
  for (size_t n; (n = std::fread(buf, 1, sizeof buf, f)) > 0;) bytes.append(buf, n);
  std::fclose(f);
  return true;
}

// Edits (insert, delete, replace) between two short names, stopping early
// past limit.
size_t edits(const std::string &a, const std::string &b, size_t limit) {
  if ((a.size() > b.size() ? a.size() - b.size() : b.size() - a.size()) > limit) return limit + 1;
  std::vector<size_t> row(b.size() + 1);
  for (size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    size_t diag = row[0];
    row[0] = i;
    for (size_t j = 1; j <= b.size(); ++j) {
      size_t up = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diag + (a[i - 1] == b[j - 1] ? 0u : 1u)});
      diag = up;
    }
  }
  return row[b.size()];
}

// Every name a conversion of this kind could have: the catalog's, then the
// control file's.
std::vector<std::string> known_names(bool informat, const run_options &opt) {
  std::vector<std::string> names;
  xfx_catalog_entry e;
  for (uint32_t i = 0, n = xfx_catalog_count(); i < n; ++i) {
    if (xfx_catalog_entry_at(i, &e) != XFX_OK) continue;
    if (((e.spec.flags & XFX_INFORMAT) != 0) != informat || (e.spec.flags & XFX_SEPARATOR) != 0) continue;
    names.emplace_back(e.spec.name, e.spec.name_length);
  }
  if (!informat)
    for (std::string &n : control_file_names(opt)) names.push_back(std::move(n));
  return names;
}

// "NAMEw.d" for a suggestion: the name with the width and decimals as written.
std::string with_numbers(const std::string &name, std::string_view text, const std::string &typed) {
  std::string t = upper(std::string(text));
  size_t at = t.find(typed);
  std::string rest = at == std::string::npos ? "." : t.substr(at + typed.size());
  if (rest.find('.') == std::string::npos) rest += '.';
  return name + rest;
}

}  // namespace

std::vector<std::string> control_file_names(const run_options &opt) {
  std::vector<std::string> names;
  std::string bytes;
  if (opt.control_file.empty() || !read_whole(opt.control_file, bytes)) return names;
  userfmt::list_control_formats(
      bytes.data(), bytes.size(),
      [](void *user, const char *n, size_t len, char type) {
        std::string name = upper(std::string(n, len));
        if ((type == 'C' || type == 'c') && name.compare(0, 1, "$") != 0) name.insert(0, 1, '$');
        auto *v = static_cast<std::vector<std::string> *>(user);
        if (std::find(v->begin(), v->end(), name) == v->end()) v->push_back(name);
      },
      &names);
  return names;
}

std::vector<std::string> close_names(const std::string &name, bool informat, const run_options &opt) {
  std::vector<std::string> names = known_names(informat, opt);
  std::vector<std::string> out;
  std::string other = name[0] == '$' ? name.substr(1) : "$" + name;
  if (std::find(names.begin(), names.end(), other) != names.end()) out.push_back(other);
  const size_t limit = name.size() <= 4 ? 1 : 2;
  for (size_t d = 1; d <= limit && out.size() < 3; ++d)
    for (const std::string &n : names)
      if (out.size() < 3 && n != other && edits(name, n, limit) == d) out.push_back(n);
  return out;
}

std::string spec_error_message(xfx_error error, std::string_view text, const xfx_spec &spec, bool informat,
                               const run_options &opt) {
  const std::string what = informat ? "informat" : "format";
  if (error == XFX_E_SYNTAX) {
    std::string msg = quoted(text) + " is not a " + what +
                      ": the syntax is NAME w.d, a name, an optional width, '.' and optional decimals "
                      "(DOLLAR12.2, DATE9., $CHAR10., BEST.)";
    // A comma for the point, or a blank inside: say what was probably meant.
    std::string fixed(text);
    std::replace(fixed.begin(), fixed.end(), ',', '.');
    fixed.erase(std::remove(fixed.begin(), fixed.end(), ' '), fixed.end());
    xfx_spec s{};
    if (fixed != text && xfx_parse_spec(fixed.data(), fixed.size(), informat ? XFX_PARSE_INFORMAT : 0u, nullptr,
                                        &s) == XFX_OK)
      msg += "; did you mean " + upper(fixed) + "?";
    return msg;
  }
  if (error == XFX_E_UNKNOWN_NAME) {
    std::string name(spec.name, spec.name_length);
    // A broken control file is the real reason: say where and why.
    std::string bytes;
    if (!informat && !opt.control_file.empty() && read_whole(opt.control_file, bytes)) {
      char padded[32];
      std::memset(padded, ' ', sizeof padded);
      std::string bare = name[0] == '$' ? name.substr(1) : name;
      std::memcpy(padded, bare.data(), std::min(bare.size(), sizeof padded));
      userfmt::control_problem p =
          userfmt::diagnose_control_buffer(bytes.data(), bytes.size(),
                                          name[0] == '$' ? userfmt::kind_character : userfmt::kind_numeric, padded);
      if (p.code < 0)
        return opt.control_file + ":" + std::to_string(p.line) + ": " + p.reason + " (reading format '" + name +
               "')";
    }
    std::string msg = what + " '" + name + "' is not known";
    std::vector<std::string> close = close_names(name, informat, opt);
    if (!close.empty()) {
      msg += "; did you mean ";
      for (size_t i = 0; i < close.size(); ++i) {
        if (i) msg += i + 1 == close.size() ? " or " : ", ";
        msg += with_numbers(close[i], text, name);
      }
      msg += "?";
      if (close[0][0] == '$' && name[0] != '$') msg += " (a $ format takes text)";
    }
    return msg;
  }
  char buf[256];
  xfx_error_message(error, text.data(), text.size(), &spec, buf, sizeof buf);
  return buf;
}

}  // namespace xfmt::cli
