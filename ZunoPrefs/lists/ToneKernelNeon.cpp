// The variant for arm64. It counts whole blocks of 64 bytes and leaves the rest to the portable variant.
//
// A group is dark when 299 × b0 + 587 × b1 + 114 × b2 < 150000. As 150000 is 16 × 9375, that holds exactly when the sum
// divided by 16 and rounded down is less than 9375, and with the weights split (299 = 16 × 18 + 11, 587 = 16 × 36 + 11,
// 114 = 16 × 7 + 2) the quotient is high + (low >> 4), which fits 16 bits.
#if defined(__aarch64__)

#include <arm_neon.h>

#include <cstddef>

#include "lists/ToneKernelVariants.hpp"

namespace zuno::detail {
namespace {

/// Adds -1 to `counts` for every dark group among eight.
inline int32x4_t countEight(int32x4_t counts, uint8x8_t b0, uint8x8_t b1, uint8x8_t b2) noexcept {
  const uint16x8_t high = vmlal_u8(vmlal_u8(vmull_u8(b0, vdup_n_u8(18)), b1, vdup_n_u8(36)), b2, vdup_n_u8(7));
  const uint16x8_t low = vmlal_u8(vmlal_u8(vmull_u8(b0, vdup_n_u8(11)), b1, vdup_n_u8(11)), b2, vdup_n_u8(2));
  const uint16x8_t dark = vcltq_u16(vsraq_n_u16(high, low, 4), vdupq_n_u16(9375));
  return vpadalq_s16(counts, vreinterpretq_s16_u16(dark));
}

}  // namespace

std::int32_t countDarkWithNeon(std::span<const std::uint8_t> bytes) noexcept {
  constexpr std::size_t kBlock = 64;
  int32x4_t lower = vdupq_n_s32(0);
  int32x4_t upper = vdupq_n_s32(0);
  for (; bytes.size() >= kBlock; bytes = bytes.subspan(kBlock)) {
    const uint8x16x4_t groups = vld4q_u8(bytes.data());
    const uint8x16_t b0 = groups.val[0];
    const uint8x16_t b1 = groups.val[1];
    const uint8x16_t b2 = groups.val[2];
    lower = countEight(lower, vget_low_u8(b0), vget_low_u8(b1), vget_low_u8(b2));
    upper = countEight(upper, vget_high_u8(b0), vget_high_u8(b1), vget_high_u8(b2));
  }
  return countDarkPortably(bytes) - vaddvq_s32(vaddq_s32(lower, upper));
}

}  // namespace zuno::detail

#endif
