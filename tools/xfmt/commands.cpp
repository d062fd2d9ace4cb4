// xfmt put, xfmt input and xfmt list.
#include "commands.hpp"

#include <cstdio>
#include <algorithm>
#include <cstring>

#include "catalog/chain.hpp"
#include "catalog/status.hpp"
#include "userfmt/control_reader.hpp"

namespace xfmt::cli {

int fail(const std::string &message) {
  std::fprintf(stderr, "xfmt: %s\n", message.c_str());
  return 1;
}

namespace {

void write_line(const std::string &text, bool utf16) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  if (utf16) std::fwrite("\n\0", 1, 2, stdout);
  else std::fputc('\n', stdout);
}

// The operands of a command without options of its own: "--" is dropped,
// "-5", "-" and "-abc" are operands, an unknown "--option" is refused.
bool operands(const char *command, const std::vector<std::string> &args, std::vector<std::string> &out) {
  bool done = false;
  for (const std::string &a : args) {
    if (!done && a == "--") {
      done = true;
    } else if (!done && a.size() > 2 && a.compare(0, 2, "--") == 0) {
      fail(std::string(command) + ": unknown option '" + a + "' (see xfmt " + command + " --help)");
      return false;
    } else {
      out.push_back(a);
    }
  }
  return true;
}

}  // namespace

int cmd_put(const std::vector<std::string> &given, const run_options &opt) {
  std::vector<std::string> args;
  if (!operands("put", given, args)) return 1;
  if (args.size() < 2) return fail("usage: xfmt put FORMAT VALUE...");
  std::string error;
  std::optional<conversion> c = conversion::make(args[0], false, opt, error);
  if (!c) return fail(error);
  if (!c->is_built()) return fail(c->name() + " is not built in this library yet");
  // Every value is converted before anything is printed.
  std::vector<std::string> fields;
  for (size_t i = 1; i < args.size(); ++i) {
    shown_field field;
    xf_status st = 0;
    if (!c->put(args[i], field, st, error)) return fail(error);
    fields.push_back(std::move(field.bytes));
  }
  for (const std::string &f : fields) write_line(f, opt.utf16);
  return 0;
}

int cmd_input(const std::vector<std::string> &given, const run_options &opt) {
  std::vector<std::string> args;
  if (!operands("input", given, args)) return 1;
  if (args.size() < 2) return fail("usage: xfmt input INFORMAT TEXT...");
  std::string error;
  std::optional<conversion> c = conversion::make(args[0], true, opt, error);
  if (!c) return fail(error);
  if (!c->is_built()) return fail("informat " + c->name() + " is not built in this library yet");
  std::vector<std::string> lines, notes;
  for (size_t i = 1; i < args.size(); ++i) {
    std::string result, note;
    xf_status st = 0;
    if (!c->input(args[i], result, st, error, note)) return fail(error);
    if (!note.empty()) notes.push_back(note);
    if (st != XF_OK) result += "  (" + std::string(status_name(st)) + ")";
    lines.push_back(result);
  }
  for (const std::string &n : notes) std::fprintf(stderr, "xfmt: note: %s\n", n.c_str());
  for (const std::string &l : lines) write_line(l, false);
  return 0;
}

namespace {

std::string upper(std::string s) {
  for (char &c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return s;
}

std::string list_row(const char *module, const fmtinfo_eachfmt &r, const char *state) {
  std::string name(r.name, r.name_length);
  char line[160];
  std::snprintf(line, sizeof line, "%-16s %-9s %5u %5u %5u  %5u %5u %5u  %s", name.c_str(), module,
                unsigned{r.min_width}, unsigned{r.max_width}, unsigned{r.default_width},
                unsigned{r.min_decimals}, unsigned{r.max_decimals}, unsigned{r.default_decimals}, state);
  return line;
}

// User-defined formats of the control file, with the limits resolution gives.
void list_user_formats(const run_options &opt, const std::string &prefix, std::vector<std::string> &lines) {
  if (opt.control_file.empty()) return;
  std::FILE *f = std::fopen(opt.control_file.c_str(), "rb");
  if (!f) return;
  std::string bytes;
  char buf[65536];
  for (size_t n; (n = std::fread(buf, 1, sizeof buf, f)) > 0;) bytes.append(buf, n);
  std::fclose(f);
  std::vector<std::string> names;
  userfmt::list_control_formats(
      bytes.data(), bytes.size(),
      [](void *user, const char *n, size_t len, char type) {
        std::string name = upper(std::string(n, len));
        if ((type == 'C' || type == 'c') && name.compare(0, 1, "$") != 0) name.insert(0, 1, '$');
        static_cast<std::vector<std::string> *>(user)->push_back(name);
      },
      &names);
  for (const std::string &name : names) {
    if (name.compare(0, prefix.size(), prefix) != 0) continue;
    xf_ufmt_context ctx{};
    ctx.control_path = opt.control_file.c_str();
    void *handle = nullptr;
    fmtinfo_eachfmt r{};
    uint16_t block[8] = {};
    if (xfname2(name.data(), static_cast<int32_t>(name.size()), 0, block, &handle, &ctx) != XF_OK) continue;
    const char *state = static_cast<xf_user_handle *>(handle)->routine != nullptr ? "user-defined" : "not built";
    if (static_cast<const char *>(handle)[8] == '+') catalog::free_user_handle(static_cast<xf_user_handle *>(handle));
    else xfdel(handle);
    std::memcpy(r.name, name.data(), std::min(name.size(), sizeof r.name));
    r.name_length = static_cast<uint32_t>(std::min(name.size(), sizeof r.name));
    r.min_width = block[0];
    r.max_width = block[1];
    r.default_width = block[2];
    lines.push_back(list_row("user", r, state));
  }
}

}  // namespace

int cmd_describe(const std::vector<std::string> &args, const run_options &opt) {
  (void)opt;
  if (args.size() != 1) return fail("usage: xfmt describe FORMAT");
  return fail("describe: not available yet");
}

int cmd_list(const std::vector<std::string> &args, const run_options &opt) {
  if (args.size() > 1) return fail("usage: xfmt list [PREFIX]");
  std::string prefix = args.empty() ? "" : upper(args[0]);
  const fmtposs_row *table = nullptr;
  uint64_t count = 0;
  get_fmt_poss_table(&table, &count);
  std::vector<std::string> lines;
  for (uint64_t i = 0; i < count; ++i) {
    const fmtposs_row &p = table[i];
    std::string name(p.row.name, p.row.name_length);
    if (name.compare(0, prefix.size(), prefix) != 0) continue;
    // The module's own row carries the limits and the routine.
    xf_status st = 0;
    const fmtinfo *m = xfload(nullptr, p.module_name, p.module_name_length, &st);
    const fmtinfo_eachfmt *r = nullptr;
    for (uint64_t k = 0; m != nullptr && k < m->count; ++k)
      if (m->rows[k].name_length == p.row.name_length &&
          std::memcmp(m->rows[k].name, p.row.name, p.row.name_length) == 0) {
        r = &m->rows[k];
        break;
      }
    if (r == nullptr) continue;
    const char *state = name[0] == '-' ? "separator" : (r->routine != nullptr ? "built" : "not built");
    lines.push_back(list_row(p.module_name, *r, state));
  }
  for (const fmtposs_row *p : {&crashfmt, &ver_num[0], &ver_num[1]}) {
    std::string name(p->row.name, p->row.name_length);
    if (name.compare(0, prefix.size(), prefix) != 0) continue;
    lines.push_back(list_row("intrinsic", p->row, "built"));
  }
  list_user_formats(opt, prefix, lines);
  if (lines.empty()) return fail("no conversion name begins with '" + prefix + "'");
  std::printf("%-16s %-9s %5s %5s %5s  %5s %5s %5s  %s\n", "NAME", "MODULE", "MIN_W", "MAX_W", "DEF_W", "MIN_D",
              "MAX_D", "DEF_D", "STATE");
  for (const std::string &l : lines) write_line(l, false);
  return 0;
}

}  // namespace xfmt::cli
