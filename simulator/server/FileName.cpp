#include "server/FileName.hpp"

#include "base/UTF8.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace sim {
namespace {

constexpr std::size_t kLongestName = 255;  // Bytes, as file systems have it.

std::optional<std::string> percentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '%') {
      decoded += text[at];
      continue;
    }
    const std::string_view digits = text.substr(at + 1, 2);
    unsigned char byte = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (digits.size() != 2 || error != std::errc() || end != digits.data() + 2) return std::nullopt;
    decoded += static_cast<char>(byte);
    at += 2;
  }
  return decoded;
}

bool hasControlCharacter(std::string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
    if (byte < 0x20 || byte == 0x7F || (byte == 0xC2 && next < 0xA0)) return true;
  }
  return false;
}

}  // namespace

std::optional<std::string> decodedFileName(std::string_view encoded) {
  auto name = percentDecoded(encoded);
  if (!name || name->empty() || name->size() > kLongestName || *name == "." || *name == "..") return std::nullopt;
  if (name->find('/') != std::string::npos || hasControlCharacter(*name) || !isUTF8(*name)) return std::nullopt;
  return name;
}

}  // namespace sim
