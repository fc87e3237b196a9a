// CFString is NSString: UTF-16 units. What is created or copied is owned by the caller; allocators are ignored.
#pragma once

#import <CoreFoundation/CFBase.h>
#include <stdarg.h>

typedef const struct __CFLocale* CFLocaleRef;
typedef UInt32 CFStringEncoding;
enum : CFStringEncoding {
  kCFStringEncodingMacRoman = 0,
  kCFStringEncodingWindowsLatin1 = 0x0500,
  kCFStringEncodingISOLatin1 = 0x0201,
  kCFStringEncodingASCII = 0x0600,
  kCFStringEncodingUnicode = 0x0100,
  kCFStringEncodingUTF8 = 0x08000100,
  kCFStringEncodingUTF16 = 0x0100,
  kCFStringEncodingUTF16BE = 0x10000100,
  kCFStringEncodingUTF16LE = 0x14000100,
  kCFStringEncodingUTF32 = 0x0c000100,
};
#define kCFStringEncodingInvalidId (0xffffffffU)

typedef CFOptionFlags CFStringCompareFlags;
enum : CFStringCompareFlags {
  kCFCompareCaseInsensitive = 1,
  kCFCompareBackwards = 4,
  kCFCompareAnchored = 8,
  kCFCompareNumerically = 64,
  kCFCompareDiacriticInsensitive = 128,
};

CF_EXTERN_C_BEGIN

CFTypeID CFStringGetTypeID(void);

/// NULL for bytes that are no text in the encoding, or an encoding that is not above.
CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text, CFStringEncoding encoding);
CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean hasByteOrderMark);
CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar* characters, CFIndex count);
CFStringRef CFStringCreateWithFormat(CFAllocatorRef allocator, CFDictionaryRef options, CFStringRef format, ...);
CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef allocator, CFDictionaryRef options, CFStringRef format,
                                                 va_list arguments);
CFStringRef CFStringCreateWithSubstring(CFAllocatorRef allocator, CFStringRef string, CFRange range);
CFStringRef CFStringCreateCopy(CFAllocatorRef allocator, CFStringRef string);
CFMutableStringRef CFStringCreateMutable(CFAllocatorRef allocator, CFIndex capacity);
CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef allocator, CFIndex capacity, CFStringRef string);

CFIndex CFStringGetLength(CFStringRef string);
UniChar CFStringGetCharacterAtIndex(CFStringRef string, CFIndex index);
void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* buffer);
/// Whether the text and its ending zero were written: it has to fit.
Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex size, CFStringEncoding encoding);
/// Of text in ASCII alone; NULL otherwise. Valid until the innermost autorelease pool ends.
const char* CFStringGetCStringPtr(CFStringRef string, CFStringEncoding encoding);
CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);
CFStringEncoding CFStringGetSystemEncoding(void);
unsigned long CFStringConvertEncodingToNSStringEncoding(CFStringEncoding encoding);
CFStringEncoding CFStringConvertNSStringEncodingToEncoding(unsigned long encoding);

CFComparisonResult CFStringCompare(CFStringRef one, CFStringRef other, CFStringCompareFlags flags);
Boolean CFStringHasPrefix(CFStringRef string, CFStringRef prefix);
Boolean CFStringHasSuffix(CFStringRef string, CFStringRef suffix);
/// The range of the first one, the last with `kCFCompareBackwards`; the location is `kCFNotFound` when there is none.
CFRange CFStringFind(CFStringRef string, CFStringRef wanted, CFStringCompareFlags flags);
SInt32 CFStringGetIntValue(CFStringRef string);
double CFStringGetDoubleValue(CFStringRef string);

CFStringRef CFStringCreateByCombiningStrings(CFAllocatorRef allocator, CFArrayRef strings, CFStringRef separator);
CFArrayRef CFStringCreateArrayBySeparatingStrings(CFAllocatorRef allocator, CFStringRef string, CFStringRef separator);
CFDataRef CFStringCreateExternalRepresentation(CFAllocatorRef allocator, CFStringRef string, CFStringEncoding encoding,
                                               UInt8 lossByte);
CFStringRef CFStringCreateFromExternalRepresentation(CFAllocatorRef allocator, CFDataRef data,
                                                     CFStringEncoding encoding);

void CFStringAppend(CFMutableStringRef string, CFStringRef more);
void CFStringAppendCString(CFMutableStringRef string, const char* text, CFStringEncoding encoding);
void CFStringAppendCharacters(CFMutableStringRef string, const UniChar* characters, CFIndex count);
void CFStringAppendFormat(CFMutableStringRef string, CFDictionaryRef options, CFStringRef format, ...);
void CFStringInsert(CFMutableStringRef string, CFIndex index, CFStringRef more);
void CFStringDelete(CFMutableStringRef string, CFRange range);
void CFStringReplace(CFMutableStringRef string, CFRange range, CFStringRef replacement);
void CFStringReplaceAll(CFMutableStringRef string, CFStringRef replacement);
/// How many were replaced.
CFIndex CFStringFindAndReplace(CFMutableStringRef string, CFStringRef wanted, CFStringRef replacement, CFRange range,
                               CFStringCompareFlags flags);
void CFStringTrimWhitespace(CFMutableStringRef string);
/// The locale is ignored.
void CFStringLowercase(CFMutableStringRef string, CFLocaleRef locale);
void CFStringUppercase(CFMutableStringRef string, CFLocaleRef locale);

CF_EXTERN_C_END
