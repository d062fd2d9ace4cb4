// xfrdexp: the control file "cntlout.xml" (or the context's path) read as
// an XML table. The header's COLUMNs declare the columns; each ROW is one
// range of a format; rows of other formats are checked but not built.
#include "xfmt/xfmt.h"

#include <cstdio>  // fopen, fread, fputs: the file and the "Open failed" text
#include <new>
#include <string>

#include "catalog/chain.hpp"
#include "userfmt/control_reader.hpp"
#include "userfmt/format_builder.hpp"
#include "userfmt/xml_scanner.hpp"

namespace xfmt::userfmt {
namespace {

// Collects the cells of each row and hands wanted rows to the builder.
class table_reader : public xml_handler {
 public:
  explicit table_reader(format_builder *builder) : builder_(builder) {}

  int column(std::string_view name) override {
    int c = column_of(name);
    if (c >= 0) declared_[static_cast<std::size_t>(c)] = true;
    return xml_ok;
  }
  int header_done() override {
    for (int c = 0; c < column_count; ++c)
      if (needed_column(c) && !declared_[static_cast<std::size_t>(c)]) return read_missing_column;
    return xml_ok;
  }
  int row_begin() override {
    row_.present.fill(false);
    for (auto &t : row_.text) t.clear();
    return xml_ok;
  }
  int cell(std::string_view name, const std::string &text) override {
    int c = column_of(name);
    if (c < 0) return xml_ok;  // a column of the host's own, not ours
    auto i = static_cast<std::size_t>(c);
    if (!declared_[i] || row_.present[i]) return read_malformed;
    row_.present[i] = true;
    row_.text[i] = text;
    return xml_ok;
  }
  int row_end() override {
    for (int c = 0; c < column_count; ++c)
      if (needed_column(c) && !row_.present[static_cast<std::size_t>(c)]) return read_missing_column;
    if (visit_) {
      const std::string &n = row_.text[col_fmtname];
      char type = row_.text[col_type].empty() ? ' ' : row_.text[col_type][0];
      if (n != last_name_ || type != last_type_) visit_(user_, n.data(), n.size(), type);
      last_name_ = n;
      last_type_ = type;
      return xml_ok;
    }
    if (!builder_->wanted(row_)) return xml_ok;
    return builder_->add(row_, declared_);
  }

  void (*visit_)(void *, const char *, std::size_t, char) = nullptr;
  void *user_ = nullptr;

 private:
  format_builder *builder_;
  std::array<bool, column_count> declared_{};
  row_cells row_;
  std::string last_name_;
  char last_type_ = 0;
};

}  // namespace

int32_t read_control_buffer(const char *data, std::size_t size, int32_t request_kind,
                            const char *name, xf_ufmt_context *context, void **chain) {
  try {
    format_builder builder(request_kind, name, chain);
    table_reader reader(&builder);
    int rc = scan_control_xml(data, size, reader);
    if (rc != xml_ok) return rc;
    return builder.finish(context);
  } catch (const std::bad_alloc &) {
    return read_no_memory;
  } catch (...) {
    return read_malformed;
  }
}

namespace {

const char *reason_of(int code) {
  switch (code) {
    case read_found: return "found";
    case read_not_found: return "no row of the file defines the format";
    case read_malformed: return "malformed XML, a bad character reference, or a cell twice in a row";
    case read_bad_row: return "a row whose START, END, LABEL or limits cannot be used";
    case read_no_memory: return "out of memory";
    case read_bad_datatype: return "an unknown DATATYPE";
    case read_missing_column: return "a column every row needs is missing";
    case read_nested_format: return "F in HLO (a label naming a format) is not read from a control file";
    case read_unsupported: return "an unsupported catalog source";
    case read_bad_type: return "an unknown TYPE";
    default: return "unknown reader error";
  }
}

}  // namespace

control_problem diagnose_control_buffer(const char *data, std::size_t size, int32_t request_kind,
                                        const char *name) {
  control_problem p;
  // The records are built on a chain of our own and freed again.
  void *chain = nullptr;
  if (xfmalloc(&chain, 8) == nullptr) {
    p.code = read_no_memory;
    p.reason = reason_of(p.code);
    return p;
  }
  void *head = chain;
  std::size_t stop = size;
  try {
    format_builder builder(request_kind, name, &chain);
    table_reader reader(&builder);
    xf_ufmt_context context{};
    p.code = scan_control_xml(data, size, reader, &stop);
    if (p.code == xml_ok) p.code = builder.finish(&context);
  } catch (const std::bad_alloc &) {
    p.code = read_no_memory;
  } catch (...) {
    p.code = read_malformed;
  }
  xfmt::catalog::free_chain(head);
  p.reason = reason_of(p.code);
  if (p.code < 0 && p.code != read_no_memory) {
    // A reading that ran to the end stopped on the last line, not after it.
    std::size_t end = stop < size ? stop : size;
    if (end == size && end > 0 && data[end - 1] == '\n') --end;
    p.line = 1;
    for (std::size_t i = 0; i < end; ++i)
      if (data[i] == '\n') ++p.line;
  }
  return p;
}

int32_t list_control_formats(const char *data, std::size_t size,
                             void (*visit)(void *, const char *, std::size_t, char), void *user) {
  try {
    table_reader reader(nullptr);
    reader.visit_ = visit;
    reader.user_ = user;
    return scan_control_xml(data, size, reader);
  } catch (...) {
    return read_no_memory;
  }
}

}  // namespace xfmt::userfmt

using namespace xfmt::userfmt;

namespace {

// The largest control file read: far above any real catalog of formats, and
// a stop for a path that never ends (/dev/zero, a pipe left open).
constexpr std::size_t control_file_limit = std::size_t{256} << 20;

// The whole file in memory: one read, linear in its size; read_too_large
// once it passes the limit, before the memory for more is taken.
int read_file(const char *path, std::string &bytes) {
  std::FILE *f = std::fopen(path, "rb");
  if (!f) return read_open_failed;
  char buf[65536];
  std::size_t n;
  int rc = read_found;
  while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) {
    if (bytes.size() + n > control_file_limit) {
      rc = read_too_large;
      break;
    }
    bytes.append(buf, n);
  }
  if (rc == read_found && std::ferror(f)) rc = read_open_failed;
  std::fclose(f);
  return rc;
}

bool in_memory_library(const char *library) {
  return std::string_view(library, 8) == "INMEMORY" || std::string_view(library, 8) == "INMEMX64";
}

}  // namespace

extern "C" int32_t xfrdexp(int32_t request_kind, const char *name, xf_ufmt_context *context,
                           void **chain) {
  if (name == nullptr || context == nullptr || chain == nullptr) return read_not_found;
  // In-memory libraries are never read from a file.
  if (in_memory_library(context->library)) return read_not_found;
  const char *path = context->control_path ? context->control_path : "cntlout.xml";
  std::string bytes;
  try {
    const int rc = read_file(path, bytes);
    if (rc == read_too_large) return rc;
    if (rc != read_found) {
      std::fputs("Open failed\n", stdout);
      return read_open_failed;
    }
  } catch (...) {
    return read_no_memory;
  }
  return read_control_buffer(bytes.data(), bytes.size(), request_kind, name, context, chain);
}
