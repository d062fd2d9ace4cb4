// xfmt: format values, read them back, list the catalog, and print CSV
// files as fixed-width reports, through the library's C interface.
#include <clocale>  // setlocale: the process locale national formats consult
#include <cstdio>
#include <cstdlib>  // getenv
#include <cstring>
#include <string>
#include <vector>

#include "commands.hpp"

namespace {

// The process locale comes from the environment; when the environment names
// none, C.UTF-8, so that national text reaches a terminal as UTF-8.
void set_process_locale() {
  const char *vars[] = {"LC_ALL", "LC_CTYPE", "LANG"};
  bool named = false;
  for (const char *v : vars) {
    const char *e = std::getenv(v);
    if (e != nullptr && *e != '\0') named = true;
  }
  if (!named || std::setlocale(LC_ALL, "") == nullptr) std::setlocale(LC_ALL, "C.UTF-8");
}

bool locale_id(const std::string &name, uint32_t &id) {
  // LocnameToID upper-cases its argument in place: give it a copy. "de_DE"
  // and "de-DE" are both accepted.
  std::string copy = name.substr(0, name.find('.'));
  for (char &c : copy)
    if (c == '-') c = '_';
  id = 0;
  return LocnameToID(copy.data(), static_cast<uint32_t>(copy.size()), &id) == 0 && id != 0;
}

bool readable(const std::string &path) {
  std::FILE *f = std::fopen(path.c_str(), "rb");
  if (f) std::fclose(f);
  return f != nullptr;
}

// A global option with a value: "--name VALUE" or "--name=VALUE". Returns
// false when a is not the option; sets missing when no value follows.
bool option_value(const std::string &a, const char *name, int argc, char **argv, int &i, std::string &value,
                  bool &missing) {
  const std::string n(name);
  if (a == n) {
    missing = i + 1 >= argc;
    if (!missing) value = argv[++i];
    return true;
  }
  if (a.compare(0, n.size() + 1, n + "=") == 0) {
    value = a.substr(n.size() + 1);
    return true;
  }
  return false;
}

}  // namespace

// Global options may stand before or after the command; any other option is
// the command's own (csv --keep-going). "--" ends the options.
int main(int argc, char **argv) {
  using namespace xfmt::cli;
  set_process_locale();
  run_options opt;
  std::string encoding, locale_name, value;
  std::string command;
  std::vector<std::string> args;
  bool options_done = false, help = false;
  for (int i = 1; i < argc; ++i) {
    std::string a = argv[i];
    bool missing = false;
    if (options_done || a.size() < 2 || a[0] != '-') {
      if (command.empty()) command = a;
      else args.push_back(a);
      continue;
    }
    if (a == "--") {
      options_done = true;
      if (!command.empty()) args.push_back(a);
    } else if (a == "--help" || a == "-h") {
      help = true;
    } else if (a == "--version") {
      std::printf("xfmt %s\n", XFMT_VERSION);
      return 0;
    } else if (option_value(a, "--encoding", argc, argv, i, encoding, missing)) {
      if (missing) return fail("--encoding needs a name, e.g. --encoding ISO-8859-1");
    } else if (a == "--utf16") {
      opt.utf16 = true;
    } else if (option_value(a, "--control", argc, argv, i, opt.control_file, missing)) {
      if (missing) return fail("--control needs a file name");
      if (!readable(opt.control_file)) return fail("cannot open control file '" + opt.control_file + "'");
    } else if (option_value(a, "--locale", argc, argv, i, locale_name, missing)) {
      if (missing) return fail("--locale needs a name, e.g. --locale de_DE");
      if (!locale_id(locale_name, opt.locale_id))
        return fail("unknown locale '" + locale_name + "' (expected ll_CC, e.g. de_DE)");
    } else if (!command.empty()) {
      args.push_back(a);  // the command's own option, or a negative number
    } else {
      return fail("unknown option '" + a + "' (see xfmt --help)");
    }
  }
  if (command == "help") {
    command = args.empty() ? "" : args[0];
    help = true;
  }
  if (help) {
    const char *text = help_text(command);
    if (text == nullptr) return fail("unknown command '" + command + "' (see xfmt --help)");
    std::fputs(text, stdout);
    return 0;
  }
  if (command.empty()) {
    std::fputs(help_text(""), stderr);
    return 2;
  }
  if (help_text(command) == nullptr) return fail("unknown command '" + command + "' (see xfmt --help)");
  std::string error;
  opt.terminal = terminal_encoding::open(encoding, error);
  if (!opt.terminal) return fail(error);
  if (opt.control_file.empty() && readable("cntlout.xml")) opt.control_file = "cntlout.xml";
  xfinit();
  if (command == "put") return cmd_put(args, opt);
  if (command == "input") return cmd_input(args, opt);
  if (command == "list") return cmd_list(args, opt);
  if (command == "describe") return cmd_describe(args, opt);
  return cmd_csv(args, opt);
}
