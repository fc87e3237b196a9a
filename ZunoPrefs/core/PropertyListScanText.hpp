// Checks of text at the speed of memory, and the conversion from UTF-16. Used by the scanners of both formats.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zuno::detail {

/// The length in bytes of the longest start of `text` that is UTF-8 and holds only characters that XML allows, without
/// '<', '&' and byte order marks.
std::size_t plainLength(std::string_view text) noexcept;

/// Whether every byte of `text` is an ASCII character other than zero.
bool isASCII(std::string_view text) noexcept;

/// Turns big-endian UTF-16, of an even number of bytes, into UTF-8, appended to `text`. False when half a surrogate
/// pair, a zero or a byte order mark is among the units. With a null `text` it only checks. Throws std::bad_alloc.
bool appendUTF16(std::string_view units, std::string* text);

}  // namespace zuno::detail
