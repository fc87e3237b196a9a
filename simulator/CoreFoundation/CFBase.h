// Types and ownership.
#pragma once

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#if defined(__cplusplus)
#define CF_EXTERN_C_BEGIN extern "C" {
#define CF_EXTERN_C_END }
#define CF_EXPORT extern "C"
#else
#define CF_EXTERN_C_BEGIN
#define CF_EXTERN_C_END
#define CF_EXPORT extern
#endif

#if !defined(TRUE)
#define TRUE 1
#endif
#if !defined(FALSE)
#define FALSE 0
#endif

#define CF_INLINE static __inline__ __attribute__((always_inline))
#define CF_RETURNS_RETAINED __attribute__((cf_returns_retained))
#define CF_RETURNS_NOT_RETAINED __attribute__((cf_returns_not_retained))
#define CF_CONSUMED __attribute__((cf_consumed))

typedef const void* CFTypeRef;
typedef CFTypeRef CFPropertyListRef;
typedef const struct __CFString* CFStringRef;
typedef struct __CFString* CFMutableStringRef;
typedef const struct __CFData* CFDataRef;
typedef struct __CFData* CFMutableDataRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef struct __CFDictionary* CFMutableDictionaryRef;
typedef const struct __CFArray* CFArrayRef;
typedef struct __CFArray* CFMutableArrayRef;
typedef const struct __CFURL* CFURLRef;
typedef const struct __CFNull* CFNullRef;
typedef const struct __CFAllocator* CFAllocatorRef;

#define CF_NOESCAPE __attribute__((noescape))
#define CF_FORMAT_FUNCTION(format, first)  // Only NSString knows how to check such formats.

typedef unsigned char Boolean;
typedef uint8_t UInt8;
typedef uint16_t UInt16;
typedef uint32_t UInt32;
typedef int32_t SInt32;
typedef uint16_t UniChar;
typedef long CFIndex;
typedef unsigned long CFOptionFlags;
typedef unsigned long CFHashCode;
/// Tells types apart; the numbers mean nothing.
typedef unsigned long CFTypeID;

typedef enum : CFIndex {
  kCFCompareLessThan = -1L,
  kCFCompareEqualTo = 0,
  kCFCompareGreaterThan = 1,
} CFComparisonResult;
typedef CFComparisonResult (*CFComparatorFunction)(const void* one, const void* other, void* context);

static const CFIndex kCFNotFound __attribute__((unused)) = -1;

typedef struct {
  CFIndex location;
  CFIndex length;
} CFRange;

CF_INLINE CFRange CFRangeMake(CFIndex location, CFIndex length) {
  CFRange range;
  range.location = location;
  range.length = length;
  return range;
}

/// A constant string. Objective-C sources only.
#define CFSTR(text) ((__bridge CFStringRef) @text)

/// The version of the system's CoreFoundation, by which makers tell systems apart.
CF_EXPORT double kCFCoreFoundationVersionNumber;
#define kCFCoreFoundationVersionNumber_iOS_7_0 847.20
#define kCFCoreFoundationVersionNumber_iOS_7_1 847.24
#define kCFCoreFoundationVersionNumber_iOS_8_0 1140.1
#define kCFCoreFoundationVersionNumber_iOS_8_1 1141.14
#define kCFCoreFoundationVersionNumber_iOS_8_2 1142.16
#define kCFCoreFoundationVersionNumber_iOS_8_3 1144.17
#define kCFCoreFoundationVersionNumber_iOS_8_4 1145.15
#define kCFCoreFoundationVersionNumber_iOS_8_x_Max 1199
#define kCFCoreFoundationVersionNumber_iOS_9_0 1240.1
#define kCFCoreFoundationVersionNumber_iOS_9_1 1241.11
#define kCFCoreFoundationVersionNumber_iOS_9_2 1242.13
#define kCFCoreFoundationVersionNumber_iOS_9_3 1242.13
#define kCFCoreFoundationVersionNumber_iOS_9_4 1280.38
#define kCFCoreFoundationVersionNumber_iOS_9_x_Max 1299

/// There is one allocator, whichever is named.
CF_EXPORT const CFAllocatorRef kCFAllocatorDefault;
CF_EXPORT const CFAllocatorRef kCFAllocatorSystemDefault;
CF_EXPORT const CFAllocatorRef kCFAllocatorMalloc;
CF_EXPORT const CFAllocatorRef kCFAllocatorNull;

/// NSNull's one object.
CF_EXPORT const CFNullRef kCFNull;

CF_EXTERN_C_BEGIN

/// Adds a reference and returns its argument. NULL ends the process, as on a device. Any thread.
CFTypeRef CFRetain(CFTypeRef object);
/// Gives up one reference. NULL ends the process, as on a device. Any thread.
void CFRelease(CFTypeRef object);
/// Whether both are equal as Foundation objects. NULL on either side ends the process, as on a device.
Boolean CFEqual(CFTypeRef one, CFTypeRef other);
/// The type of the object; one that all objects without a CoreFoundation type share. NULL ends the process, as on a
/// device.
CFTypeID CFGetTypeID(CFTypeRef object);
CFTypeID CFNullGetTypeID(void);
CFIndex CFGetRetainCount(CFTypeRef object);
CFHashCode CFHash(CFTypeRef object);
/// Gives up one reference when the innermost autorelease pool ends, and returns its argument.
CFTypeRef CFAutorelease(CFTypeRef object);
/// `-description`; owned by the caller.
CFStringRef CFCopyDescription(CFTypeRef object);
/// Writes `-description` to the log.
void CFShow(CFTypeRef object);

CF_EXTERN_C_END
