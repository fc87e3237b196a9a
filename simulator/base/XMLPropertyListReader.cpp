#include "base/XMLPropertyListReader.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <system_error>
#include <utility>
#include <vector>

#include "base/Base64.hpp"
#include "base/PropertyListDate.hpp"
#include "base/UTF8.hpp"

namespace sim {

namespace {

constexpr std::string_view kSpace = " \t\r\n";

std::string_view trimmed(std::string_view text) {
  const auto start = text.find_first_not_of(kSpace);
  if (start == text.npos) return {};
  return text.substr(start, text.find_last_not_of(kSpace) - start + 1);
}

struct Tag {
  std::string_view name;  // Empty: there was none.
  bool closes = false;    // </name>
  bool isEmpty = false;   // <name/>
};

enum class Container { dictionary, array };

class Reader final {
 public:
  Reader(std::string_view document, ValueSink& sink) : document_(document), sink_(sink) {
    if (document_.starts_with("\xef\xbb\xbf")) at_ = 3;
  }

  Problem run() {
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

  std::string_view rest() const { return document_.substr(at_); }

  /// Moves behind `end`, or fails.
  bool skipPast(std::string_view end) {
    const auto found = document_.find(end, at_);
    if (found == document_.npos) return fail("The document ends early");
    at_ = found + end.size();
    return true;
  }

  bool skipDoctype() {
    const auto end = document_.find_first_of("[>", at_);
    if (end == document_.npos) return fail("The document ends early");
    at_ = end;
    return document_[end] == '>' ? skipPast(">") : skipPast("]") && skipPast(">");
  }

  /// Skips white space, comments and instructions. True when markup or text follows or the document ends.
  bool skipMisc() {
    for (;;) {
      at_ = std::min(document_.find_first_not_of(kSpace, at_), document_.size());
      if (rest().starts_with("<!--")) {
        if (!skipPast("-->")) return false;
      } else if (rest().starts_with("<?")) {
        if (!skipPast("?>")) return false;
      } else if (rest().starts_with("<!DOCTYPE")) {
        if (!skipDoctype()) return false;
      } else {
        return true;
      }
    }
  }

  bool readTag(Tag& tag) {
    if (!skipMisc()) return false;
    if (at_ == document_.size()) return fail("The document ends early");
    if (document_[at_] != '<') return fail("Text stands where a tag is expected");
    const auto end = document_.find('>', at_);
    if (end == document_.npos) return fail("The document ends early");
    auto inside = document_.substr(at_ + 1, end - at_ - 1);
    tag.closes = inside.starts_with('/');
    tag.isEmpty = inside.ends_with('/');
    if (tag.closes) inside.remove_prefix(1);
    tag.name = inside.substr(0, inside.find_first_of(" \t\r\n/"));
    if (tag.name.empty() || (tag.closes && tag.isEmpty)) return fail("A tag is malformed");
    at_ = end + 1;
    return true;
  }

  bool readClosingTag(std::string_view name) {
    Tag tag;
    if (!readTag(tag)) return false;
    return (tag.closes && tag.name == name) || fail("<" + std::string(name) + "> is not closed");
  }

  bool readDocument() {
    Tag tag;
    if (!readTag(tag)) return false;
    const bool wrapped = tag.name == "plist" && !tag.closes;
    if (wrapped && (tag.isEmpty || !readTag(tag))) return fail("The property list is empty");
    if (!readValue(tag)) return false;
    while (!open_.empty()) {
      if (!readTag(tag)) return false;
      if (!(open_.back() == Container::dictionary ? readEntry(tag) : readItem(tag))) return false;
    }
    if (wrapped && !readClosingTag("plist")) return false;
    if (!skipMisc()) return false;
    return at_ == document_.size() || fail("Something follows the property list");
  }

  bool readItem(const Tag& tag) {
    if (!tag.closes) return readValue(tag);
    if (tag.name != "array") return fail("<array> is not closed");
    open_.pop_back();
    return tell(sink_.endArray());
  }

  bool readEntry(const Tag& tag) {
    if (tag.closes) {
      if (tag.name != "dict") return fail("<dict> is not closed");
      open_.pop_back();
      return tell(sink_.endDictionary());
    }
    if (tag.name != "key") return fail("A value in <dict> has no key");
    std::string_view text;
    if (!readText(tag, text)) return false;
    if (!tell(sink_.key(text))) return false;
    Tag value;
    if (!readTag(value)) return false;
    return value.closes ? fail("A key in <dict> has no value") : readValue(value);
  }

  bool open(Container container, const Tag& tag) {
    if (open_.size() == kMaximumDepth) return fail("The containers lie too deep");
    const bool dictionary = container == Container::dictionary;
    if (!tell(dictionary ? sink_.beginDictionary(0) : sink_.beginArray(0))) return false;
    if (tag.isEmpty) return tell(dictionary ? sink_.endDictionary() : sink_.endArray());
    open_.push_back(container);
    return true;
  }

  bool readValue(const Tag& tag) {
    if (tag.closes) return fail("</" + std::string(tag.name) + "> closes nothing");
    if (tag.name == "dict") return open(Container::dictionary, tag);
    if (tag.name == "array") return open(Container::array, tag);
    if (tag.name == "true" || tag.name == "false") {
      return (tag.isEmpty || readClosingTag(tag.name)) && tell(sink_.boolean(tag.name == "true"));
    }
    std::string_view text;
    if (tag.name == "string") return readText(tag, text) && tell(sink_.string(text));
    if (tag.name == "data") return readText(tag, text) && readData(text);
    using Leaf = std::pair<std::string_view, bool (Reader::*)(std::string_view)>;
    constexpr std::array<Leaf, 3> kLeaves{
        {{"integer", &Reader::readInteger}, {"real", &Reader::readReal}, {"date", &Reader::readDate}}};
    for (const auto& [name, read] : kLeaves) {
      if (tag.name == name) return readText(tag, text) && (this->*read)(trimmed(text));
    }
    return fail("<" + std::string(tag.name.substr(0, 40)) + "> is unknown");
  }

  /// The text up to the closing tag, entities and CDATA sections resolved; lent until the next call.
  bool readText(const Tag& tag, std::string_view& text) {
    text = {};
    if (tag.isEmpty) return true;
    const auto end = document_.find('<', at_);
    if (end == document_.npos) return fail("The document ends early");
    text = document_.substr(at_, end - at_);
    if (text.find('&') != text.npos || document_.substr(end).starts_with("<![CDATA[")) {
      if (!resolveText()) return false;
      text = resolved_;
    } else {
      at_ = end;
    }
    if (!rest().starts_with("</")) return fail("<" + std::string(tag.name) + "> holds more than text");
    return (isUTF8(text) || fail("A text is not UTF-8")) && readClosingTag(tag.name);
  }

  bool resolveText() {
    resolved_.clear();
    for (;;) {
      const auto next = document_.find_first_of("<&", at_);
      if (next == document_.npos) return fail("The document ends early");
      resolved_.append(document_, at_, next - at_);
      at_ = next;
      if (document_[at_] == '&') {
        if (!resolveEntity()) return false;
      } else if (rest().starts_with("<![CDATA[")) {
        const auto start = at_ + 9;
        if (!skipPast("]]>")) return false;
        resolved_.append(document_, start, at_ - 3 - start);
      } else {
        return true;
      }
    }
  }

  bool resolveEntity() {
    constexpr std::array<std::pair<std::string_view, char>, 5> kEntities{
        {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"apos", '\''}, {"quot", '"'}}};
    constexpr std::size_t kLongest = 12;
    const auto near = document_.substr(at_ + 1, kLongest);
    const auto length = near.find(';');
    if (length == near.npos) return fail("An entity is malformed");
    const auto name = near.substr(0, length);
    const auto end = at_ + 1 + length;
    for (const auto& [entity, character] : kEntities) {
      if (name != entity) continue;
      resolved_.push_back(character);
      at_ = end + 1;
      return true;
    }
    if (!name.starts_with('#')) return fail("An entity is unknown");
    const bool hex = name.starts_with("#x");
    const auto digits = name.substr(hex ? 2 : 1);
    std::uint32_t code = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, hex ? 16 : 10);
    if (error != std::errc{} || stop != digits.data() + digits.size() || !appendUTF8(resolved_, code)) {
      return fail("A character reference is malformed");
    }
    at_ = end + 1;
    return true;
  }

  bool readData(std::string_view text) {
    const auto bytes = base64Decoded(text, Unknown::ignore);
    if (!bytes) return fail("<data> is not base64");
    return tell(sink_.data(*bytes));
  }

  bool readInteger(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const bool hex = text.starts_with("0x") || text.starts_with("0X");
    if (hex) text.remove_prefix(2);
    std::uint64_t size = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), size, hex ? 16 : 10);
    if (error != std::errc{} || stop != text.data() + text.size()) return fail("<integer> is not a 64-bit number");
    constexpr auto kLimit = std::uint64_t{1} << 63;
    if (negative && size > kLimit) return fail("<integer> is not a 64-bit number");
    if (!negative && size >= kLimit) return tell(sink_.unsignedInteger(size));
    return tell(sink_.integer(static_cast<std::int64_t>(negative ? 0 - size : size)));
  }

  bool readReal(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || stop != text.data() + text.size()) return fail("<real> is not a number");
    return tell(sink_.real(value));
  }

  bool readDate(std::string_view text) {
    const auto seconds = secondsFromISO8601(text);
    if (!seconds) return fail("<date> is not a date");
    return tell(sink_.date(*seconds));
  }

  const std::string_view document_;
  ValueSink& sink_;
  std::size_t at_ = 0;
  std::vector<Container> open_;
  std::string resolved_;
  std::string problem_;
};

}  // namespace

Problem readXMLPropertyList(std::string_view document, ValueSink& sink) { return Reader(document, sink).run(); }

}  // namespace sim
