// NSData as on a device: base64, reading with errors, and writing that fails with an error and without a trace.
#import <Foundation/Foundation.h>

#import "Foundation/FileAccess.h"

#include "base/Base64.hpp"

#include <algorithm>
#include <array>
#include <string>

namespace {

using sim::report;

std::span<const std::byte> bytesOf(NSData *data) {
  return {static_cast<const std::byte *>([data bytes]), static_cast<std::size_t>([data length])};
}

std::string encoded(NSData *data, NSDataBase64EncodingOptions options) {
  const std::size_t lineLength = options & NSDataBase64Encoding64CharacterLineLength   ? 64
                                 : options & NSDataBase64Encoding76CharacterLineLength ? 76
                                                                                       : 0;
  const bool lineFeed = options & NSDataBase64EncodingEndLineWithLineFeed;
  const bool carriageReturn = options & NSDataBase64EncodingEndLineWithCarriageReturn;
  return sim::base64Encoded(bytesOf(data), lineLength, lineFeed == carriageReturn ? "\r\n" : lineFeed ? "\n" : "\r");
}

sim::Unknown unknownOf(NSDataBase64DecodingOptions options) {
  return options & NSDataBase64DecodingIgnoreUnknownCharacters ? sim::Unknown::ignore : sim::Unknown::refuse;
}

/// Initialises the new object `data` with what was decoded of a text that was `sound`; else releases it and gives nil.
id decoded(NSData *data, sim::Base64Decoder &decoder, bool sound) {
  if (!sound || !decoder.isComplete()) {
    [data release];
    return nil;
  }
  auto [bytes, size] = decoder.take();
  return [data initWithBytesNoCopy:bytes.release() length:size freeWhenDone:YES];
}

/// Gives the characters of `text` to `decoder`, whatever is beyond ASCII as one that is unknown. False when it refuses
/// them. A stored photo has tens of millions, of which no second copy is made.
bool decode(NSString *text, sim::Base64Decoder &decoder) {
  std::array<unichar, 4096> units;
  std::array<char, units.size()> characters;
  const NSUInteger length = [text length];
  for (NSUInteger start = 0; start < length; start += units.size()) {
    const NSUInteger count = std::min<NSUInteger>(units.size(), length - start);
    [text getCharacters:units.data() range:NSMakeRange(start, count)];
    for (NSUInteger i = 0; i < count; ++i) characters[i] = units[i] < 0x80 ? static_cast<char>(units[i]) : '\x80';
    if (!decoder.append({characters.data(), count})) return false;
  }
  return true;
}

/// Releases the new object `data`.
[[noreturn]] void refuseNil(NSData *data) {
  [data release];
  [NSException raise:NSInvalidArgumentException format:@"The base64 text is nil"];
  __builtin_unreachable();
}

BOOL refuseURL(NSURL *url, NSInteger code, NSError **error) {
  return report(error, sim::cocoaError(code, url ? "The URL names no file" : "There is no URL"));
}

}  // namespace

// Replacing the methods of the class is what this file is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSData (Device)

- (NSString *)base64EncodedStringWithOptions:(NSDataBase64EncodingOptions)options {
  const auto text = encoded(self, options);
  return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSASCIIStringEncoding] autorelease];
}

- (NSData *)base64EncodedDataWithOptions:(NSDataBase64EncodingOptions)options {
  const auto text = encoded(self, options);
  return [NSData dataWithBytes:text.data() length:text.size()];
}

- (id)initWithBase64EncodedData:(NSData *)text options:(NSDataBase64DecodingOptions)options {
  if (!text) refuseNil(self);
  sim::Base64Decoder decoder([text length], unknownOf(options));
  return decoded(self, decoder, decoder.append({static_cast<const char *>([text bytes]), [text length]}));
}

- (id)initWithBase64EncodedString:(NSString *)text options:(NSDataBase64DecodingOptions)options {
  if (!text) refuseNil(self);
  sim::Base64Decoder decoder([text length], unknownOf(options));
  return decoded(self, decoder, decode(text, decoder));
}

+ (id)dataWithContentsOfFile:(NSString *)path options:(NSDataReadingOptions)options error:(NSError **)error {
  return [[[self alloc] initWithContentsOfFile:path options:options error:error] autorelease];
}

+ (id)dataWithContentsOfURL:(NSURL *)url options:(NSDataReadingOptions)options error:(NSError **)error {
  return [[[self alloc] initWithContentsOfURL:url options:options error:error] autorelease];
}

- (id)initWithContentsOfFile:(NSString *)path options:(NSDataReadingOptions)options error:(NSError **)error {
  if (const auto content = sim::contentOfFile(path, error)) {
    return [self initWithBytes:content->bytes().data() length:content->bytes().size()];
  }
  [self release];
  return nil;
}

- (id)initWithContentsOfURL:(NSURL *)url options:(NSDataReadingOptions)options error:(NSError **)error {
  if ([url isFileURL]) return [self initWithContentsOfFile:[url path] options:options error:error];
  refuseURL(url, NSFileReadUnsupportedSchemeError, error);
  [self release];
  return nil;
}

- (BOOL)writeToFile:(NSString *)path atomically:(BOOL)atomically {
  return sim::writeFile(path, bytesOf(self), atomically, nullptr);
}

- (BOOL)writeToFile:(NSString *)path options:(NSUInteger)options error:(NSError **)error {
  return sim::writeFile(path, bytesOf(self), (options & NSDataWritingAtomic) != 0, error);
}

- (BOOL)writeToURL:(NSURL *)url atomically:(BOOL)atomically {
  return [self writeToURL:url options:atomically ? NSDataWritingAtomic : 0 error:nullptr];
}

- (BOOL)writeToURL:(NSURL *)url options:(NSUInteger)options error:(NSError **)error {
  if (![url isFileURL]) return refuseURL(url, NSFileWriteUnsupportedSchemeError, error);
  return [self writeToFile:[url path] options:options error:error];
}

@end
