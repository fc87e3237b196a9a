// The portable variant, and the choice among the variants.
#include "lists/ToneKernel.hpp"

#include <cstddef>

#include "lists/ToneKernelVariants.hpp"

namespace zuno {
namespace detail {
namespace {

/// The definition's luminance times 1000, compared exactly: for all 16,777,216 colours this agrees with the fused
/// floating-point form.
bool isDark(std::uint8_t b0, std::uint8_t b1, std::uint8_t b2) noexcept {
  return 299 * b0 + 587 * b1 + 114 * b2 < 150000;
}

#if defined(__x86_64__)

constexpr ToneVariant kVariants[] = {
    {"avx512", countDarkWithAvx512},
    {"avx2", countDarkWithAvx2},
    {"sse2", countDarkWithSse2},
    {"portable", countDarkPortably},
};

/// Index of the first variant that runs here; all that follow it run too.
std::size_t firstRunning() noexcept {
  __builtin_cpu_init();
  if (!__builtin_cpu_supports("avx2")) return 2;
  const bool avx512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                      __builtin_cpu_supports("avx512vnni") && __builtin_cpu_supports("popcnt");
  return avx512 ? 0 : 1;
}

#else

constexpr ToneVariant kVariants[] = {
#if defined(__aarch64__)
    {"neon", countDarkWithNeon},
#endif
    {"portable", countDarkPortably},
};

constexpr std::size_t firstRunning() noexcept { return 0; }

#endif

}  // namespace

std::int32_t countDarkPortably(std::span<const std::uint8_t> bytes) noexcept {
  const std::uint8_t* const data = bytes.data();
  const std::size_t whole = bytes.size() / 4 * 4;
  std::int32_t count = 0;
  for (std::size_t i = 0; i < whole; i += 4) count += isDark(data[i], data[i + 1], data[i + 2]);

  switch (bytes.size() - whole) {
    case 1: return count + isDark(data[whole], 0, 0);
    case 2: return count + isDark(data[whole], data[whole + 1], 0);
    case 3: return count + isDark(data[whole], data[whole + 1], data[whole + 2]);
    default: return count;
  }
}

std::span<const ToneVariant> toneVariants() noexcept {
  static const std::size_t first = firstRunning();
  return std::span(kVariants).subspan(first);
}

}  // namespace detail

std::int32_t countDarkGroups(std::span<const std::uint8_t> bytes) noexcept {
  return detail::toneVariants().front().count(bytes);
}

}  // namespace zuno
