#include "Foundation/JSONWriter.hpp"

#include <charconv>
#include <cmath>

namespace sim {

namespace {

constexpr std::size_t kIndent = 2;

template <typename Number>
std::string decimal(Number value) {
  char text[48];
  return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

}  // namespace

void JSONWriter::newLine() {
  if (format_.pretty) text_.append("\n").append(entries_.size() * kIndent, ' ');
}

void JSONWriter::startEntry() {
  if (entries_.empty()) return;
  if (entries_.back()++ > 0) text_ += ',';
  newLine();
}

void JSONWriter::startValue() {
  if (!afterKey_) startEntry();
  afterKey_ = false;
}

bool JSONWriter::scalar(std::string_view text) {
  startValue();
  text_ += text;
  return true;
}

bool JSONWriter::begin(char bracket) {
  startValue();
  text_ += bracket;
  entries_.push_back(0);
  return true;
}

bool JSONWriter::end(char bracket) {
  const bool empty = entries_.back() == 0;
  entries_.pop_back();
  if (empty && format_.pretty) text_ += '\n';
  newLine();
  text_ += bracket;
  return true;
}

void JSONWriter::append(std::string_view text) {
  constexpr std::string_view kHex = "0123456789abcdef";
  constexpr std::string_view kShort = "\b\f\n\r\t", kLetters = "bfnrt";
  text_ += '"';
  for (const char character : text) {
    if (character == '"' || character == '\\' || (character == '/' && format_.escapesSlashes)) {
      text_.append({'\\', character});
    } else if (const auto code = static_cast<unsigned char>(character); code >= 0x20) {
      text_ += character;
    } else if (const auto index = kShort.find(character); index != kShort.npos) {
      text_.append({'\\', kLetters[index]});
    } else {
      text_.append({'\\', 'u', '0', '0', kHex[code >> 4], kHex[code & 15]});
    }
  }
  text_ += '"';
}

bool JSONWriter::beginDictionary(std::size_t) { return begin('{'); }
bool JSONWriter::endDictionary() { return end('}'); }
bool JSONWriter::beginArray(std::size_t) { return begin('['); }
bool JSONWriter::endArray() { return end(']'); }

bool JSONWriter::key(std::string_view text) {
  startEntry();
  append(text);
  text_ += format_.pretty ? " : " : ":";
  afterKey_ = true;
  return true;
}

bool JSONWriter::string(std::string_view text) {
  startValue();
  append(text);
  return true;
}

bool JSONWriter::integer(std::int64_t value) { return scalar(decimal(value)); }
bool JSONWriter::unsignedInteger(std::uint64_t value) { return scalar(decimal(value)); }
bool JSONWriter::real(double value) { return std::isfinite(value) && scalar(decimal(value)); }
bool JSONWriter::boolean(bool value) { return scalar(value ? "true" : "false"); }
bool JSONWriter::date(double) { return false; }
bool JSONWriter::data(std::span<const std::byte>) { return false; }
bool JSONWriter::null() { return scalar("null"); }

}  // namespace sim
