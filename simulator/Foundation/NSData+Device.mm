// NSData as on a device: base64, reading with errors, and writing that fails with an error and without a trace.
#import <Foundation/Foundation.h>

#import "Foundation/FileAccess.h"
#import "Foundation/Text.h"

#include "Foundation/Base64.hpp"

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

/// Initialises the new object `data` with the decoded text; releases it and gives nil when that is malformed.
id decoded(NSData *data, std::string_view text, NSDataBase64DecodingOptions options) {
  if (const auto bytes = sim::base64Decoded(text, unknownOf(options))) {
    return [data initWithBytes:bytes->data() length:bytes->size()];
  }
  [data release];
  return nil;
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
  return decoded(self, {static_cast<const char *>([text bytes]), [text length]}, options);
}

- (id)initWithBase64EncodedString:(NSString *)text options:(NSDataBase64DecodingOptions)options {
  if (!text) refuseNil(self);
  std::string characters;
  if (sim::getUTF8(text, characters)) return decoded(self, characters, options);
  [self release];
  return nil;
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
