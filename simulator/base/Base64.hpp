// Base64 with the standard alphabet and padding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sim {

/// Encodes `bytes`. With a `lineLength` (a multiple of 4), `lineEnd` stands between lines of that many characters, and
/// none after the last.
std::string base64Encoded(std::span<const std::byte> bytes, std::size_t lineLength = 0, std::string_view lineEnd = {});

/// What to do with characters that are neither of the alphabet nor padding.
enum class Unknown { refuse, ignore };

/// Decodes a text that comes in pieces.
class Base64Decoder final {
 public:
  /// `length` is that of the whole text, in characters, at least.
  Base64Decoder(std::size_t length, Unknown unknown);

  /// Takes the next characters. False when the text is malformed so far.
  bool append(std::string_view piece);

  /// Whether the text may end here.
  bool isComplete() const noexcept { return held_ != 1 && padding_ == (held_ == 0 ? 0 : 4 - held_); }

  struct Free {
    void operator()(std::byte* bytes) const noexcept { std::free(bytes); }
  };
  /// Allocated by malloc.
  using Buffer = std::unique_ptr<std::byte[], Free>;

  /// The decoded bytes of a complete text, and how many they are. Once, at the end.
  std::pair<Buffer, std::size_t> take();

 private:
  void put(std::uint32_t bits) noexcept;
  bool appendCharacter(char character) noexcept;

  Buffer bytes_;
  std::byte* end_;  ///< Within `bytes_`.
  Unknown unknown_;
  std::uint32_t bits_ = 0;
  int held_ = 0;     ///< Characters in `bits_`.
  int padding_ = 0;  ///< Characters.
};

/// Decodes `text`; nothing when it holds a character that is to be refused, lacks padding or has padding elsewhere than
/// at its end.
std::optional<std::vector<std::byte>> base64Decoded(std::string_view text, Unknown unknown);

}  // namespace sim
