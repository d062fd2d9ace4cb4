// The fixed-capacity big integer of the exact decimal comparison.
#include "informats/big_integer.hpp"

#include <bit>

namespace xfmt::informats {

big_integer &big_integer::operator=(uint64_t v) {
  size_ = 0;
  overflow_ = false;
  while (v != 0) {
    limbs_[size_++] = static_cast<uint32_t>(v);
    v >>= 32;
  }
  return *this;
}

void big_integer::push(uint32_t carry) {
  if (carry != 0) append(carry);
}

void big_integer::append(uint32_t limb) {
  if (size_ == max_limbs) {
    overflow_ = true;
    return;
  }
  limbs_[size_++] = limb;
}

void big_integer::mul_small(uint32_t m) {
  uint64_t carry = 0;
  for (int i = 0; i < size_; ++i) {
    uint64_t t = uint64_t{limbs_[i]} * m + carry;
    limbs_[i] = static_cast<uint32_t>(t);
    carry = t >> 32;
  }
  push(static_cast<uint32_t>(carry));
  if (m == 0) size_ = 0;
}

void big_integer::mul_u64(uint64_t m) {
  __extension__ using u128 = unsigned __int128;
  u128 carry = 0;
  for (int i = 0; i < size_; ++i) {
    u128 t = static_cast<u128>(limbs_[i]) * m + carry;
    limbs_[i] = static_cast<uint32_t>(t);
    carry = t >> 32;  // below 2^65
  }
  for (; carry != 0; carry >>= 32) append(static_cast<uint32_t>(carry));
  if (m == 0) size_ = 0;
}

void big_integer::add_small(uint32_t a) {
  uint64_t carry = a;
  for (int i = 0; i < size_ && carry != 0; ++i) {
    uint64_t t = uint64_t{limbs_[i]} + carry;
    limbs_[i] = static_cast<uint32_t>(t);
    carry = t >> 32;
  }
  push(static_cast<uint32_t>(carry));
}

void big_integer::mul_pow5(int k) {
  constexpr uint32_t pow5_13 = 1220703125u;  // 5^13, the largest power of five below 2^32
  constexpr uint32_t small[13] = {1, 5, 25, 125, 625, 3125, 15625, 78125, 390625,
                                  1953125, 9765625, 48828125, 244140625};
  for (; k >= 13; k -= 13) mul_small(pow5_13);
  if (k > 0) mul_small(small[k]);
}

void big_integer::shift_left(int bits) {
  if (size_ == 0 || bits <= 0) return;
  int words = bits / 32;
  int rem = bits % 32;
  int n = size_ + words + (rem != 0 ? 1 : 0);
  if (n > max_limbs) {
    overflow_ = true;
    return;
  }
  if (rem == 0) {
    for (int i = size_ - 1; i >= 0; --i) limbs_[i + words] = limbs_[i];
  } else {
    limbs_[size_ + words] = 0;
    for (int i = size_ - 1; i >= 0; --i) {
      limbs_[i + words + 1] |= limbs_[i] >> (32 - rem);
      limbs_[i + words] = limbs_[i] << rem;
    }
  }
  for (int i = 0; i < words; ++i) limbs_[i] = 0;
  size_ = n;
  while (size_ > 0 && limbs_[size_ - 1] == 0) --size_;
}

int big_integer::compare(const big_integer &other) const {
  if (size_ != other.size_) return size_ < other.size_ ? -1 : 1;
  for (int i = size_ - 1; i >= 0; --i)
    if (limbs_[i] != other.limbs_[i]) return limbs_[i] < other.limbs_[i] ? -1 : 1;
  return 0;
}

int big_integer::bit_length() const {
  if (size_ == 0) return 0;
  return (size_ - 1) * 32 + (32 - std::countl_zero(limbs_[size_ - 1]));
}

}  // namespace xfmt::informats
