#include "base/OldStylePropertyListReader.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/UTF8.hpp"

namespace sim {

namespace {

enum class Container { strings, dictionary, array };

bool isBare(char character) {
  constexpr std::string_view kOthers = "_$/:.-";
  const auto in = [&](char low, char high) { return character >= low && character <= high; };
  return in('a', 'z') || in('A', 'Z') || in('0', '9') || kOthers.find(character) != kOthers.npos;
}

class Reader final {
 public:
  Reader(std::string_view document, ValueSink& sink) : document_(document), sink_(sink) {
    if (document_.starts_with("\xef\xbb\xbf")) at_ = 3;
  }

  Problem run() {
    if (!isUTF8(document_)) return "The text is not UTF-8";
    if (readDocument()) return std::nullopt;
    const auto line = 1 + std::count(document_.begin(), document_.begin() + static_cast<std::ptrdiff_t>(at_), '\n');
    return problem_ + " (line " + std::to_string(line) + ")";
  }

 private:
  bool fail(std::string problem) {
    if (problem_.empty()) problem_ = std::move(problem);
    return false;
  }

  bool tell(bool accepted) { return accepted || fail("The value was not taken"); }

  bool atEnd() const { return at_ == document_.size(); }
  bool next(char character) const { return !atEnd() && document_[at_] == character; }

  bool take(char character) {
    if (!next(character)) return false;
    ++at_;
    return true;
  }

  bool skipSpace() {
    for (;;) {
      at_ = std::min(document_.find_first_not_of(" \t\r\n\v\f", at_), document_.size());
      const auto rest = document_.substr(at_);
      if (rest.starts_with("//")) {
        at_ = std::min(document_.find_first_of("\r\n", at_), document_.size());
      } else if (rest.starts_with("/*")) {
        const auto end = document_.find("*/", at_ + 2);
        if (end == document_.npos) return fail("A comment is not closed");
        at_ = end + 2;
      } else {
        return true;
      }
    }
  }

  bool readDocument() {
    if (!skipSpace()) return false;
    if (atEnd() || isStringsFile()) {
      if (!tell(sink_.beginDictionary(0))) return false;
      open_.push_back(Container::strings);
    } else if (!readValue()) {
      return false;
    }
    while (!open_.empty()) {
      if (!skipSpace() || !(open_.back() == Container::array ? readItem() : readEntry())) return false;
    }
    if (!skipSpace()) return false;
    return atEnd() || fail("Something follows the property list");
  }

  /// Whether a string and then `=` or `;` come first. Reads ahead only.
  bool isStringsFile() {
    const auto start = at_;
    const bool result =
        (next('"') || next('\'') || isBare(document_[at_])) && readText() && skipSpace() && (next('=') || next(';'));
    at_ = start;
    problem_.clear();
    return result;
  }

  bool readItem() {
    if (take(')')) return close();
    if (!first_ && !take(',')) return fail("A comma is missing in an array");
    if (!skipSpace()) return false;
    if (!first_ && take(')')) return close();
    first_ = false;
    return readValue();
  }

  bool readEntry() {
    const bool strings = open_.back() == Container::strings;
    if (strings ? atEnd() : take('}')) return close();
    if (!readText()) return fail("A key is missing in a dictionary");
    if (!tell(sink_.key(text_)) || !skipSpace()) return false;
    if (take(';')) return tell(sink_.string(text_));
    if (!take('=')) return fail("'=' is missing behind a key");
    if (!skipSpace()) return false;
    semicolons_.push_back(open_.size());
    return readValue() && finishEntry();
  }

  /// Takes the semicolon of an entry whose value has ended.
  bool finishEntry() {
    if (semicolons_.empty() || semicolons_.back() != open_.size()) return true;
    semicolons_.pop_back();
    if (!skipSpace()) return false;
    if (take(';')) return true;
    const bool last = open_.back() == Container::dictionary ? next('}') : atEnd();
    return last || fail("';' is missing behind a value");
  }

  bool open(Container container) {
    if (open_.size() == kMaximumDepth) return fail("The containers lie too deep");
    open_.push_back(container);
    first_ = true;
    return tell(container == Container::array ? sink_.beginArray(0) : sink_.beginDictionary(0));
  }

  bool close() {
    const bool array = open_.back() == Container::array;
    open_.pop_back();
    first_ = false;
    return tell(array ? sink_.endArray() : sink_.endDictionary()) && finishEntry();
  }

  bool readValue() {
    if (take('{')) return open(Container::dictionary);
    if (take('(')) return open(Container::array);
    if (take('<')) return readData();
    return readText() && tell(sink_.string(text_));
  }

  bool readData() {
    std::string digits;
    while (!next('>')) {
      if (atEnd()) return fail("Data is not closed");
      const char digit = document_[at_++];
      if (digit != ' ' && digit != '\n' && digit != '\t' && digit != '\r') digits.push_back(digit);
    }
    ++at_;
    std::vector<std::byte> bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
      std::uint8_t byte = 0;
      if (std::from_chars(&digits[i], &digits[i] + 2, byte, 16).ptr != &digits[i] + 2) return fail("Data is not hex");
      bytes.push_back(static_cast<std::byte>(byte));
    }
    return digits.size() % 2 == 0 ? tell(sink_.data(bytes)) : fail("Data has half a byte");
  }

  bool readText() {
    text_.clear();
    if (next('"') || next('\'')) return readQuoted(document_[at_++]);
    const auto start = at_;
    while (!atEnd() && isBare(document_[at_])) ++at_;
    text_.assign(document_, start, at_ - start);
    return !text_.empty() || fail(atEnd() ? "The document ends early" : "A character is out of place");
  }

  bool readQuoted(char quote) {
    while (!next(quote)) {
      if (atEnd()) return fail("A string is not closed");
      const char character = document_[at_++];
      if (character != '\\') {
        text_.push_back(character);
      } else if (!readEscape()) {
        return false;
      }
    }
    ++at_;
    return utf16_.complete() || fail("An escape is half a character");
  }

  bool readEscape() {
    if (atEnd()) return fail("A string is not closed");
    const char character = document_[at_++];
    if (character == 'U' || character == 'u') return readUTF16Unit();
    if (character >= '0' && character <= '7') return readOctal(character);
    constexpr std::string_view kLetters = "abfnrtv", kMeanings = "\a\b\f\n\r\t\v";
    const auto index = kLetters.find(character);
    text_.push_back(index == kLetters.npos ? character : kMeanings[index]);
    return true;
  }

  bool readUTF16Unit() {
    std::uint16_t unit = 0;
    const auto* start = document_.data() + at_;
    const auto count = std::min<std::size_t>(4, document_.size() - at_);
    const auto stop = std::from_chars(start, start + count, unit, 16).ptr;
    if (stop == start) return fail("An escape is malformed");
    at_ += static_cast<std::size_t>(stop - start);
    const char16_t wide = unit;
    return utf16_.append(text_, {&wide, 1}) || fail("An escape is half a character");
  }

  bool readOctal(char first) {
    unsigned value = static_cast<unsigned>(first - '0');
    for (int i = 0; i < 2 && !atEnd() && document_[at_] >= '0' && document_[at_] <= '7'; ++i) {
      value = value * 8 + static_cast<unsigned>(document_[at_++] - '0');
    }
    return value < 0x80 ? appendUTF8(text_, value) : fail("An octal escape is not ASCII");
  }

  const std::string_view document_;
  ValueSink& sink_;
  std::size_t at_ = 0;
  std::vector<Container> open_;
  std::vector<std::size_t> semicolons_;  // Depths of the dictionaries that wait for the end of a value.
  bool first_ = false;                   // Nothing has been read in the innermost container.
  UTF16Decoder utf16_;
  std::string text_;
  std::string problem_;
};

}  // namespace

Problem readOldStylePropertyList(std::string_view document, ValueSink& sink) { return Reader(document, sink).run(); }

}  // namespace sim
