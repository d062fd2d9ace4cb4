// The control-file reader's internal entry: the same reading over bytes in
// memory, for the fuzz target and tests.
#pragma once

#include <cstddef>
#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::userfmt {

// Reads the requested format (request kind, 32-byte blank-padded name) from
// a control file's bytes, building its records on *chain. Result codes as
// xfrdexp's, except that nothing is opened.
int32_t read_control_buffer(const char *data, std::size_t size, int32_t request_kind,
                            const char *name, xf_ufmt_context *context, void **chain);

// Calls visit(name, type letter) once per format of a control file, in file
// order (for listings). Returns 0 or a negative reader code.
int32_t list_control_formats(const char *data, std::size_t size,
                             void (*visit)(void *user, const char *name, std::size_t length, char type),
                             void *user);

// How many times a control file has been scanned in this process (the
// parsed-file cache's tests count parses with it).
std::size_t control_file_parses();

// Why a control file's bytes do not give the requested format, for a
// person: the reader's code (0 found, 1 not found, negative as xfrdexp's),
// the line the reading stopped on (1-based; 0 when it did not stop early)
// and the reason in words.
struct control_problem {
  int32_t code = 0;
  std::size_t line = 0;
  const char *reason = "";
};
control_problem diagnose_control_buffer(const char *data, std::size_t size, int32_t request_kind,
                                        const char *name);

}  // namespace xfmt::userfmt
