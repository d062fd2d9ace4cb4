// xfmt csv FILE: a CSV file whose first line names a format per column,
// printed as a fixed-width report. The whole file is read and converted
// before the first line is printed, so an error never leaves half a report.
#include <cstdio>
#include <fstream>
#include <sstream>

#include "commands.hpp"

namespace xfmt::cli {
namespace {

// One CSV record: fields separated by commas; a field in double quotes may
// hold commas, and "" inside it stands for one quote. Returns false on an
// unterminated quote.
bool split_csv(const std::string &line, std::vector<std::string> &fields) {
  fields.clear();
  std::string cur;
  bool quoted = false, was_quoted = false;
  for (size_t i = 0; i < line.size(); ++i) {
    char c = line[i];
    if (quoted) {
      if (c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
        cur += '"';
        ++i;
      } else if (c == '"') {
        quoted = false;
      } else {
        cur += c;
      }
    } else if (c == '"' && cur.empty() && !was_quoted) {
      quoted = was_quoted = true;
    } else if (c == ',') {
      fields.push_back(cur);
      cur.clear();
      was_quoted = false;
    } else {
      cur += c;
    }
  }
  if (quoted) return false;
  fields.push_back(cur);
  return true;
}

// Numbers come as written in the file; blanks around them do not count.
std::string trimmed(const std::string &s) {
  size_t b = s.find_first_not_of(" \t");
  if (b == std::string::npos) return "";
  size_t e = s.find_last_not_of(" \t");
  return s.substr(b, e - b + 1);
}

std::string pad_left(const std::string &s, size_t width) {
  return s.size() >= width ? s : std::string(width - s.size(), ' ') + s;
}

struct column {
  conversion conv;
  size_t width;     // report column: the field width or the heading, whichever is wider
  bool built;
};

}  // namespace

int cmd_csv(const std::vector<std::string> &args, const run_options &opt) {
  if (args.size() != 1) return fail("usage: xfmt csv FILE");
  if (opt.utf16) return fail("csv writes a single-byte report; --utf16 applies to put only");
  const std::string &path = args[0];
  std::ifstream in(path, std::ios::binary);
  if (!in) return fail("cannot open '" + path + "'");
  std::string line;
  if (!std::getline(in, line)) return fail(path + ": the file is empty");
  if (!line.empty() && line.back() == '\r') line.pop_back();

  std::vector<std::string> cells;
  if (!split_csv(line, cells)) return fail(path + ":1: unterminated quote");
  std::vector<column> cols;
  std::string error;
  for (size_t i = 0; i < cells.size(); ++i) {
    std::optional<conversion> c = conversion::make(trimmed(cells[i]), false, opt, error);
    if (!c) return fail(path + ":1: column " + std::to_string(i + 1) + ": " + error);
    size_t w = static_cast<size_t>(c->width());
    size_t heading = c->text().size();
    bool built = c->is_built();
    cols.push_back(column{std::move(*c), w > heading ? w : heading, built});
  }

  // Convert everything first.
  std::vector<std::string> report;
  size_t line_no = 1;
  while (std::getline(in, line)) {
    ++line_no;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (trimmed(line).empty()) continue;
    if (!split_csv(line, cells)) return fail(path + ":" + std::to_string(line_no) + ": unterminated quote");
    if (cells.size() != cols.size())
      return fail(path + ":" + std::to_string(line_no) + ": " + std::to_string(cells.size()) +
                  " fields where the header names " + std::to_string(cols.size()));
    std::string out;
    for (size_t i = 0; i < cols.size(); ++i) {
      const column &col = cols[i];
      shown_field field;
      if (!col.built) {
        // Not built yet: a field of '?' keeps the report's shape; the note on
        // stderr says which column. The value is still checked.
        if (!col.conv.is_character() && !parse_value(trimmed(cells[i])))
          return fail(path + ":" + std::to_string(line_no) + ": column " + std::to_string(i + 1) + ": '" +
                      cells[i] + "' is not a number or a missing value (., ._, .A-.Z)");
        field.bytes.assign(static_cast<size_t>(col.conv.width()), '?');
        field.positions = field.bytes.size();
      } else {
        xf_status st = 0;
        std::string value = col.conv.is_character() ? cells[i] : trimmed(cells[i]);
        if (!col.conv.put(value, field, st, error))
          return fail(path + ":" + std::to_string(line_no) + ": column " + std::to_string(i + 1) + ": " + error);
      }
      if (i) out += "  ";
      if (field.positions < col.width) out.append(col.width - field.positions, ' ');
      out += field.bytes;
    }
    report.push_back(out);
  }

  for (size_t i = 0; i < cols.size(); ++i)
    if (!cols[i].built)
      std::fprintf(stderr, "xfmt: note: column %zu (%s) is not built in this library yet; shown as '?'\n", i + 1,
                   cols[i].conv.text().c_str());
  std::string heading, rule;
  for (size_t i = 0; i < cols.size(); ++i) {
    if (i) {
      heading += "  ";
      rule += "  ";
    }
    heading += pad_left(cols[i].conv.text(), cols[i].width);
    rule += std::string(cols[i].width, '-');
  }
  std::printf("%s\n%s\n", heading.c_str(), rule.c_str());
  for (const std::string &r : report) std::printf("%s\n", r.c_str());
  return 0;
}

}  // namespace xfmt::cli
