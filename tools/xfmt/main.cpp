// xfmt: format values, read them back, list the catalog, and print CSV
// files as fixed-width reports, through the library's C interface.
#include <cctype>
#include <clocale>  // setlocale: the process locale national formats consult
#include <cstdio>
#include <cstdlib>  // getenv
#include <cstring>
#include <string>
#include <vector>

#include "commands.hpp"

namespace {

const char usage_text[] =
    "usage: xfmt [--locale NAME] [--utf16] COMMAND ...\n"
    "\n"
    "commands:\n"
    "  put FORMAT VALUE...     format each value, one field per line\n"
    "  input INFORMAT TEXT...  read each text and print the value stored\n"
    "  list [PREFIX]           conversions with their module, limits and state\n"
    "  csv FILE                print a CSV file as a fixed-width report; its first\n"
    "                          line names a format per column (F8.2,DATE9.,...)\n"
    "\n"
    "FORMAT is written NAMEw.d: a name, an optional width, '.', optional\n"
    "decimals (F8.2, DATE9., $CHAR10., BEST.); a missing width or decimals\n"
    "takes the conversion's default. VALUE is a number or a missing value\n"
    "(., ._, .A to .Z); a format whose name begins with $ takes text.\n"
    "INFORMAT is written the same way (F8.2, COMMA10.); without a width the\n"
    "whole text is read.\n"
    "\n"
    "options:\n"
    "  --locale NAME   locale of the national-language formats (e.g. de_DE)\n"
    "  --utf16         put writes UTF-16LE instead of single-byte text\n"
    "  --control FILE  read user-defined formats from FILE (default: cntlout.xml\n"
    "                  when the current folder has one)\n"
    "  --help          this text\n";

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

}  // namespace

int main(int argc, char **argv) {
  using namespace xfmt::cli;
  set_process_locale();
  run_options opt;
  std::string encoding;
  std::vector<std::string> args;
  bool options_done = false;
  for (int i = 1; i < argc; ++i) {
    std::string a = argv[i];
    if (options_done || a.size() < 2 || a.compare(0, 2, "--") != 0) {
      args.push_back(a);
      continue;
    }
    if (a == "--") {
      options_done = true;
    } else if (a == "--help") {
      std::fputs(usage_text, stdout);
      return 0;
    } else if (a == "--encoding" || a.compare(0, 11, "--encoding=") == 0) {
      if (a == "--encoding") {
        if (i + 1 >= argc) return fail("--encoding needs a name, e.g. --encoding ISO-8859-1");
        encoding = argv[++i];
      } else {
        encoding = a.substr(11);
      }
    } else if (a == "--utf16") {
      opt.utf16 = true;
    } else if (a == "--control" || a.compare(0, 10, "--control=") == 0) {
      if (a == "--control") {
        if (i + 1 >= argc) return fail("--control needs a file name");
        opt.control_file = argv[++i];
      } else {
        opt.control_file = a.substr(10);
      }
      if (!readable(opt.control_file)) return fail("cannot open control file '" + opt.control_file + "'");
    } else if (a == "--locale" || a.compare(0, 9, "--locale=") == 0) {
      std::string name;
      if (a == "--locale") {
        if (i + 1 >= argc) return fail("--locale needs a name, e.g. --locale de_DE");
        name = argv[++i];
      } else {
        name = a.substr(9);
      }
      if (!locale_id(name, opt.locale_id)) return fail("unknown locale '" + name + "' (expected ll_CC, e.g. de_DE)");
    } else {
      return fail("unknown option '" + a + "' (see xfmt --help)");
    }
  }
  if (args.empty()) {
    std::fputs(usage_text, stderr);
    return 2;
  }
  std::string error;
  opt.terminal = terminal_encoding::open(encoding, error);
  if (!opt.terminal) return fail(error);
  if (opt.control_file.empty() && readable("cntlout.xml")) opt.control_file = "cntlout.xml";
  std::string cmd = args[0];
  std::vector<std::string> rest(args.begin() + 1, args.end());
  xfinit();
  if (cmd == "put") return cmd_put(rest, opt);
  if (cmd == "input") return cmd_input(rest, opt);
  if (cmd == "list") return cmd_list(rest, opt);
  if (cmd == "csv") return cmd_csv(rest, opt);
  if (cmd == "help") {
    std::fputs(usage_text, stdout);
    return 0;
  }
  return fail("unknown command '" + cmd + "' (see xfmt --help)");
}
