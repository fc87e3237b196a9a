#import "Foundation/PropertyListCoding.h"

#import "Foundation/FileAccess.h"

#include "Foundation/ObjectWalker.h"
#include "base/BinaryPropertyListWriter.hpp"
#include "base/PropertyListReader.hpp"
#include "base/XMLPropertyListWriter.hpp"

#include <utility>

namespace sim {

namespace {

NSPropertyListFormat numberOf(PropertyListFormat format) {
  switch (format) {
    case PropertyListFormat::oldStyle: return NSPropertyListOpenStepFormat;
    case PropertyListFormat::xml: return NSPropertyListXMLFormat_v1_0;
    case PropertyListFormat::binary: return NSPropertyListBinaryFormat_v1_0;
  }
}

}  // namespace

id decodedPropertyList(std::span<const std::byte> bytes, Mutability mutability, NSPropertyListFormat *format,
                       NSError **error) {
  ObjectBuilder builder(mutability);
  PropertyListFormat found{};
  if (const auto problem = readPropertyList(bytes, builder, &found)) {
    report(error, cocoaError(kPropertyListReadCorruptError, *problem));
    return nil;
  }
  if (format) *format = numberOf(found);
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
