#include "core/PropertyListScanText.hpp"

#include <cstdint>
#include <cstring>

namespace zuno::detail {
namespace {

// Foundation drops it at the start of a text.
constexpr unsigned kByteOrderMark = 0xfeff;

// 32 bytes at once: one register with AVX2, two registers elsewhere. Functions that take or return them are always
// inlined, so it does not matter that the convention for passing them depends on the instruction set.
using Bytes = signed char __attribute__((vector_size(32)));
#pragma clang diagnostic ignored "-Wpsabi"

// The conditions that end a run, for one byte or for each lane of a vector. As signed numbers, the bytes of characters
// beyond ASCII are negative.

struct EndsPlainText {
  template <typename Code>
  [[gnu::always_inline]] auto operator()(Code code) const noexcept {
    const auto isSpace = (code == '\n') | (code == '\r') | (code == '\t');
    return ((code < ' ') & (isSpace == 0)) | (code == '<') | (code == '&');
  }
};

struct EndsASCII {
  template <typename Code>
  [[gnu::always_inline]] auto operator()(Code code) const noexcept {
    return code < 1;
  }
};

[[gnu::always_inline]] inline bool any(Bytes lanes) noexcept {
  std::uint64_t words[sizeof lanes / sizeof(std::uint64_t)];
  std::memcpy(words, &lanes, sizeof words);
  return (words[0] | words[1] | words[2] | words[3]) != 0;
}

/// The number of bytes before the first one for which `ends` holds; all of them when there is none.
template <typename Ends>
[[gnu::always_inline]] inline std::size_t runLength(const char* text, std::size_t size, Ends ends) noexcept {
  constexpr std::size_t kBlock = 8 * sizeof(Bytes);
  std::size_t length = 0;
  for (; size - length >= kBlock; length += kBlock) {
    Bytes found = {};
    for (std::size_t i = 0; i < kBlock; i += sizeof(Bytes)) {
      Bytes bytes;
      std::memcpy(&bytes, text + length + i, sizeof bytes);
      found |= ends(bytes);
    }
    if (any(found)) break;
  }
  while (length < size && !ends(static_cast<signed char>(text[length]))) ++length;
  return length;
}

// Wider vectors halve the time; arm64 has one width.
#if defined(__x86_64__) && defined(__ELF__)
#define ZUNO_WIDE_VECTORS __attribute__((target_clones("avx2", "default")))
#else
#define ZUNO_WIDE_VECTORS
#endif

ZUNO_WIDE_VECTORS std::size_t plainRun(const char* text, std::size_t size) noexcept {
  return runLength(text, size, EndsPlainText());
}

ZUNO_WIDE_VECTORS std::size_t asciiRun(const char* text, std::size_t size) noexcept {
  return runLength(text, size, EndsASCII());
}

/// The length of the character beyond ASCII that starts `text`; 0 when it is malformed, a byte order mark, or not
/// allowed in XML.
std::size_t wideCharacterLength(std::string_view text) noexcept {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
  const auto isBetween = [&](std::size_t i, unsigned low, unsigned high) { return byte(i) >= low && byte(i) <= high; };
  const auto continues = [&](std::size_t i) { return isBetween(i, 0x80, 0xbf); };

  const unsigned first = byte(0);
  if (first < 0xc2 || first > 0xf4) return 0;
  if (first < 0xe0) return continues(1) ? 2 : 0;
  if (first < 0xf0) {
    if (!isBetween(1, first == 0xe0 ? 0xa0 : 0x80, first == 0xed ? 0x9f : 0xbf) || !continues(2)) return 0;
    const unsigned code = (first & 0x0f) << 12 | (byte(1) & 0x3f) << 6 | (byte(2) & 0x3f);
    return code == kByteOrderMark || code >= 0xfffe ? 0 : 3;
  }
  if (!isBetween(1, first == 0xf0 ? 0x90 : 0x80, first == 0xf4 ? 0x8f : 0xbf)) return 0;
  return continues(2) && continues(3) ? 4 : 0;
}

void appendCharacter(std::string& text, std::uint32_t code) {
  const auto put = [&](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
  const auto putRest = [&](int shift) {
    for (; shift >= 0; shift -= 6) put(0x80 | (code >> shift & 0x3f));
  };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xc0 | code >> 6);
    putRest(0);
  } else if (code < 0x10000) {
    put(0xe0 | code >> 12);
    putRest(6);
  } else {
    put(0xf0 | code >> 18);
    putRest(12);
  }
}

}  // namespace

std::size_t plainLength(std::string_view text) noexcept {
  std::size_t length = 0;
  for (;;) {
    length += plainRun(text.data() + length, text.size() - length);
    if (length == text.size()) return length;
    const auto wide = wideCharacterLength(text.substr(length));
    if (wide == 0) return length;
    length += wide;
  }
}

bool isASCII(std::string_view text) noexcept { return asciiRun(text.data(), text.size()) == text.size(); }

bool appendUTF16(std::string_view units, std::string* text) {
  const auto byte = [&](std::size_t at) -> std::uint32_t { return static_cast<unsigned char>(units[at]); };
  const auto unit = [&](std::size_t at) { return byte(at) << 8 | byte(at + 1); };
  const auto isIn = [](std::uint32_t value, std::uint32_t first) { return value >= first && value < first + 0x400; };
  for (std::size_t at = 0; at < units.size(); at += 2) {
    std::uint32_t code = unit(at);
    if (isIn(code, 0xd800)) {
      at += 2;
      if (at == units.size() || !isIn(unit(at), 0xdc00)) return false;
      code = 0x10000 + ((code - 0xd800) << 10) + (unit(at) - 0xdc00);
    } else if (code == 0 || code == kByteOrderMark || isIn(code, 0xdc00)) {
      return false;
    }
    if (text) appendCharacter(*text, code);
  }
  return true;
}

}  // namespace zuno::detail
