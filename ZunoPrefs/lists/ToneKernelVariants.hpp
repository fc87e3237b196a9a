// The implementations behind countDarkGroups, one for each instruction set. Used by the kernel itself, its tests and
// its benchmark; everyone else includes ToneKernel.hpp.
#pragma once

#include <cstdint>
#include <span>

namespace zuno::detail {

/// The dark groups of `bytes`, as countDarkGroups defines them.
using ToneCount = std::int32_t(std::span<const std::uint8_t> bytes) noexcept;

struct ToneVariant {
  const char* name;
  ToneCount* count;
};

/// The variants that this processor and its operating system run, the fastest first. The last one is portable C++.
/// The list has static storage and never changes. Any thread.
std::span<const ToneVariant> toneVariants() noexcept;

ToneCount countDarkPortably;

#if defined(__x86_64__)
ToneCount countDarkWithSse2;
ToneCount countDarkWithAvx2;
ToneCount countDarkWithAvx512;
#elif defined(__aarch64__)
ToneCount countDarkWithNeon;
#endif

}  // namespace zuno::detail
