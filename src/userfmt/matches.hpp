// The matches a linear search collects for a multilabel request.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace xfmt::userfmt {

// Matches collected by the linear search: on the stack up to 64, then one
// array of range_count pointers. A failed allocation ends the collecting.
class match_list {
 public:
  explicit match_list(int64_t capacity) : cap_(capacity) {}
  ~match_list() {
    if (heap_) std::free(heap_);
  }
  match_list(const match_list &) = delete;
  match_list &operator=(const match_list &) = delete;

  bool add(const void *e) {
    if (count_ < static_cast<int64_t>(inline_size)) {
      local_[count_++] = e;
      return true;
    }
    if (!heap_) {
      if (count_ >= cap_) return false;
      heap_ = static_cast<const void **>(std::malloc(static_cast<size_t>(cap_) * sizeof(void *)));
      if (!heap_) return false;
      for (int64_t i = 0; i < count_; ++i) heap_[i] = local_[i];
    }
    if (count_ >= cap_) return false;
    heap_[count_++] = e;
    return true;
  }
  int64_t count() const { return count_; }
  const void *const *data() const { return heap_ ? heap_ : local_; }

 private:
  static constexpr size_t inline_size = 64;
  const void *local_[inline_size];
  const void **heap_ = nullptr;
  int64_t count_ = 0;
  int64_t cap_;
};

}  // namespace xfmt::userfmt
