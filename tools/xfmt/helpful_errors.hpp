// Messages for a conversion the command cannot resolve, written for the
// person who typed it: the syntax when the text is not NAME w.d, the reader's
// line and reason when the control file is broken, and names that come
// close when the name is unknown.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "request.hpp"

namespace xfmt::cli {

// One line for an error of xfx_parse_spec on text (spec as it filled it).
std::string spec_error_message(xfx_error error, std::string_view text, const xfx_spec &spec, bool informat,
                               const run_options &opt);

// Names a person may have meant by name (upper case, without "@"): the same
// name with or without "$", then names at most two edits away; at most three.
std::vector<std::string> close_names(const std::string &name, bool informat, const run_options &opt);

// The user-defined formats of the control file (with "$" for character
// formats); empty without one.
std::vector<std::string> control_file_names(const run_options &opt);

}  // namespace xfmt::cli
