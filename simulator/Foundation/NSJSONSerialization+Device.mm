// NSJSONSerialization as on a device. Of equal keys in an object the last one counts.
#import "Foundation/FileAccess.h"
#import "Foundation/ObjectBuilder.h"
#import "Foundation/ObjectWalker.h"

#include "base/JSONReader.hpp"
#include "base/JSONWriter.hpp"
#include "base/UTF8.hpp"

#include <array>
#include <utility>

namespace {

using sim::cocoaError;
using sim::report;

/// UTF-16 is known by its byte order mark, or by the zero byte of the first character, which is ASCII in JSON.
std::optional<std::endian> wideOrder(std::span<const std::byte> bytes) {
  if (const auto order = sim::byteOrderMark(bytes)) return order;
  if (bytes.size() < 2) return std::nullopt;
  if (bytes[0] == std::byte{0}) return std::endian::big;
  if (bytes[1] == std::byte{0}) return std::endian::little;
  return std::nullopt;
}

sim::Problem read(std::span<const std::byte> bytes, sim::ValueSink &sink) {
  const auto order = wideOrder(bytes);
  if (!order) return sim::readJSON({reinterpret_cast<const char *>(bytes.data()), bytes.size()}, sink);
  const auto text = sim::utf8FromUTF16(bytes, *order);  // A byte order mark becomes that of UTF-8, which is skipped.
  return text ? sim::readJSON(*text, sink) : "The text is not UTF-16";
}

sim::Mutability mutabilityOf(NSJSONReadingOptions options) {
  if (options & NSJSONReadingMutableLeaves) return sim::Mutability::containersAndLeaves;
  return options & NSJSONReadingMutableContainers ? sim::Mutability::containers : sim::Mutability::immutable;
}

bool isContainer(id object) {
  return [object isKindOfClass:[NSArray class]] || [object isKindOfClass:[NSDictionary class]];
}

}  // namespace

// Replacing the methods of the class is what this file is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSJSONSerialization (Device)

+ (id)JSONObjectWithData:(NSData *)data options:(NSJSONReadingOptions)options error:(NSError **)error {
  if (!data) [NSException raise:NSInvalidArgumentException format:@"data parameter is nil"];
  sim::ObjectBuilder builder(mutabilityOf(options));
  const auto problem = read({static_cast<const std::byte *>([data bytes]), [data length]}, builder);
  id object = problem ? nil : builder.finished();
  if (object && (isContainer(object) || (options & NSJSONReadingFragmentsAllowed))) return object;
  report(error, cocoaError(sim::kPropertyListReadCorruptError,
                           problem ? *problem : "The JSON text is neither an array nor an object"));
  return nil;
}

+ (id)JSONObjectWithStream:(NSInputStream *)stream options:(NSJSONReadingOptions)options error:(NSError **)error {
  if (!stream) [NSException raise:NSInvalidArgumentException format:@"stream parameter is nil"];
  NSMutableData *data = [NSMutableData data];
  std::array<uint8_t, 4096> piece;
  NSInteger count = 0;
  while ((count = [stream read:piece.data() maxLength:piece.size()]) > 0) {
    [data appendBytes:piece.data() length:static_cast<NSUInteger>(count)];
  }
  if (count < 0) {
    report(error, [stream streamError]);
    return nil;
  }
  return [self JSONObjectWithData:data options:options error:error];
}

+ (BOOL)isValidJSONObject:(id)object {
  sim::JSONWriter writer({});
  return isContainer(object) && !sim::walkObject(object, sim::Vocabulary::json, sim::KeyOrder::none, writer);
}

+ (NSData *)dataWithJSONObject:(id)object options:(NSJSONWritingOptions)options error:(NSError **)error {
  if (!isContainer(object) && !(options & NSJSONWritingFragmentsAllowed)) {
    [NSException raise:NSInvalidArgumentException format:@"Invalid top-level type in JSON write"];
  }
  sim::JSONWriter writer({.isPretty = (options & NSJSONWritingPrettyPrinted) != 0,
                          .escapesSlashes = (options & NSJSONWritingWithoutEscapingSlashes) == 0});
  const auto order = options & NSJSONWritingSortedKeys ? sim::KeyOrder::sorted : sim::KeyOrder::none;
  if (const auto problem = sim::walkObject(object, sim::Vocabulary::json, order, writer)) {
    if (*problem != sim::kBrokenText) [NSException raise:NSInvalidArgumentException format:@"%s", problem->c_str()];
    report(error, cocoaError(sim::kPropertyListWriteInvalidError, *problem));
    return nil;
  }
  const auto text = std::move(writer).finished();
  return [NSData dataWithBytes:text.data() length:text.size()];
}

+ (NSInteger)writeJSONObject:(id)object
                    toStream:(NSOutputStream *)stream
                     options:(NSJSONWritingOptions)options
                       error:(NSError **)error {
  NSData *data = [self dataWithJSONObject:object options:options error:error];
  const auto *bytes = static_cast<const uint8_t *>([data bytes]);
  NSUInteger written = 0;
  while (written < [data length]) {
    const NSInteger count = [stream write:bytes + written maxLength:[data length] - written];
    if (count <= 0) {
      report(error, [stream streamError]);
      return 0;
    }
    written += static_cast<NSUInteger>(count);
  }
  return static_cast<NSInteger>(written);
}

@end
