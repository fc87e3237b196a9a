#include "base/XMLPropertyListWriter.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "base/Base64.hpp"
#include "base/PropertyListDate.hpp"

namespace sim {

namespace {

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
constexpr std::string_view kTail = "</plist>\n";

enum class Kind : unsigned char { plain, escaped, forbidden, suspect };

/// What each byte of a text may be. U+FFFE and U+FFFF, which are forbidden too, start with the suspect one.
constexpr auto kKinds = [] {
  std::array<Kind, 256> kinds{};
  for (std::size_t code = 0; code < 0x20; ++code) kinds[code] = Kind::forbidden;
  for (const char allowed : {'\t', '\n', '\r'}) kinds[static_cast<unsigned char>(allowed)] = Kind::plain;
  for (const char special : {'<', '>', '&'}) kinds[static_cast<unsigned char>(special)] = Kind::escaped;
  kinds[0xef] = Kind::suspect;
  return kinds;
}();

Kind kindOf(char character) { return kKinds[static_cast<unsigned char>(character)]; }

std::string_view entity(char character) { return character == '<' ? "&lt;" : character == '>' ? "&gt;" : "&amp;"; }

template <typename Number, typename... Format>
std::string decimal(Number value, Format... format) {
  char text[48];
  return {text, std::to_chars(text, text + sizeof text, value, format...).ptr};
}

}  // namespace

XMLPropertyListWriter::XMLPropertyListWriter() : document_(kHead) {}

std::string XMLPropertyListWriter::finished() && {
  document_ += kTail;
  return std::move(document_);
}

bool XMLPropertyListWriter::refuse(std::string problem) {
  problem_ = std::move(problem);
  return false;
}

void XMLPropertyListWriter::indent() {
  document_.append(depth_, '\t');
  empty_ = false;
}

bool XMLPropertyListWriter::element(std::string_view name, std::string_view content) {
  indent();
  document_.append("<").append(name).append(">").append(content).append("</").append(name).append(">\n");
  return true;
}

bool XMLPropertyListWriter::textElement(std::string_view name, std::string_view text) {
  indent();
  document_.append("<").append(name).append(">");
  while (!text.empty()) {
    std::size_t plain = 0;
    while (plain < text.size() && kindOf(text[plain]) == Kind::plain) ++plain;
    document_.append(text, 0, plain);
    text.remove_prefix(plain);
    if (text.empty()) break;
    const bool noncharacter = text.starts_with("\xef\xbf\xbe") || text.starts_with("\xef\xbf\xbf");
    if (kindOf(text.front()) == Kind::forbidden || noncharacter) {
      return refuse("A text holds a character that XML cannot hold");
    }
    if (kindOf(text.front()) == Kind::escaped) {
      document_.append(entity(text.front()));
    } else {
      document_.push_back(text.front());
    }
    text.remove_prefix(1);
  }
  document_.append("</").append(name).append(">\n");
  return true;
}

bool XMLPropertyListWriter::begin(std::string_view name) {
  indent();
  document_.append("<").append(name).append(">\n");
  ++depth_;
  empty_ = true;
  return true;
}

bool XMLPropertyListWriter::end(std::string_view name) {
  --depth_;
  if (empty_) {
    document_.resize(document_.size() - 2);
    document_ += "/>\n";
    empty_ = false;
    return true;
  }
  indent();
  document_.append("</").append(name).append(">\n");
  return true;
}

bool XMLPropertyListWriter::beginDictionary(std::size_t) { return begin("dict"); }
bool XMLPropertyListWriter::endDictionary() { return end("dict"); }
bool XMLPropertyListWriter::beginArray(std::size_t) { return begin("array"); }
bool XMLPropertyListWriter::endArray() { return end("array"); }
bool XMLPropertyListWriter::key(std::string_view text) { return textElement("key", text); }
bool XMLPropertyListWriter::string(std::string_view text) { return textElement("string", text); }
bool XMLPropertyListWriter::integer(std::int64_t value) { return element("integer", decimal(value)); }
bool XMLPropertyListWriter::unsignedInteger(std::uint64_t value) { return element("integer", decimal(value)); }

bool XMLPropertyListWriter::real(double value) {
  if (std::isnan(value)) return element("real", "nan");
  if (std::isinf(value)) return element("real", value > 0 ? "+infinity" : "-infinity");
  constexpr int kExactDigits = 17;
  return element("real", decimal(value, std::chars_format::general, kExactDigits));
}

bool XMLPropertyListWriter::boolean(bool value) {
  indent();
  document_ += value ? "<true/>\n" : "<false/>\n";
  return true;
}

bool XMLPropertyListWriter::date(double seconds) {
  const auto text = iso8601FromSeconds(seconds);
  return text ? element("date", *text) : refuse("A date lies beyond the years that a property list can hold");
}

bool XMLPropertyListWriter::data(std::span<const std::byte> bytes) {
  constexpr std::size_t kLineWidth = 76, kTabWidth = 8, kDeepest = 8;
  const auto depth = std::min(depth_, kDeepest);
  const auto lineLength = (kLineWidth - kTabWidth * depth) / 4 * 4;
  const auto lineEnd = "\n" + std::string(depth, '\t');
  indent();
  document_ += "<data>\n";
  if (!bytes.empty()) document_.append(depth, '\t').append(base64Encoded(bytes, lineLength, lineEnd)).append("\n");
  indent();
  document_ += "</data>\n";
  return true;
}

bool XMLPropertyListWriter::null() { return refuse("A property list cannot hold null"); }

}  // namespace sim
