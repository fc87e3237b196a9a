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
typedef const struct __CFString* CFStringRef;
typedef const struct __CFData* CFDataRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef const struct __CFArray* CFArrayRef;
typedef const struct __CFURL* CFURLRef;
typedef const struct __CFAllocator* CFAllocatorRef;

typedef unsigned char Boolean;
typedef uint8_t UInt8;
typedef long CFIndex;
typedef unsigned long CFOptionFlags;
typedef unsigned long CFHashCode;
/// Tells types apart; the numbers mean nothing.
typedef unsigned long CFTypeID;

/// A constant string. Objective-C sources only.
#define CFSTR(text) ((__bridge CFStringRef) @text)

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

CF_EXTERN_C_END
