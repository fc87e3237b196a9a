// Names of files as clients send them in a header.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// The file name that `encoded` stands for: UTF-8 in which any byte may be written as "%" and two hexadecimal digits.
/// Nothing for what cannot name a file in a folder: no name, "." and "..", more than 255 bytes, a "/", control
/// characters, bytes that are no UTF-8; and for a "%" that nothing follows.
std::optional<std::string> decodedFileName(std::string_view encoded);

}  // namespace sim
