#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <cstring>

namespace {

struct Encoding {
  CFStringEncoding here;
  NSStringEncoding there;
};

constexpr Encoding kEncodings[] = {
    {kCFStringEncodingUTF8, NSUTF8StringEncoding},
    {kCFStringEncodingASCII, NSASCIIStringEncoding},
    {kCFStringEncodingUTF16, NSUnicodeStringEncoding},
    {kCFStringEncodingUTF16BE, NSUTF16BigEndianStringEncoding},
    {kCFStringEncodingUTF16LE, NSUTF16LittleEndianStringEncoding},
    {kCFStringEncodingUTF32, NSUTF32StringEncoding},
    {kCFStringEncodingISOLatin1, NSISOLatin1StringEncoding},
    {kCFStringEncodingWindowsLatin1, NSWindowsCP1252StringEncoding},
    {kCFStringEncodingMacRoman, NSMacOSRomanStringEncoding},
};

/// 0 for one that is not known.
NSStringEncoding encodingOf(CFStringEncoding encoding) {
  for (const auto &each : kEncodings) {
    if (each.here == encoding) return each.there;
  }
  return static_cast<NSStringEncoding>(0);
}

NSString *of(CFStringRef string) { return (NSString *)string; }
NSMutableString *of(CFMutableStringRef string) { return (NSMutableString *)string; }
CFStringRef kept(NSString *string) { return (CFStringRef)[string copy]; }

NSUInteger index(CFIndex index) { return static_cast<NSUInteger>(index); }
NSRange range(CFRange given) { return NSMakeRange(index(given.location), index(given.length)); }

NSStringCompareOptions optionsOf(CFStringCompareFlags flags) {
  NSStringCompareOptions options = 0;
  if (flags & kCFCompareCaseInsensitive) options |= NSCaseInsensitiveSearch;
  if (flags & kCFCompareBackwards) options |= NSBackwardsSearch;
  if (flags & kCFCompareAnchored) options |= NSAnchoredSearch;
  if (flags & kCFCompareNumerically) options |= NSNumericSearch;
  if (flags & kCFCompareDiacriticInsensitive) options |= NSDiacriticInsensitiveSearch;
  return options;
}

bool isASCII(const char *text) {
  for (; *text; ++text) {
    if (static_cast<unsigned char>(*text) >= 0x80) return false;
  }
  return true;
}

}  // namespace

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8 *bytes, CFIndex count, CFStringEncoding encoding,
                                    Boolean) {
  const NSStringEncoding there = encodingOf(encoding);
  if (!there) return nullptr;
  return (CFStringRef)[[NSString alloc] initWithBytes:bytes length:index(count) encoding:there];
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char *text, CFStringEncoding encoding) {
  if (!text) return nullptr;
  return CFStringCreateWithBytes(allocator, reinterpret_cast<const UInt8 *>(text),
                                 static_cast<CFIndex>(std::strlen(text)), encoding, false);
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar *characters, CFIndex count) {
  return (CFStringRef)[[NSString alloc] initWithCharacters:characters length:index(count)];
}

CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef, CFDictionaryRef, CFStringRef format,
                                                 va_list arguments) {
  return (CFStringRef)[[NSString alloc] initWithFormat:of(format) arguments:arguments];
}

CFStringRef CFStringCreateWithFormat(CFAllocatorRef allocator, CFDictionaryRef options, CFStringRef format, ...) {
  va_list arguments;
  va_start(arguments, format);
  CFStringRef made = CFStringCreateWithFormatAndArguments(allocator, options, format, arguments);
  va_end(arguments);
  return made;
}

CFStringRef CFStringCreateWithSubstring(CFAllocatorRef, CFStringRef string, CFRange given) {
  return kept([of(string) substringWithRange:range(given)]);
}

CFStringRef CFStringCreateCopy(CFAllocatorRef, CFStringRef string) { return kept(of(string)); }

CFMutableStringRef CFStringCreateMutable(CFAllocatorRef, CFIndex) {
  return (CFMutableStringRef)[[NSMutableString alloc] init];
}

CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef, CFIndex, CFStringRef string) {
  return (CFMutableStringRef)[of(string) mutableCopy];
}

CFIndex CFStringGetLength(CFStringRef string) { return static_cast<CFIndex>([of(string) length]); }

UniChar CFStringGetCharacterAtIndex(CFStringRef string, CFIndex place) {
  return [of(string) characterAtIndex:index(place)];
}

void CFStringGetCharacters(CFStringRef string, CFRange given, UniChar *buffer) {
  [of(string) getCharacters:buffer range:range(given)];
}

Boolean CFStringGetCString(CFStringRef string, char *buffer, CFIndex size, CFStringEncoding encoding) {
  const NSStringEncoding there = encodingOf(encoding);
  NSData *bytes = there ? [of(string) dataUsingEncoding:there] : nil;
  if (!bytes || !buffer || size < 0 || index(size) <= [bytes length]) return false;
  [bytes getBytes:buffer];
  buffer[[bytes length]] = 0;
  return true;
}

const char *CFStringGetCStringPtr(CFStringRef string, CFStringEncoding) {
  const char *text = [of(string) UTF8String];
  return text && isASCII(text) ? text : nullptr;
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding) {
  switch (encoding) {
    case kCFStringEncodingUTF8: return length * 3;
    case kCFStringEncodingUTF16:
    case kCFStringEncodingUTF16BE:
    case kCFStringEncodingUTF16LE: return length * 2 + 2;
    case kCFStringEncodingUTF32: return length * 4 + 4;
    default: return length;
  }
}

CFStringEncoding CFStringGetSystemEncoding(void) { return kCFStringEncodingUTF8; }

unsigned long CFStringConvertEncodingToNSStringEncoding(CFStringEncoding encoding) {
  const NSStringEncoding there = encodingOf(encoding);
  return there ? there : kCFStringEncodingInvalidId;
}

CFStringEncoding CFStringConvertNSStringEncodingToEncoding(unsigned long encoding) {
  for (const auto &each : kEncodings) {
    if (each.there == encoding) return each.here;
  }
  return kCFStringEncodingInvalidId;
}

CFComparisonResult CFStringCompare(CFStringRef one, CFStringRef other, CFStringCompareFlags flags) {
  return static_cast<CFComparisonResult>([of(one) compare:of(other) options:optionsOf(flags)]);
}

Boolean CFStringHasPrefix(CFStringRef string, CFStringRef prefix) { return [of(string) hasPrefix:of(prefix)]; }

Boolean CFStringHasSuffix(CFStringRef string, CFStringRef suffix) { return [of(string) hasSuffix:of(suffix)]; }

CFRange CFStringFind(CFStringRef string, CFStringRef wanted, CFStringCompareFlags flags) {
  const NSRange found = [of(string) rangeOfString:of(wanted) options:optionsOf(flags)];
  if (found.location == NSNotFound) return CFRangeMake(kCFNotFound, 0);
  return CFRangeMake(static_cast<CFIndex>(found.location), static_cast<CFIndex>(found.length));
}

SInt32 CFStringGetIntValue(CFStringRef string) { return [of(string) intValue]; }

double CFStringGetDoubleValue(CFStringRef string) { return [of(string) doubleValue]; }

CFStringRef CFStringCreateByCombiningStrings(CFAllocatorRef, CFArrayRef strings, CFStringRef separator) {
  return kept([(NSArray *)strings componentsJoinedByString:of(separator)]);
}

CFArrayRef CFStringCreateArrayBySeparatingStrings(CFAllocatorRef, CFStringRef string, CFStringRef separator) {
  return (CFArrayRef)[[of(string) componentsSeparatedByString:of(separator)] retain];
}

CFDataRef CFStringCreateExternalRepresentation(CFAllocatorRef, CFStringRef string, CFStringEncoding encoding,
                                               UInt8 lossByte) {
  const NSStringEncoding there = encodingOf(encoding);
  if (!there) return nullptr;
  return (CFDataRef)[[of(string) dataUsingEncoding:there allowLossyConversion:lossByte != 0] retain];
}

CFStringRef CFStringCreateFromExternalRepresentation(CFAllocatorRef, CFDataRef data, CFStringEncoding encoding) {
  const NSStringEncoding there = encodingOf(encoding);
  return there ? (CFStringRef)[[NSString alloc] initWithData:(NSData *)data encoding:there] : nullptr;
}

void CFStringAppend(CFMutableStringRef string, CFStringRef more) { [of(string) appendString:of(more)]; }

void CFStringAppendCString(CFMutableStringRef string, const char *text, CFStringEncoding encoding) {
  if (CFStringRef more = CFStringCreateWithCString(nullptr, text, encoding)) {
    CFStringAppend(string, more);
    CFRelease(more);
  }
}

void CFStringAppendCharacters(CFMutableStringRef string, const UniChar *characters, CFIndex count) {
  [of(string) appendString:[NSString stringWithCharacters:characters length:index(count)]];
}

void CFStringAppendFormat(CFMutableStringRef string, CFDictionaryRef options, CFStringRef format, ...) {
  va_list arguments;
  va_start(arguments, format);
  CFStringRef more = CFStringCreateWithFormatAndArguments(nullptr, options, format, arguments);
  va_end(arguments);
  CFStringAppend(string, more);
  CFRelease(more);
}

void CFStringInsert(CFMutableStringRef string, CFIndex place, CFStringRef more) {
  [of(string) insertString:of(more) atIndex:index(place)];
}

void CFStringDelete(CFMutableStringRef string, CFRange given) { [of(string) deleteCharactersInRange:range(given)]; }

void CFStringReplace(CFMutableStringRef string, CFRange given, CFStringRef replacement) {
  [of(string) replaceCharactersInRange:range(given) withString:of(replacement)];
}

void CFStringReplaceAll(CFMutableStringRef string, CFStringRef replacement) { [of(string) setString:of(replacement)]; }

CFIndex CFStringFindAndReplace(CFMutableStringRef string, CFStringRef wanted, CFStringRef replacement, CFRange given,
                               CFStringCompareFlags flags) {
  return static_cast<CFIndex>([of(string) replaceOccurrencesOfString:of(wanted)
                                                          withString:of(replacement)
                                                             options:optionsOf(flags)
                                                               range:range(given)]);
}

void CFStringTrimWhitespace(CFMutableStringRef string) {
  [of(string) setString:[of(string) stringByTrimmingCharactersInSet:[NSCharacterSet whitespaceAndNewlineCharacterSet]]];
}

void CFStringLowercase(CFMutableStringRef string, CFLocaleRef) { [of(string) setString:[of(string) lowercaseString]]; }

void CFStringUppercase(CFMutableStringRef string, CFLocaleRef) { [of(string) setString:[of(string) uppercaseString]]; }
