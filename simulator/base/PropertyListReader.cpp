#include "base/PropertyListReader.hpp"

#include <algorithm>
#include <array>

#include "base/BinaryPropertyListReader.hpp"
#include "base/OldStylePropertyListReader.hpp"
#include "base/UTF8.hpp"
#include "base/XMLPropertyListReader.hpp"

namespace sim {

namespace {

/// Whether the text looks like XML rather than like data in the old format, which also starts with '<'.
bool looksLikeXML(std::string_view text) {
  const auto start = text.find_first_not_of(" \t\r\n\xef\xbb\xbf");
  if (start == text.npos || text[start] != '<') return false;
  const auto rest = text.substr(start + 1, 16);
  if (rest.starts_with('?') || rest.starts_with('!')) return true;
  constexpr std::array<std::string_view, 10> kNames{"plist",   "dict", "array", "string", "data",
                                                    "integer", "real", "date",  "true",   "false"};
  return std::any_of(kNames.begin(), kNames.end(), [&](std::string_view name) {
    return rest.starts_with(name) && rest.find_first_of("> /\t\r\n") == name.size();
  });
}

Problem readText(std::string_view text, ValueSink& sink, PropertyListFormat& format) {
  format = looksLikeXML(text) ? PropertyListFormat::xml : PropertyListFormat::oldStyle;
  return format == PropertyListFormat::xml ? readXMLPropertyList(text, sink) : readOldStylePropertyList(text, sink);
}

Problem readAny(std::span<const std::byte> document, ValueSink& sink, PropertyListFormat& format) {
  if (document.empty()) return "There is nothing to read";
  const std::string_view text(reinterpret_cast<const char*>(document.data()), document.size());
  if (text.starts_with(kBinaryPropertyListMagic)) {
    format = PropertyListFormat::binary;
    return readBinaryPropertyList(document, sink);
  }
  if (const auto order = byteOrderMark(document)) {
    const auto converted = utf8FromUTF16(document.subspan(2), *order);
    return converted ? readText(*converted, sink, format) : "The text is not UTF-16";
  }
  return readText(text, sink, format);
}

}  // namespace

Problem readPropertyList(std::span<const std::byte> document, ValueSink& sink, PropertyListFormat* format) {
  PropertyListFormat found{};
  auto problem = readAny(document, sink, found);
  if (format && !problem) *format = found;
  return problem;
}

}  // namespace sim
