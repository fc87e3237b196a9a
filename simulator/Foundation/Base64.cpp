#include "Foundation/Base64.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

namespace sim {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kOther = 0xff;

constexpr auto kValues = [] {
  std::array<std::uint8_t, 256> values{};
  values.fill(kOther);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    values[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
  }
  return values;
}();

char* encodeGroup(char* out, std::uint32_t bits) {
  *out++ = kAlphabet[bits >> 18];
  *out++ = kAlphabet[(bits >> 12) & 63];
  *out++ = kAlphabet[(bits >> 6) & 63];
  *out++ = kAlphabet[bits & 63];
  return out;
}

}  // namespace

std::string base64Encoded(std::span<const std::byte> bytes, std::size_t lineLength, std::string_view lineEnd) {
  const auto characters = (bytes.size() + 2) / 3 * 4;
  const auto breaks = lineLength > 0 && characters > 0 ? (characters - 1) / lineLength : 0;
  std::string text(characters + breaks * lineEnd.size(), '\0');
  char* out = text.data();
  std::size_t column = 0;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    if (lineLength > 0 && column == lineLength) {
      out += lineEnd.copy(out, lineEnd.size());
      column = 0;
    }
    const auto at = [&](std::size_t k) { return k < bytes.size() ? std::to_integer<std::uint32_t>(bytes[k]) : 0u; };
    out = encodeGroup(out, (at(i) << 16) | (at(i + 1) << 8) | at(i + 2));
    column += 4;
  }
  if (bytes.size() % 3 > 0) out[-1] = '=';
  if (bytes.size() % 3 == 1) out[-2] = '=';
  return text;
}

std::optional<std::vector<std::byte>> base64Decoded(std::string_view text, Unknown unknown) {
  std::vector<std::byte> bytes(text.size() / 4 * 3 + 3);
  auto* out = bytes.data();
  const auto put = [&](std::uint32_t bits) {
    *out++ = static_cast<std::byte>(bits >> 16);
    *out++ = static_cast<std::byte>(bits >> 8);
    *out++ = static_cast<std::byte>(bits);
  };
  const auto valueAt = [&](std::size_t i) -> std::uint32_t { return kValues[static_cast<unsigned char>(text[i])]; };
  std::uint32_t bits = 0;
  int held = 0, padding = 0;
  for (std::size_t i = 0; i < text.size();) {
    if (held == 0 && padding == 0 && text.size() - i >= 4) {  // Whole groups, which nearly all of a text is.
      const auto a = valueAt(i), b = valueAt(i + 1), c = valueAt(i + 2), d = valueAt(i + 3);
      if (std::max({a, b, c, d}) != kOther) {
        put(a << 18 | b << 12 | c << 6 | d);
        i += 4;
        continue;
      }
    }
    const auto value = valueAt(i);
    if (value != kOther) {
      if (padding > 0) return std::nullopt;
      bits = bits << 6 | value;
      if (++held == 4) {
        put(bits);
        held = 0;
      }
    } else if (text[i] == '=') {
      ++padding;
    } else if (unknown == Unknown::refuse) {
      return std::nullopt;
    }
    ++i;
  }
  if (held == 1 || padding != (held == 0 ? 0 : 4 - held)) return std::nullopt;
  if (held >= 2) *out++ = static_cast<std::byte>(held == 2 ? bits >> 4 : bits >> 10);
  if (held == 3) *out++ = static_cast<std::byte>(bits >> 2);
  bytes.resize(static_cast<std::size_t>(out - bytes.data()));
  return bytes;
}

}  // namespace sim
