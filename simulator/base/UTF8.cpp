#include "base/UTF8.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace sim {

namespace {

constexpr std::string_view kReplacement = "\xef\xbf\xbd";  // U+FFFD.

/// The number of bytes of the character that starts `text`; 0 when it is malformed.
std::size_t characterLength(std::string_view text) noexcept {
  const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const auto continues = [&](std::size_t index) { return index < text.size() && (byte(index) & 0xc0) == 0x80; };
  const auto first = byte(0);
  if (first < 0x80) return 1;
  if (first < 0xc2) return 0;
  if (first < 0xe0) return continues(1) ? 2 : 0;
  if (first < 0xf0) {
    if (!continues(1) || !continues(2)) return 0;
    if (first == 0xe0 && byte(1) < 0xa0) return 0;
    return first == 0xed && byte(1) >= 0xa0 ? 0 : 3;
  }
  if (first > 0xf4 || !continues(1) || !continues(2) || !continues(3)) return 0;
  if (first == 0xf0 && byte(1) < 0x90) return 0;
  return first == 0xf4 && byte(1) >= 0x90 ? 0 : 4;
}

}  // namespace

bool isUTF8(std::string_view text) noexcept {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  while (!text.empty()) {
    std::uint64_t word = kHighBits;
    while (text.size() >= sizeof word) {
      std::memcpy(&word, text.data(), sizeof word);
      if (word & kHighBits) break;
      text.remove_prefix(sizeof word);
    }
    if (text.empty()) return true;
    const auto length = characterLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string repairedUTF8(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const auto length = characterLength(bytes);
    text.append(length > 0 ? bytes.substr(0, length) : kReplacement);
    bytes.remove_prefix(length > 0 ? length : 1);
  }
  return text;
}

std::string_view beginningOf(std::string_view text, std::size_t longest) noexcept {
  if (text.size() <= longest) return text;
  std::size_t end = longest;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80) --end;
  return text.substr(0, end);
}

std::size_t utf16Length(std::string_view text) noexcept {
  std::size_t units = 0;
  for (const char byte : text) {
    const auto value = static_cast<unsigned char>(byte);
    units += (value & 0xc0) != 0x80;  // The first byte of a character.
    units += value >= 0xf0;           // Beyond the basic plane: a surrogate pair.
  }
  return units;
}

std::u16string utf16FromUTF8(std::string_view text) {
  std::u16string units;
  for (std::size_t i = 0; i < text.size();) {
    const auto first = static_cast<unsigned char>(text[i]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
    char32_t code = length == 1 ? first : first & (0x7fu >> length);
    for (std::size_t k = 1; k < length; ++k) code = (code << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3f);
    i += length;
    if (code >= 0x10000) units.push_back(static_cast<char16_t>(0xd800 + ((code - 0x10000) >> 10)));
    units.push_back(static_cast<char16_t>(code < 0x10000 ? code : 0xdc00 + ((code - 0x10000) & 0x3ff)));
  }
  return units;
}

bool appendUTF8(std::string& text, char32_t codePoint) {
  const auto put = [&](char32_t bits) { text.push_back(static_cast<char>(bits)); };
  if (codePoint < 0x80) {
    put(codePoint);
  } else if (codePoint < 0x800) {
    put(0xc0 | (codePoint >> 6));
    put(0x80 | (codePoint & 0x3f));
  } else if (codePoint < 0x10000) {
    if (codePoint >= 0xd800 && codePoint < 0xe000) return false;
    put(0xe0 | (codePoint >> 12));
    put(0x80 | ((codePoint >> 6) & 0x3f));
    put(0x80 | (codePoint & 0x3f));
  } else {
    if (codePoint > 0x10ffff) return false;
    put(0xf0 | (codePoint >> 18));
    put(0x80 | ((codePoint >> 12) & 0x3f));
    put(0x80 | ((codePoint >> 6) & 0x3f));
    put(0x80 | (codePoint & 0x3f));
  }
  return true;
}

bool UTF16Decoder::append(std::string& text, std::u16string_view units) {
  char16_t bits = high_;
  for (const auto unit : units) bits |= unit;
  if (bits < 0x80) {
    text.append(units.begin(), units.end());
    return true;
  }
  for (const auto unit : units) {
    const bool low = unit >= 0xdc00 && unit < 0xe000;
    if (low != (high_ != 0)) return false;
    if (low) {
      appendUTF8(text, 0x10000 + ((static_cast<char32_t>(high_) - 0xd800) << 10) + (unit - 0xdc00u));
      high_ = 0;
    } else if (unit < 0x80) {
      text.push_back(static_cast<char>(unit));
    } else if (unit >= 0xd800 && unit < 0xdc00) {
      high_ = unit;
    } else {
      appendUTF8(text, unit);
    }
  }
  return true;
}

std::optional<std::endian> byteOrderMark(std::span<const std::byte> bytes) noexcept {
  constexpr std::byte kFirst{0xfe}, kSecond{0xff};
  if (bytes.size() < 2) return std::nullopt;
  if (bytes[0] == kFirst && bytes[1] == kSecond) return std::endian::big;
  if (bytes[0] == kSecond && bytes[1] == kFirst) return std::endian::little;
  return std::nullopt;
}

std::optional<std::string> utf8FromUTF16(std::span<const std::byte> bytes, std::endian order) {
  if (bytes.size() % 2 != 0) return std::nullopt;
  std::string text;
  UTF16Decoder decoder;
  const std::size_t high = order == std::endian::big ? 0 : 1;
  std::array<char16_t, 512> units;
  while (!bytes.empty()) {
    const auto count = std::min(units.size(), bytes.size() / 2);
    for (std::size_t i = 0; i < count; ++i) {
      units[i] = static_cast<char16_t>(std::to_integer<unsigned>(bytes[2 * i + high]) << 8 |
                                       std::to_integer<unsigned>(bytes[2 * i + 1 - high]));
    }
    if (!decoder.append(text, {units.data(), count})) return std::nullopt;
    bytes = bytes.subspan(2 * count);
  }
  if (!decoder.complete()) return std::nullopt;
  return text;
}

}  // namespace sim
