// xfmt put and xfmt input.
#include "commands.hpp"

#include <cstdio>
#include <algorithm>
#include <cstring>

#include "core/status.hpp"

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

}  // namespace xfmt::cli
