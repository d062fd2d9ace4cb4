// Nested labels bound once: when a user-defined format is resolved, every
// label naming another format is resolved there and then (on the handle's
// chain), so that writing a value never resolves a name or allocates.
#pragma once

#include <cstdint>

#include "xfmt/xfmt.h"

namespace xfmt::userfmt {

// How a bound label answers.
inline constexpr int32_t nested_bound = 0;    // handle ready
inline constexpr int32_t nested_unknown = 1;  // the name resolves to nothing: stars
inline constexpr int32_t nested_cycle = 2;    // the format nests itself, at any depth: stars
inline constexpr int32_t nested_too_deep = 3; // deeper than max_nested_depth: stars

inline constexpr int max_nested_depth = 8;

struct nested_binding {
  const void *label;  // the xf_label_format this row binds
  void *handle;       // resolved inner handle (state nested_bound)
  uint16_t widths[8]; // the inner format's width block
  int32_t state;
  uint32_t reserved;
};

struct nested_table {
  uint64_t count;
  nested_binding rows[1];  // count rows
};

// Binds the format labels of a format on the chain whose last block *chain
// is (it moves on as blocks are added). Returns 0 and the table (null when
// the format has no format label), or nonzero when the resolution must fail:
// no memory, or the format is already being bound further up (a cycle).
int bind_nested(const xf_user_format *header, const void *const *ranges, void **chain,
                const nested_table **table);

// The bound labels of the user format being written on this thread.
const nested_table *current_nested();
// Sets it for the duration of one value; the constructor saves the outer one.
class nested_scope {
 public:
  explicit nested_scope(const nested_table *t);
  ~nested_scope();
  nested_scope(const nested_scope &) = delete;
  nested_scope &operator=(const nested_scope &) = delete;

 private:
  const nested_table *saved_;
};

// Handle flag (reserved1[0]): the handle's last chain block holds its table.
inline constexpr uint8_t handle_has_nested = 1;

}  // namespace xfmt::userfmt
