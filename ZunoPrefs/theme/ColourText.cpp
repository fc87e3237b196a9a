#include "theme/ColourText.hpp"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zuno {
namespace {

constexpr std::size_t kOpaqueDigits = 6;
constexpr std::size_t kDigits = 8;

std::optional<unsigned> digitValue(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  if (digit >= 'A' && digit <= 'F') return static_cast<unsigned>(digit - 'A') + 10;
  if (digit >= 'a' && digit <= 'f') return static_cast<unsigned>(digit - 'a') + 10;
  return std::nullopt;
}

/// Written so that what is no number becomes 0: it is not above it.
std::uint8_t eightBits(double part) {
  if (!(part > 0)) return 0;
  return part >= 1 ? 255 : static_cast<std::uint8_t>(part * 255 + 0.5);
}

}  // namespace

std::optional<Colour> parseColour(std::string_view text) {
  if (text.size() != kOpaqueDigits && text.size() != kDigits) return std::nullopt;

  std::array<double, kDigits / 2> parts = {0, 0, 0, 1};
  for (std::size_t index = 0; index < text.size(); index += 2) {
    const auto high = digitValue(text[index]);
    const auto low = digitValue(text[index + 1]);
    if (!high || !low) return std::nullopt;
    parts[index / 2] = (*high * 16 + *low) / 255.0;
  }
  return Colour{parts[0], parts[1], parts[2], parts[3]};
}

std::string colourText(const Colour& colour) {
  constexpr std::string_view kCapitals = "0123456789ABCDEF";
  const std::array<std::uint8_t, 4> bytes = {eightBits(colour.red), eightBits(colour.green), eightBits(colour.blue),
                                             eightBits(colour.alpha)};
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += kCapitals[byte / 16];
    text += kCapitals[byte % 16];
  }
  if (bytes.back() == 255) text.resize(kOpaqueDigits);
  return text;
}

}  // namespace zuno
