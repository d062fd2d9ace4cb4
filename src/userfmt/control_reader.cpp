// xfrdexp: the control file "cntlout.xml" (or the context's path) read as
// an XML table. The header's COLUMNs declare the columns; each ROW is one
// range of a format; rows of other formats are checked but not built.
#include "xfmt/xfmt.h"

#include <sys/stat.h>  // fstat: the size and modification time that key the cache

#include <algorithm>
#include <atomic>
#include <cstdio>  // fopen, fread, fputs: the file and the "Open failed" text
#include <list>
#include <string_view>
#include <mutex>
#include <new>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "catalog/chain.hpp"
#include "core/platform.hpp"  // the clock: a file changed just now is not kept
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


// A control file scanned once: every row in file order, indexed by the
// name a request matches (trimmed, '$' dropped, upper case), and how the
// scan ended. Replaying a name's rows into a builder answers exactly as a
// fresh reading would: rows of other formats never reach the builder, and
// a builder error comes before any later scan error because it stopped the
// scan there.
//
// The key and the counted reference below are this file's own types rather
// than std::string and std::shared_ptr: containers of purely standard types
// would be instantiated with default visibility and exported from the
// shared library.
struct name_key {
  std::string text;
  bool operator==(const name_key &o) const { return text == o.text; }
};
struct name_key_hash {
  std::size_t operator()(const name_key &k) const noexcept { return std::hash<std::string_view>{}(k.text); }
};

struct parsed_control {
  std::array<bool, column_count> declared{};
  std::vector<row_cells> rows;
  std::unordered_map<name_key, std::vector<std::size_t>, name_key_hash> rows_of;
  int scan_code = xml_ok;
  std::atomic<int> refs{1};
};

// A counted reference to a parse: a parse in use stays alive when the cache
// drops it meanwhile.
class parsed_ref {
 public:
  parsed_ref() = default;
  explicit parsed_ref(parsed_control *p) : p_(p) {}  // takes over the first count
  parsed_ref(const parsed_ref &o) : p_(o.p_) {
    if (p_) p_->refs.fetch_add(1, std::memory_order_relaxed);
  }
  parsed_ref(parsed_ref &&o) noexcept : p_(o.p_) { o.p_ = nullptr; }
  parsed_ref &operator=(parsed_ref o) noexcept {
    std::swap(p_, o.p_);
    return *this;
  }
  ~parsed_ref() {
    if (p_ && p_->refs.fetch_sub(1, std::memory_order_acq_rel) == 1) delete p_;
  }
  const parsed_control &operator*() const { return *p_; }
  explicit operator bool() const { return p_ != nullptr; }

 private:
  parsed_control *p_ = nullptr;
};

// The row's name as the builder compares it; a request's name is only
// stripped of its padding.
name_key upper_key(std::string_view n) {
  name_key k{std::string(n)};
  for (char &c : k.text)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return k;
}

// Records the rows the table reader would hand the builder, with the same
// column checks, so that a missing column ends the scan at the same row.
class row_recorder : public xml_handler {
 public:
  explicit row_recorder(parsed_control *out) : out_(out) {}
  int column(std::string_view name) override {
    int c = column_of(name);
    if (c >= 0) out_->declared[static_cast<std::size_t>(c)] = true;
    return xml_ok;
  }
  int header_done() override {
    for (int c = 0; c < column_count; ++c)
      if (needed_column(c) && !out_->declared[static_cast<std::size_t>(c)]) return read_missing_column;
    return xml_ok;
  }
  int row_begin() override {
    row_.present.fill(false);
    for (auto &t : row_.text) t.clear();
    return xml_ok;
  }
  int cell(std::string_view name, const std::string &text) override {
    int c = column_of(name);
    if (c < 0) return xml_ok;
    auto i = static_cast<std::size_t>(c);
    if (!out_->declared[i] || row_.present[i]) return read_malformed;
    row_.present[i] = true;
    row_.text[i] = text;
    return xml_ok;
  }
  int row_end() override {
    for (int c = 0; c < column_count; ++c)
      if (needed_column(c) && !row_.present[static_cast<std::size_t>(c)]) return read_missing_column;
    std::string_view n = row_.text[col_fmtname];
    while (!n.empty() && (n.front() == ' ' || n.front() == '\t' || n.front() == '\n')) n.remove_prefix(1);
    while (!n.empty() && (n.back() == ' ' || n.back() == '\t' || n.back() == '\n')) n.remove_suffix(1);
    if (!n.empty() && n[0] == '$') n.remove_prefix(1);
    out_->rows_of[upper_key(n)].push_back(out_->rows.size());
    out_->rows.push_back(row_);
    return xml_ok;
  }

 private:
  parsed_control *out_;
  row_cells row_;
};

std::atomic<std::size_t> control_parse_count{0};

parsed_ref parse_control(const char *data, std::size_t size) {
  control_parse_count.fetch_add(1, std::memory_order_relaxed);
  auto *parsed = new parsed_control;
  parsed_ref ref(parsed);
  row_recorder recorder(parsed);
  parsed->scan_code = scan_control_xml(data, size, recorder);
  return ref;
}

int32_t replay_control(const parsed_control &parsed, int32_t request_kind, const char *name,
                       xf_ufmt_context *context, void **chain) {
  try {
    format_builder builder(request_kind, name, chain);
    std::string_view n(name, 32);
    while (!n.empty() && n.back() == ' ') n.remove_suffix(1);
    auto found = parsed.rows_of.find(upper_key(n));
    if (found != parsed.rows_of.end())
      for (std::size_t i : found->second) {
        const row_cells &row = parsed.rows[i];
        if (!builder.wanted(row)) continue;
        int rc = builder.add(row, parsed.declared);
        if (rc != xml_ok) return rc;
      }
    if (parsed.scan_code != xml_ok) return parsed.scan_code;
    return builder.finish(context);
  } catch (const std::bad_alloc &) {
    return read_no_memory;
  } catch (...) {
    return read_malformed;
  }
}

}  // namespace

std::size_t control_file_parses() { return control_parse_count.load(std::memory_order_relaxed); }


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
  const char *refusal = nullptr;
  try {
    format_builder builder(request_kind, name, &chain);
    table_reader reader(&builder);
    xf_ufmt_context context{};
    p.code = scan_control_xml(data, size, reader, &stop);
    if (p.code == read_bad_row) refusal = builder.refusal();
    if (p.code == xml_ok) p.code = builder.finish(&context);
  } catch (const std::bad_alloc &) {
    p.code = read_no_memory;
  } catch (...) {
    p.code = read_malformed;
  }
  xfmt::catalog::free_chain(head);
  p.reason = refusal ? refusal : reason_of(p.code);
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

bool in_memory_library(const char *library) {
  return std::string_view(library, 8) == "INMEMORY" || std::string_view(library, 8) == "INMEMX64";
}

// The parsed-file cache: a control file is scanned once and its rows kept,
// so that resolving many names from one file reads and parses it once. An
// entry is keyed by path, size and modification time (a rewritten file is
// read again). At most control_cache_files files are kept, the least
// recently used dropped first; each costs about twice its file's size.
// The mutex is held only to look up or insert, never while reading,
// parsing or building, and never on the per-value path. Only regular files
// are kept: a device or a pipe is read afresh each time, and so is a file
// modified within the last two seconds.
constexpr std::size_t control_cache_files = 4;

struct cache_entry {
  std::string path;
  off_t size;
  struct timespec mtime;
  parsed_ref parsed;
};

std::mutex cache_lock;
std::list<cache_entry> &cache_entries() {
  static auto *entries = new std::list<cache_entry>;  // never destroyed: threads may outlive exit
  return *entries;
}

bool same_file(const cache_entry &e, const std::string &path, const struct stat &st) {
  return e.size == st.st_size && e.mtime.tv_sec == st.st_mtim.tv_sec &&
         e.mtime.tv_nsec == st.st_mtim.tv_nsec && e.path == path;
}

parsed_ref cached_control(const std::string &path, const struct stat &st) {
  std::lock_guard<std::mutex> hold(cache_lock);
  auto &entries = cache_entries();
  for (auto i = entries.begin(); i != entries.end(); ++i)
    if (same_file(*i, path, st)) {
      entries.splice(entries.begin(), entries, i);
      return i->parsed;
    }
  return parsed_ref();
}

void remember_control(const std::string &path, const struct stat &st,
                      parsed_ref parsed) {
  std::lock_guard<std::mutex> hold(cache_lock);
  auto &entries = cache_entries();
  // An older reading of the same path is stale now.
  entries.remove_if([&](const cache_entry &e) { return e.path == path; });
  entries.push_front(cache_entry{path, st.st_size, st.st_mtim, std::move(parsed)});
  while (entries.size() > control_cache_files) entries.pop_back();
}

// Reads and parses the control file at path, or takes the cached parse.
// Returns read_found with *out set, or the reader's code.
int parsed_control_file(const char *path, parsed_ref *out) {
  std::FILE *f = std::fopen(path, "rb");
  if (!f) return read_open_failed;
  struct stat st {};
  const bool regular = ::fstat(fileno(f), &st) == 0 && S_ISREG(st.st_mode);
  std::string key(path);
  if (regular && (*out = cached_control(key, st))) {
    std::fclose(f);
    return read_found;
  }
  std::string bytes;
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
  if (rc != read_found) return rc;
  *out = parse_control(bytes.data(), bytes.size());
  // The key is the state seen at opening; a file written meanwhile differs
  // in size or time and is read again next time.
  // A file changed within the last two seconds is not kept: a rewrite of
  // the same size in the same clock tick would keep its time and look
  // unchanged.
  // The system clock, not the one a test may pin: file times are real.
  const int64_t now = xfmt::platform::system_clock().now().seconds;
  const bool settled = st.st_mtim.tv_sec < now - 2;
  if (regular && settled && static_cast<std::size_t>(st.st_size) == bytes.size())
    remember_control(key, st, *out);
  return read_found;
}

}  // namespace

extern "C" int32_t xfrdexp(int32_t request_kind, const char *name, xf_ufmt_context *context,
                           void **chain) {
  if (name == nullptr || context == nullptr || chain == nullptr) return read_not_found;
  // In-memory libraries are never read from a file.
  if (in_memory_library(context->library)) return read_not_found;
  const char *path = context->control_path ? context->control_path : "cntlout.xml";
  parsed_ref parsed;
  try {
    const int rc = parsed_control_file(path, &parsed);
    if (rc == read_too_large) return rc;
    if (rc != read_found) {
      std::fputs("Open failed\n", stdout);
      return read_open_failed;
    }
  } catch (...) {
    return read_no_memory;
  }
  return replay_control(*parsed, request_kind, name, context, chain);
}
