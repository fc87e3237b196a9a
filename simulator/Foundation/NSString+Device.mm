// Searching and comparing as on a device, which GNUstep base lacks, and writing that fails with an error and a line in
// the log.
#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#import "Foundation/FileAccess.h"

namespace {

constexpr NSStringCompareOptions kFolding = NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch;

bool isMark(unichar unit) { return [[NSCharacterSet nonBaseCharacterSet] characterIsMember:unit]; }

/// Letters without the marks that decomposition splits off them.
NSString *withoutMarks(NSString *string) {
  NSString *decomposed = [string decomposedStringWithCanonicalMapping];
  NSMutableString *result = [NSMutableString stringWithCapacity:[decomposed length]];
  for (NSUInteger i = 0; i < [decomposed length]; ++i) {
    const unichar unit = [decomposed characterAtIndex:i];
    if (!isMark(unit)) [result appendFormat:@"%C", unit];
  }
  return result;
}

}  // namespace

@implementation NSString (Searching)

- (NSString *)stringByFoldingWithOptions:(NSStringCompareOptions)options locale:(NSLocale *)locale {
  NSString *folded = options & NSDiacriticInsensitiveSearch ? withoutMarks(self) : self;
  return options & NSCaseInsensitiveSearch ? [folded lowercaseString] : folded;
}

- (BOOL)localizedStandardContainsString:(NSString *)string {
  if (!string) [NSException raise:NSInvalidArgumentException format:@"The string to look for is nil"];
  NSString *needle = [string stringByFoldingWithOptions:kFolding locale:nil];
  return [[self stringByFoldingWithOptions:kFolding locale:nil] rangeOfString:needle].length > 0;
}

- (BOOL)localizedCaseInsensitiveContainsString:(NSString *)string {
  if (!string) [NSException raise:NSInvalidArgumentException format:@"The string to look for is nil"];
  return [[self lowercaseString] rangeOfString:[string lowercaseString]].length > 0;
}

- (NSComparisonResult)localizedStandardCompare:(NSString *)string {
  NSString *mine = [self stringByFoldingWithOptions:kFolding locale:nil];
  NSString *other = [string stringByFoldingWithOptions:kFolding locale:nil];
  const NSComparisonResult result = [mine compare:other options:NSNumericSearch];
  return result != NSOrderedSame ? result : [self compare:string];
}

@end

namespace {

void enumerateLines(NSString *self, SEL, void (^block)(NSString *line, BOOL *stop)) {
  BOOL stop = NO;
  for (NSUInteger start = 0; start < [self length] && !stop;) {
    NSUInteger next = 0, end = 0;
    [self getLineStart:nullptr end:&next contentsEnd:&end forRange:NSMakeRange(start, 0)];
    block([self substringWithRange:NSMakeRange(start, end - start)], &stop);
    start = next;
  }
}

}  // namespace

@implementation NSString (LinesWhereMissing)

+ (void)load {
  const SEL selector = @selector(enumerateLinesUsingBlock:);
  // Every implementation is stored as a function of any arguments; the way there leads over void *.
  class_addMethod((Class)objc_getClass("NSString"), selector,
                  reinterpret_cast<IMP>(reinterpret_cast<void *>(enumerateLines)), "v@:@?");
}

@end

// Replacing the methods of the class is what this category is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSString (Writing)

- (BOOL)writeToFile:(NSString *)path
         atomically:(BOOL)atomically
           encoding:(NSStringEncoding)encoding
              error:(NSError **)error {
  NSData *data = [self dataUsingEncoding:encoding];
  if (!data) {
    return sim::reportFailedWrite(
        error, sim::notWritten(path),
        sim::cocoaError(NSFileWriteInapplicableStringEncodingError, "The text has characters that the encoding lacks"));
  }
  return [data writeToFile:path options:atomically ? NSDataWritingAtomic : 0 error:error];
}

- (BOOL)writeToFile:(NSString *)path atomically:(BOOL)atomically {
  return [self writeToFile:path atomically:atomically encoding:[NSString defaultCStringEncoding] error:nullptr];
}

- (BOOL)writeToURL:(NSURL *)url
        atomically:(BOOL)atomically
          encoding:(NSStringEncoding)encoding
             error:(NSError **)error {
  if ([url isFileURL]) return [self writeToFile:[url path] atomically:atomically encoding:encoding error:error];
  return sim::report(error, sim::cocoaError(NSFileWriteUnsupportedSchemeError, "The URL names no file"));
}

- (BOOL)writeToURL:(NSURL *)url atomically:(BOOL)atomically {
  return [self writeToURL:url atomically:atomically encoding:[NSString defaultCStringEncoding] error:nullptr];
}

@end
