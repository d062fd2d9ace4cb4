// A fixed-capacity unsigned big integer for the exact decimal comparison:
// 32-bit limbs on the stack, only the few operations that comparison needs.
// Capacity 4096 bits; the largest operand the reader builds is about 2800
// bits (800 digits against 5^1124 shifted), so the overflow flag never sets
// in practice and only guards the array bounds.
#pragma once

#include <cstdint>

namespace xfmt::informats {

class big_integer {
 public:
  static constexpr int max_limbs = 128;

  big_integer() = default;
  explicit big_integer(uint64_t v) { *this = v; }
  big_integer &operator=(uint64_t v);

  void mul_small(uint32_t m);
  void mul_u64(uint64_t m);
  void add_small(uint32_t a);
  // Multiplies by 5^k (k >= 0), thirteen factors of five at a time.
  void mul_pow5(int k);
  void shift_left(int bits);

  // -1, 0 or 1 as *this is below, equal to or above other.
  int compare(const big_integer &other) const;
  int bit_length() const;
  int size() const { return size_; }
  uint32_t limb(int i) const { return i < size_ ? limbs_[i] : 0u; }
  bool overflowed() const { return overflow_; }

 private:
  void push(uint32_t carry);   // appends a nonzero carry
  void append(uint32_t limb);  // appends a limb, zero included

  uint32_t limbs_[max_limbs] = {};
  int size_ = 0;  // limbs in use; limbs_[size_ - 1] != 0 unless size_ == 0
  bool overflow_ = false;
};

}  // namespace xfmt::informats
