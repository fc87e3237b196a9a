// The tone kernel of the slice against its definition.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "Image.hpp"
#include "Tests.hpp"
#include "lists/ToneKernelVariants.hpp"

namespace device_test {
namespace {

using Bytes = std::span<const std::uint8_t>;
using Variants = std::span<const zuno::detail::ToneVariant>() noexcept;

/// The definition: fused double precision in this order, rounded to single precision, compared with 150.
bool isDark(double b0, double b1, double b2) {
  double luminance = b1 * 0.587;
  luminance = std::fma(b0, 0.299, luminance);
  luminance = std::fma(b2, 0.114, luminance);
  return static_cast<float>(luminance) < 150.0f;
}

std::int32_t countByDefinition(Bytes bytes) {
  std::int32_t count = 0;
  const auto byteAt = [&](std::size_t i) { return i < bytes.size() ? bytes[i] : std::uint8_t{0}; };
  for (std::size_t i = 0; i < bytes.size(); i += 4) count += isDark(byteAt(i), byteAt(i + 1), byteAt(i + 2));
  return count;
}

/// The function of a variant, which is signed as C function pointers are.
zuno::detail::ToneCount* functionOf(const zuno::detail::ToneVariant& variant) {
  const auto pointer = authenticated(reinterpret_cast<std::uint64_t>(variant.count), {}, &variant.count);
  return reinterpret_cast<zuno::detail::ToneCount*>(pointer);
}

/// What one load of the vector variant takes holds four colours, the j-th of them 2^j times, and one white group: the
/// binary digits of its count tell which of the four were dark.
void compareEveryColour(zuno::detail::ToneCount* count) {
  std::uint32_t block[16];
  block[0] = 0xffffffff;
  for (std::uint32_t first = 0; first < 1u << 24; first += 4) {
    std::int32_t expected = 0;
    std::uint32_t* group = block + 1;
    for (std::uint32_t j = 0; j < 4; ++j) {
      const std::uint32_t colour = first + j;
      group = std::fill_n(group, 1u << j, colour | (colour * 2654435761u & 0xff000000));
      expected |= isDark(colour & 0xff, colour >> 8 & 0xff, colour >> 16) << j;
    }
    if (count(Bytes(reinterpret_cast<const std::uint8_t*>(block), sizeof block)) != expected)
      fail("the tone kernel is wrong for one of four colours from " + decimal(first));
  }
}

void compareEveryLength(zuno::detail::ToneCount* count, std::size_t longest) {
  std::mt19937 random(20240229);
  std::vector<std::uint8_t> buffer(longest + 16);
  std::generate(buffer.begin(), buffer.end(), [&] { return static_cast<std::uint8_t>(random()); });
  for (std::size_t alignment = 0; alignment < 16; ++alignment) {
    for (std::size_t length = 0; length <= longest; ++length) {
      const Bytes bytes(buffer.data() + alignment, length);
      if (count(bytes) != countByDefinition(bytes)) fail("the tone kernel is wrong for " + decimal(length) + " bytes");
    }
  }
}

}  // namespace

std::string testTone(const Image& image, Depth depth) {
  const auto list = reinterpret_cast<Variants*>(image.exported("__ZN4zuno6detail12toneVariantsEv"))();
  if (list.size() != 2 || std::strcmp(list.front().name, "neon") != 0) fail("the slice has no vector variant");
  const auto chosen = reinterpret_cast<zuno::detail::ToneCount*>(
      image.exported("__ZN4zuno15countDarkGroupsENSt3__14spanIKhLm18446744073709551615EEE"));
  const std::size_t longest = depth == Depth::kQuick ? 80 : 600;
  compareEveryLength(chosen, longest);
  for (const auto& variant : list) compareEveryLength(functionOf(variant), longest);
  if (depth == Depth::kQuick) return "";
  compareEveryColour(functionOf(list.front()));
  return "the tone kernel is its definition for 16,777,216 colours and for every length up to 600 bytes";
}

}  // namespace device_test
