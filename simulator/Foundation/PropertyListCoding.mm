#import "Foundation/PropertyListCoding.h"

#import "Foundation/FileAccess.h"

#include "Foundation/BinaryPropertyListReader.hpp"
#include "Foundation/BinaryPropertyListWriter.hpp"
#include "Foundation/ObjectWalker.h"
#include "Foundation/OldStylePropertyListReader.hpp"
#include "Foundation/UTF8.hpp"
#include "Foundation/XMLPropertyListReader.hpp"
#include "Foundation/XMLPropertyListWriter.hpp"

#include <algorithm>
#include <array>
#include <utility>

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

Problem readText(std::string_view text, ValueSink &sink, NSPropertyListFormat &format) {
  if (looksLikeXML(text)) {
    format = NSPropertyListXMLFormat_v1_0;
    return readXMLPropertyList(text, sink);
  }
  format = NSPropertyListOpenStepFormat;
  return readOldStylePropertyList(text, sink);
}

Problem readAny(std::span<const std::byte> bytes, ValueSink &sink, NSPropertyListFormat &format) {
  if (bytes.empty()) return "There is nothing to read";
  const std::string_view text(reinterpret_cast<const char *>(bytes.data()), bytes.size());
  if (text.starts_with(kBinaryPropertyListMagic)) {
    format = NSPropertyListBinaryFormat_v1_0;
    return readBinaryPropertyList(bytes, sink);
  }
  if (const auto order = byteOrderMark(bytes)) {
    const auto converted = utf8FromUTF16(bytes.subspan(2), *order);
    return converted ? readText(*converted, sink, format) : "The text is not UTF-16";
  }
  return readText(text, sink, format);
}

}  // namespace

id decodedPropertyList(std::span<const std::byte> bytes, Mutability mutability, NSPropertyListFormat *format,
                       NSError **error) {
  ObjectBuilder builder(mutability);
  NSPropertyListFormat found = 0;
  if (const auto problem = readAny(bytes, builder, found)) {
    report(error, cocoaError(kPropertyListReadCorruptError, *problem));
    return nil;
  }
  if (format) *format = found;
  return builder.finished();
}

BOOL encodePropertyList(id root, NSPropertyListFormat format, std::string &bytes, NSError **error) {
  if (format == NSPropertyListXMLFormat_v1_0) {
    XMLPropertyListWriter writer;
    if (const auto problem = walkObject(root, Vocabulary::propertyList, KeyOrder::sorted, writer)) {
      const auto &reason = writer.problem().empty() ? *problem : writer.problem();
      return report(error, cocoaError(kPropertyListWriteInvalidError, reason));
    }
    bytes = std::move(writer).finished();
    return YES;
  }
  if (format == NSPropertyListBinaryFormat_v1_0) {
    BinaryPropertyListWriter writer;
    if (const auto problem = walkObject(root, Vocabulary::propertyList, KeyOrder::sorted, writer)) {
      return report(error, cocoaError(kPropertyListWriteInvalidError, *problem));
    }
    bytes = std::move(writer).finished();
    return YES;
  }
  return report(error, cocoaError(kPropertyListWriteInvalidError, "Property lists are written as XML or binary only"));
}

id propertyListInFile(NSString *path, Class type, NSError **error) {
  const auto content = contentOfFile(path, error);
  if (!content) return nil;
  id root = decodedPropertyList(content->bytes(), Mutability::immutable, nullptr, error);
  if (!root || [root isKindOfClass:type]) return root;
  report(error, cocoaError(kPropertyListReadCorruptError, "The property list is of another class"));
  return nil;
}

BOOL writePropertyListToFile(id root, NSString *path, BOOL atomically, NSError **error) {
  std::string text;
  NSError *problem = nil;
  if (!encodePropertyList(root, NSPropertyListXMLFormat_v1_0, text, &problem)) {
    return reportFailedWrite(error, notWritten(path), problem);
  }
  return writeFile(path, std::as_bytes(std::span(text)), atomically, error);
}

}  // namespace sim
