#include "Settings/JsonText.hpp"

#include <array>
#include <charconv>
#include <cmath>

#include "Foundation/UTF8.hpp"

namespace sim {
namespace {

template <typename Number>
void appendNumber(std::string& text, Number value) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  text.append(digits.data(), end);
}

/// Length of the UTF-8 character at the start of `bytes`; 0 when there is none.
std::size_t characterLength(std::string_view bytes) {
  for (std::size_t length = 1; length <= 4 && length <= bytes.size(); ++length) {
    if (isUTF8(bytes.substr(0, length))) return length;
  }
  return 0;
}

std::string mended(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t length = characterLength(bytes);
    if (length > 0) {
      text.append(bytes.substr(0, length));
    } else {
      text += "\xef\xbf\xbd";
    }
    bytes.remove_prefix(length > 0 ? length : 1);
  }
  return text;
}

bool needsEscape(char character) {
  return character == '"' || character == '\\' || static_cast<unsigned char>(character) < 0x20;
}

void appendEscaped(std::string& text, char character) {
  constexpr std::string_view hex = "0123456789abcdef";
  switch (character) {
    case '"': text += "\\\""; return;
    case '\\': text += "\\\\"; return;
    case '\n': text += "\\n"; return;
    case '\t': text += "\\t"; return;
    default:
      text += "\\u00";
      text += hex[static_cast<unsigned char>(character) >> 4];
      text += hex[static_cast<unsigned char>(character) & 0xf];
  }
}

}  // namespace

/// A value ends in none of these, so the last byte tells whether one stands before.
void JsonText::separate() {
  if (text_.empty()) return;
  const char last = text_.back();
  if (last != '{' && last != '[' && last != ':') text_ += ',';
}

void JsonText::open(char bracket) {
  separate();
  text_ += bracket;
}

void JsonText::plain(std::string_view value) {
  separate();
  text_ += value;
}

JsonText& JsonText::name(std::string_view name) {
  string(name);
  text_ += ':';
  return *this;
}

void JsonText::integer(std::int64_t value) {
  separate();
  appendNumber(text_, value);
}

void JsonText::natural(std::uint64_t value) {
  separate();
  appendNumber(text_, value);
}

void JsonText::number(double value) {
  if (!std::isfinite(value)) return null();
  separate();
  appendNumber(text_, value);
}

void JsonText::number(float value) {
  if (!std::isfinite(value)) return null();
  separate();
  appendNumber(text_, value);
}

void JsonText::string(std::string_view utf8) {
  if (!isUTF8(utf8)) return string(mended(utf8));
  separate();
  text_ += '"';
  std::size_t written = 0;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    if (!needsEscape(utf8[at])) continue;
    text_ += utf8.substr(written, at - written);
    appendEscaped(text_, utf8[at]);
    written = at + 1;
  }
  text_ += utf8.substr(written);
  text_ += '"';
}

}  // namespace sim
