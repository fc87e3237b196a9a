#include "base/Base64.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>

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

Base64Decoder::Base64Decoder(std::size_t length, Unknown unknown)
    : bytes_(static_cast<std::byte*>(std::malloc(length / 4 * 3 + 3))), end_(bytes_.get()), unknown_(unknown) {
  if (!bytes_) throw std::bad_alloc();
}

void Base64Decoder::put(std::uint32_t bits) noexcept {
  *end_++ = static_cast<std::byte>(bits >> 16);
  *end_++ = static_cast<std::byte>(bits >> 8);
  *end_++ = static_cast<std::byte>(bits);
}

bool Base64Decoder::appendCharacter(char character) noexcept {
  const auto value = kValues[static_cast<unsigned char>(character)];
  if (value == kOther) {
    if (character == '=') ++padding_;
    return character == '=' || unknown_ == Unknown::ignore;
  }
  if (padding_ > 0) return false;
  bits_ = bits_ << 6 | value;
  if (++held_ < 4) return true;
  put(bits_);
  held_ = 0;
  return true;
}

bool Base64Decoder::append(std::string_view piece) {
  const auto valueAt = [&](std::size_t i) -> std::uint32_t { return kValues[static_cast<unsigned char>(piece[i])]; };
  for (std::size_t i = 0; i < piece.size();) {
    if (held_ == 0 && padding_ == 0 && piece.size() - i >= 4) {  // Whole groups, which nearly all of a text is.
      const auto a = valueAt(i), b = valueAt(i + 1), c = valueAt(i + 2), d = valueAt(i + 3);
      if (std::max({a, b, c, d}) != kOther) {
        put(a << 18 | b << 12 | c << 6 | d);
        i += 4;
        continue;
      }
    }
    if (!appendCharacter(piece[i])) return false;
    ++i;
  }
  return true;
}

std::pair<Base64Decoder::Buffer, std::size_t> Base64Decoder::take() {
  if (held_ >= 2) *end_++ = static_cast<std::byte>(held_ == 2 ? bits_ >> 4 : bits_ >> 10);
  if (held_ == 3) *end_++ = static_cast<std::byte>(bits_ >> 2);
  const auto size = static_cast<std::size_t>(end_ - bytes_.get());
  return {std::move(bytes_), size};
}

std::optional<std::vector<std::byte>> base64Decoded(std::string_view text, Unknown unknown) {
  Base64Decoder decoder(text.size(), unknown);
  if (!decoder.append(text) || !decoder.isComplete()) return std::nullopt;
  const auto [bytes, size] = decoder.take();
  return std::vector(bytes.get(), bytes.get() + size);
}

}  // namespace sim
