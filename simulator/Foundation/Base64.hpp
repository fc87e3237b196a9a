// Base64 with the standard alphabet and padding.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

/// Encodes `bytes`. With a `lineLength` (a multiple of 4), `lineEnd` stands between lines of that many characters, and
/// none after the last.
std::string base64Encoded(std::span<const std::byte> bytes, std::size_t lineLength = 0, std::string_view lineEnd = {});

/// What to do with characters that are neither of the alphabet nor padding.
enum class Unknown { refuse, ignore };

/// Decodes `text`; nothing when it holds a character that is to be refused, lacks padding or has padding elsewhere than
/// at its end.
std::optional<std::vector<std::byte>> base64Decoded(std::string_view text, Unknown unknown);

}  // namespace sim
