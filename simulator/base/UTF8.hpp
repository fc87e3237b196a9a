// UTF-8: checks, cuts, and conversions from and to UTF-16 and code points.
#pragma once

#include <bit>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sim {

/// Whether `text` is UTF-8 without overlong forms, surrogates or values beyond U+10FFFF.
bool isUTF8(std::string_view text) noexcept;

/// `bytes` with a replacement character for each byte that belongs to no character.
std::string repairedUTF8(std::string_view bytes);

/// The first bytes of the UTF-8 `text`, at most `longest`, no character of it cut in two.
std::string_view beginningOf(std::string_view text, std::size_t longest) noexcept;

/// How many UTF-16 units the UTF-8 `text` has: what JavaScript and Foundation call its length.
std::size_t utf16Length(std::string_view text) noexcept;

/// `text` is valid UTF-8.
std::u16string utf16FromUTF8(std::string_view text);

/// Appends the UTF-8 form of `codePoint`; false, with nothing appended, for a surrogate or a value beyond U+10FFFF.
bool appendUTF8(std::string& text, char32_t codePoint);

/// Turns UTF-16 that comes in pieces into UTF-8.
class UTF16Decoder final {
 public:
  /// Appends to `text`; false at a surrogate without its partner.
  bool append(std::string& text, std::u16string_view units);
  /// Whether the end leaves no half of a pair.
  bool complete() const noexcept { return high_ == 0; }

 private:
  char16_t high_ = 0;
};

/// The order of the UTF-16 units that follow a byte order mark; nothing when `bytes` does not start with one.
std::optional<std::endian> byteOrderMark(std::span<const std::byte> bytes) noexcept;

/// Nothing when `bytes` is not UTF-16.
std::optional<std::string> utf8FromUTF16(std::span<const std::byte> bytes, std::endian order);

}  // namespace sim
