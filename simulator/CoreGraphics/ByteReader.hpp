// Numbers out of bytes, within bounds. Plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace sim {

using Bytes = std::span<const std::uint8_t>;

enum class Endian { little, big };

/// The `count`-byte number (at most 4) at `offset`; 0 where it does not lie within the bytes.
constexpr std::uint32_t number(Bytes bytes, std::size_t offset, std::size_t count, Endian endian) noexcept {
  if (offset > bytes.size() || count > bytes.size() - offset) return 0;
  std::uint32_t result = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t place = endian == Endian::big ? i : count - 1 - i;
    result = result << 8 | bytes[offset + place];
  }
  return result;
}

/// Whether `text` stands at `offset`.
constexpr bool hasText(Bytes bytes, std::size_t offset, std::string_view text) noexcept {
  if (offset > bytes.size() || text.size() > bytes.size() - offset) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (bytes[offset + i] != std::uint8_t(text[i])) return false;
  }
  return true;
}

/// `bytes` from `offset` on, `length` of them at most; empty past the end.
constexpr Bytes part(Bytes bytes, std::size_t offset, std::size_t length = std::dynamic_extent) noexcept {
  if (offset >= bytes.size()) return {};
  const std::size_t left = bytes.size() - offset;
  return bytes.subspan(offset, length < left ? length : left);
}

}  // namespace sim
