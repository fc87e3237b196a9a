// Property lists between bytes and objects.
#pragma once

#import <Foundation/Foundation.h>

#include "Foundation/ObjectBuilder.h"

#include <span>
#include <string>

namespace sim {

/// The object of a property list in any format, autoreleased; nil with an error when it is malformed. `format` may be
/// NULL.
id decodedPropertyList(std::span<const std::byte> bytes, Mutability mutability, NSPropertyListFormat *format,
                       NSError **error);

/// Appends the property list in the XML or binary format to `bytes`; NO with an error when `root` cannot be one. Keys
/// are sorted.
BOOL encodePropertyList(id root, NSPropertyListFormat format, std::string &bytes, NSError **error);

/// The property list in the file, autoreleased; nil with an error unless it is of the class `type`.
id propertyListInFile(NSString *path, Class type, NSError **error);

/// Writes `root` as XML. NO with an error, and the file as it was, when that fails. A file that is not written
/// atomically may be left in part.
BOOL writePropertyListToFile(id root, NSString *path, BOOL atomically, NSError **error);

}  // namespace sim
