#include "base/JsonText.hpp"

#include <array>
#include <charconv>
#include <cmath>

#include "base/UTF8.hpp"

namespace sim {
namespace {

template <typename Number>
void appendNumber(std::string& text, Number value) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  text.append(digits.data(), end);
}

void appendEscape(std::string& text, char character) {
  constexpr std::string_view kHex = "0123456789abcdef";
  constexpr std::string_view kShort = "\"\\/\b\f\n\r\t", kLetters = "\"\\/bfnrt";
  const auto index = kShort.find(character);
  if (index != kShort.npos) {
    text.append({'\\', kLetters[index]});
  } else {
    const auto code = static_cast<unsigned char>(character);
    text.append({'\\', 'u', '0', '0', kHex[code >> 4], kHex[code & 15]});
  }
}

}  // namespace

void JsonText::newLine() {
  constexpr std::size_t kIndent = 2;
  if (format_.isPretty) text_.append("\n").append(depth_ * kIndent, ' ');
}

/// A value ends in none of these, so the last byte tells what stands before.
void JsonText::separate() {
  if (text_.empty() || text_.ends_with(format_.isPretty ? ' ' : ':')) return;
  if (text_.back() != '{' && text_.back() != '[') text_ += ',';
  newLine();
}

void JsonText::open(char bracket) {
  separate();
  text_ += bracket;
  ++depth_;
}

void JsonText::close(char bracket) {
  const bool isEmpty = text_.ends_with('{') || text_.ends_with('[');
  if (isEmpty && format_.isPretty) text_ += '\n';
  --depth_;
  newLine();
  text_ += bracket;
}

void JsonText::plain(std::string_view value) {
  separate();
  text_ += value;
}

JsonText& JsonText::name(std::string_view name) {
  string(name);
  text_ += format_.isPretty ? " : " : ":";
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

bool JsonText::isEscaped(char character) const {
  return character == '"' || character == '\\' || static_cast<unsigned char>(character) < 0x20 ||
         (character == '/' && format_.escapesSlashes);
}

void JsonText::string(std::string_view utf8) {
  if (!isUTF8(utf8)) return string(repairedUTF8(utf8));
  separate();
  text_ += '"';
  std::size_t written = 0;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    if (!isEscaped(utf8[at])) continue;
    text_ += utf8.substr(written, at - written);
    appendEscape(text_, utf8[at]);
    written = at + 1;
  }
  text_ += utf8.substr(written);
  text_ += '"';
}

void JsonText::emptyString() {
  plain("\"\"");
  empty_.push_back(text_.size() - 1);
}

void JsonText::fill(const std::vector<std::string>& strings) {
  std::size_t length = text_.size();
  for (const std::string& string : strings) length += string.size();
  std::string filled;
  filled.reserve(length);
  std::size_t written = 0;
  for (std::size_t index = 0; index < empty_.size(); ++index) {
    filled.append(text_, written, empty_[index] - written).append(strings[index]);
    written = empty_[index];
  }
  filled.append(text_, written);
  text_ = std::move(filled);
  empty_.clear();
}

void JsonText::truncate(std::size_t size) {
  text_.resize(size);
  while (!empty_.empty() && empty_.back() >= size) empty_.pop_back();
}

}  // namespace sim
