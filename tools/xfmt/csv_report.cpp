// xfmt csv FILE: a CSV file whose first line names a format per column (and
// optionally the column: "price:DOLLAR12.2"), printed as a fixed-width
// report, CSV or TSV. Rows are converted and written as they are read, so
// memory stays flat however long the file; every input row is written, or
// the command says which row it could not convert and why.
#include <sys/stat.h>
#include <unistd.h>  // isatty

#include <chrono>
#include <cstdio>
#include <cstdlib>  // getenv, atol: the progress line's delay
#include <cstring>

#include "commands.hpp"
#include "csv_reader.hpp"

namespace xfmt::cli {
namespace {

enum class layout { report, csv, tsv };

struct csv_options {
  layout out = layout::report;
  bool keep_going = false;  // mark bad cells and go on
  bool strict = false;      // a value shown as stars is a bad cell
  std::string path;
};

struct column {
  std::string heading;  // the column's name, or its format as written (terminal's encoding)
  size_t heading_positions;
  conversion conv;
  size_t width;  // report column: the field width or the heading, whichever is wider
  bool built;
  uint64_t stars = 0, first_star_line = 0;
};

std::string trimmed(const std::string &s) {
  size_t b = s.find_first_not_of(" \t");
  if (b == std::string::npos) return "";
  size_t e = s.find_last_not_of(" \t");
  return s.substr(b, e - b + 1);
}

// A field of stars: the value could not be shown in the width.
bool shows_stars(const std::string &field) {
  std::string t = trimmed(field);
  return !t.empty() && t.find_first_not_of('*') == std::string::npos;
}

// Writes lines to stdout as they come; a write error (a closed pipe, a full
// disk) is noticed at the end.
class sink {
 public:
  sink() { std::setvbuf(stdout, nullptr, _IOFBF, 1 << 16); }
  void line(const std::string &s) {
    std::fwrite(s.data(), 1, s.size(), stdout);
    std::fputc('\n', stdout);
  }
};

void append_csv_field(std::string &line, const std::string &f) {
  bool quote = f.find_first_of(",\"\r\n") != std::string::npos ||
               (!f.empty() && (f.front() == ' ' || f.back() == ' '));
  if (!quote) {
    line += f;
    return;
  }
  line += '"';
  for (char c : f) {
    if (c == '"') line += '"';
    line += c;
  }
  line += '"';
}

void append_tsv_field(std::string &line, const std::string &f) {
  for (char c : f) {
    switch (c) {
      case '\t': line += "\\t"; break;
      case '\n': line += "\\n"; break;
      case '\r': line += "\\r"; break;
      case '\\': line += "\\\\"; break;
      default: line += c;
    }
  }
}

// Blanks a fixed-width field carries do not belong in a CSV or TSV cell:
// numbers lose both sides, text its trailing blanks only.
std::string cell_text(const std::string &field, bool character) {
  size_t e = field.find_last_not_of(' ');
  if (e == std::string::npos) return "";
  size_t b = character ? 0 : field.find_first_not_of(' ');
  return field.substr(b, e - b + 1);
}

// A progress line on stderr for long runs, only when stderr is a terminal.
class progress {
 public:
  // XFMT_PROGRESS_AFTER: seconds of work before the line shows (default 2).
  explicit progress(std::FILE *in) : on_(isatty(2) != 0), start_(clock::now()), last_(start_) {
    struct stat st {};
    if (in != nullptr && fstat(fileno(in), &st) == 0 && S_ISREG(st.st_mode)) size_ = static_cast<uint64_t>(st.st_size);
    if (const char *e = std::getenv("XFMT_PROGRESS_AFTER")) after_ = std::chrono::milliseconds(std::atol(e) * 1000);
  }
  void tick(uint64_t rows, uint64_t bytes) {
    if (!on_ || (rows & 1023) != 0) return;
    auto now = clock::now();
    if (now - start_ < after_ || (shown_ && now - last_ < std::chrono::milliseconds(250))) return;
    last_ = now;
    shown_ = true;
    if (size_ > 0)
      std::fprintf(stderr, "\rxfmt: %llu rows, %3u%%", static_cast<unsigned long long>(rows),
                   static_cast<unsigned>(bytes * 100 / size_));
    else
      std::fprintf(stderr, "\rxfmt: %llu rows", static_cast<unsigned long long>(rows));
    std::fflush(stderr);
  }
  void clear() {
    if (shown_) std::fputs("\r                                        \r", stderr);
    shown_ = false;
  }

 private:
  using clock = std::chrono::steady_clock;
  bool on_, shown_ = false;
  clock::time_point start_, last_;
  std::chrono::milliseconds after_{2000};
  uint64_t size_ = 0;
};

int parse_options(const std::vector<std::string> &args, csv_options &o) {
  bool options_done = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string &a = args[i];
    if (!options_done && a == "--") {
      options_done = true;
    } else if (!options_done && (a == "--output" || a.compare(0, 9, "--output=") == 0)) {
      std::string v;
      if (a == "--output") {
        if (i + 1 >= args.size()) return fail("--output needs report, csv or tsv");
        v = args[++i];
      } else {
        v = a.substr(9);
      }
      if (v == "report") o.out = layout::report;
      else if (v == "csv") o.out = layout::csv;
      else if (v == "tsv") o.out = layout::tsv;
      else return fail("--output takes report, csv or tsv, not '" + v + "'");
    } else if (!options_done && a == "--keep-going") {
      o.keep_going = true;
    } else if (!options_done && a == "--strict") {
      o.strict = true;
    } else if (!options_done && a.size() > 1 && a[0] == '-' && a != "-") {
      return fail("csv: unknown option '" + a + "' (see xfmt csv --help)");
    } else if (o.path.empty()) {
      o.path = a;
    } else {
      return fail("usage: xfmt csv [--output report|csv|tsv] [--keep-going] [--strict] FILE");
    }
  }
  if (o.path.empty()) return fail("usage: xfmt csv [--output report|csv|tsv] [--keep-going] [--strict] FILE");
  return 0;
}

}  // namespace

int cmd_csv(const std::vector<std::string> &args, const run_options &given) {
  csv_options o;
  if (parse_options(args, o) != 0) return 1;
  if (given.utf16) return fail("csv writes the terminal's encoding; --utf16 applies to put only");
  const bool from_stdin = o.path == "-";
  const std::string where = from_stdin ? "stdin" : o.path;
  std::FILE *in = from_stdin ? stdin : std::fopen(o.path.c_str(), "rb");
  if (in == nullptr) return fail("cannot open '" + o.path + "'");
  struct closer {
    std::FILE *f;
    bool own;
    ~closer() {
      if (own) std::fclose(f);
    }
  } close_in{in, !from_stdin};

  csv_reader reader(in);
  std::vector<std::string> cells;
  csv_reader::result r = reader.next(cells);
  if (r == csv_reader::result::utf16)
    return fail(where + ": the file is UTF-16; convert it to UTF-8 (iconv -f UTF-16 -t UTF-8)");
  if (r == csv_reader::result::end) return fail(where + ": the file is empty");
  if (r == csv_reader::result::unterminated_quote) return fail(where + ":1: unterminated quote");
  // A byte-order mark says the file is UTF-8, whatever the terminal speaks.
  run_options opt = given;
  std::string error;
  if (reader.had_bom() && !opt.terminal->is_utf8()) {
    std::shared_ptr<const terminal_encoding> utf8 = terminal_encoding::open("UTF-8", error);
    opt.input = utf8;
  }
  const terminal_encoding &input_encoding = opt.input ? *opt.input : *opt.terminal;

  std::vector<column> cols;
  for (size_t i = 0; i < cells.size(); ++i) {
    std::string cell = trimmed(cells[i]);
    std::string name, spec = cell;
    size_t colon = cell.rfind(':');
    if (colon != std::string::npos) {
      name = trimmed(cell.substr(0, colon));
      spec = trimmed(cell.substr(colon + 1));
    }
    std::string where_col = where + ":1: column " + std::to_string(i + 1);
    if (spec.empty()) return fail(where_col + " names no format (write NAME:FORMAT or FORMAT, e.g. price:F8.2)");
    std::optional<conversion> c = conversion::make(spec, false, opt, error);
    if (!c) return fail(where_col + ": " + error);
    std::string heading = c->text();
    std::u32string chars;
    if (!name.empty()) {
      heading.clear();
      if (!input_encoding.decode(name, chars, error) || !opt.terminal->encode(chars, heading, error))
        return fail(where_col + ": " + error);
    } else {
      chars.assign(heading.begin(), heading.end());
    }
    size_t w = static_cast<size_t>(c->width());
    bool built = c->is_built();
    cols.push_back(column{heading, chars.size(), std::move(*c), w > chars.size() ? w : chars.size(), built});
  }

  sink out;
  std::string line;
  if (o.out == layout::report) {
    std::string rule;
    for (size_t i = 0; i < cols.size(); ++i) {
      if (i) {
        line += "  ";
        rule += "  ";
      }
      line.append(cols[i].width - cols[i].heading_positions, ' ');
      line += cols[i].heading;
      rule.append(cols[i].width, '-');
    }
    out.line(line);
    out.line(rule);
  } else {
    for (size_t i = 0; i < cols.size(); ++i) {
      if (i) line += o.out == layout::csv ? ',' : '\t';
      if (o.out == layout::csv) append_csv_field(line, cols[i].heading);
      else append_tsv_field(line, cols[i].heading);
    }
    out.line(line);
  }

  progress meter(in);
  uint64_t rows = 0, bad_cells = 0;
  shown_field field;
  const std::string blank;
  int status = 0;
  while ((r = reader.next(cells)) == csv_reader::result::record) {
    ++rows;
    meter.tick(rows, reader.bytes_read());
    // Where a message points: "FILE:LINE: ", made only when one is written.
    auto at = [&] { return where + ":" + std::to_string(reader.line()) + ": "; };
    // A blank line is a row of blank cells: missing numbers, empty texts.
    const bool blank_row = reader.blank_line();
    if (!blank_row && cells.size() != cols.size()) {
      std::string msg = at() + std::to_string(cells.size()) + " fields where the header names " +
                        std::to_string(cols.size());
      if (cells.size() > cols.size()) msg += "; the first extra field is " + quoted(cells[cols.size()]);
      if (!o.keep_going) {
        meter.clear();
        return fail(msg);
      }
      meter.clear();
      fail(msg + (cells.size() < cols.size() ? "; the missing cells are shown blank" : "; the extra fields are left out"));
      ++bad_cells;
    }
    line.clear();
    for (size_t i = 0; i < cols.size(); ++i) {
      column &col = cols[i];
      const std::string &raw = blank_row || i >= cells.size() ? blank : cells[i];
      const bool character = col.conv.is_character();
      bool good = true;
      error.clear();
      if (!col.built) {
        // Not built yet: a field of '?' keeps the report's shape; the note on
        // stderr says which column. The value is still checked.
        field.bytes.assign(static_cast<size_t>(col.conv.width()), '?');
        field.positions = field.bytes.size();
        if (!character && !parse_value(trimmed(raw))) {
          good = false;
          error = quoted(raw) + " is not a number or a missing value (., ._, .A-.Z)";
        }
      } else {
        xf_status st = 0;
        good = col.conv.put(character ? raw : trimmed(raw), field, st, error);
        if (good && !character && shows_stars(field.bytes)) {
          if (col.stars++ == 0) col.first_star_line = reader.line();
          if (o.strict) {
            good = false;
            error = quoted(trimmed(raw)) + " cannot be shown in " + col.conv.text() + " (a field of stars; --strict)";
          }
        }
      }
      if (!good) {
        std::string msg = at() + "column " + std::to_string(i + 1) + " (" + col.heading + "): " + error;
        meter.clear();
        if (!o.keep_going) return fail(msg);
        fail(msg);
        ++bad_cells;
        // The report marks the cell; CSV and TSV leave it empty.
        field.bytes.assign(o.out == layout::report ? col.width : 0, '#');
        field.positions = field.bytes.size();
      }
      if (o.out == layout::report) {
        if (i) line += "  ";
        if (field.positions < col.width) line.append(col.width - field.positions, ' ');
        // One line per row: line ends and tabs of a text show as blanks in
        // the report (CSV keeps them quoted, TSV escaped).
        for (char &ch : field.bytes)
          if (ch == '\n' || ch == '\r' || ch == '\t') ch = ' ';
        line += field.bytes;
      } else {
        if (i) line += o.out == layout::csv ? ',' : '\t';
        std::string c = good ? cell_text(field.bytes, character) : std::string();
        if (o.out == layout::csv) append_csv_field(line, c);
        else append_tsv_field(line, c);
      }
    }
    out.line(line);
  }
  meter.clear();
  if (r == csv_reader::result::unterminated_quote)
    return fail(where + ":" + std::to_string(reader.line()) + ": unterminated quote");

  for (size_t i = 0; i < cols.size(); ++i) {
    const column &col = cols[i];
    if (!col.built)
      std::fprintf(stderr, "xfmt: note: column %zu (%s) is not built in this library yet; shown as '?'\n", i + 1,
                   col.heading.c_str());
    if (col.stars > 0 && !o.strict) {
      std::fprintf(stderr,
                   "xfmt: note: column %zu (%s): %llu value%s cannot be shown in %s and print as stars, the first "
                   "on line %llu\n",
                   i + 1, col.heading.c_str(), static_cast<unsigned long long>(col.stars), col.stars == 1 ? "" : "s",
                   col.conv.text().c_str(), static_cast<unsigned long long>(col.first_star_line));
      status = 3;
    }
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout)) return fail("cannot write the output");
  if (bad_cells > 0) {
    std::fprintf(stderr, "xfmt: %llu cell%s or row%s could not be converted (each named above, marked in the output)\n",
                 static_cast<unsigned long long>(bad_cells), bad_cells == 1 ? "" : "s", bad_cells == 1 ? "" : "s");
    return 1;
  }
  return status;
}

}  // namespace xfmt::cli
