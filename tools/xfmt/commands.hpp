// The sub-commands of xfmt. Each returns the process exit status; errors are
// one line on stderr, results go to stdout only when complete.
#pragma once

#include <string>
#include <vector>

#include "request.hpp"

namespace xfmt::cli {

int cmd_put(const std::vector<std::string> &args, const run_options &opt);
int cmd_input(const std::vector<std::string> &args, const run_options &opt);
int cmd_list(const std::vector<std::string> &args, const run_options &opt);
int cmd_describe(const std::vector<std::string> &args, const run_options &opt);
int cmd_csv(const std::vector<std::string> &args, const run_options &opt);

// The help of a command ("" for the command as a whole); null for a name
// that is no command.
const char *help_text(const std::string &command);

// Writes "xfmt: message" and a newline to stderr; returns 1.
int fail(const std::string &message);

}  // namespace xfmt::cli
