// NSPropertyListSerialization as on a device.
#import "Foundation/PropertyListCoding.h"

#include "Foundation/FileAccess.h"
#include "Foundation/ObjectWalker.h"

#include <utility>

namespace {

sim::Mutability mutabilityOf(NSUInteger options) {
  if (options == NSPropertyListMutableContainersAndLeaves) return sim::Mutability::containersAndLeaves;
  return options == NSPropertyListMutableContainers ? sim::Mutability::containers : sim::Mutability::immutable;
}

NSString *explanation(NSError *error) { return [[error userInfo] objectForKey:@"NSDebugDescription"]; }

}  // namespace

// Replacing the methods of the class is what this file is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSPropertyListSerialization (Device)

+ (NSData *)dataWithPropertyList:(id)root
                          format:(NSPropertyListFormat)format
                         options:(NSPropertyListWriteOptions)options
                           error:(NSError **)error {
  std::string bytes;
  if (!sim::encodePropertyList(root, format, bytes, error)) return nil;
  return [NSData dataWithBytes:bytes.data() length:bytes.size()];
}

+ (NSData *)dataFromPropertyList:(id)root format:(NSPropertyListFormat)format errorDescription:(NSString **)text {
  NSError *error = nil;
  NSData *data = [self dataWithPropertyList:root format:format options:0 error:&error];
  if (text) *text = explanation(error);
  return data;
}

+ (id)propertyListWithData:(NSData *)data
                   options:(NSPropertyListReadOptions)options
                    format:(NSPropertyListFormat *)format
                     error:(NSError **)error {
  return sim::decodedPropertyList({static_cast<const std::byte *>([data bytes]), [data length]}, mutabilityOf(options),
                                  format, error);
}

+ (id)propertyListFromData:(NSData *)data
          mutabilityOption:(NSPropertyListMutabilityOptions)options
                    format:(NSPropertyListFormat *)format
          errorDescription:(NSString **)text {
  NSError *error = nil;
  id root = [self propertyListWithData:data options:options format:format error:&error];
  if (text) *text = explanation(error);
  return root;
}

+ (BOOL)propertyList:(id)root isValidForFormat:(NSPropertyListFormat)format {
  std::string bytes;
  return sim::encodePropertyList(root, format, bytes, nullptr);
}

@end
