// CFBundle is NSBundle here; on a device it is a type of its own, and is not to be cast.
#pragma once

#import <CoreFoundation/CFURL.h>

typedef struct __CFBundle* CFBundleRef;

CF_EXPORT const CFStringRef kCFBundleExecutableKey;
CF_EXPORT const CFStringRef kCFBundleIdentifierKey;
CF_EXPORT const CFStringRef kCFBundleVersionKey;
CF_EXPORT const CFStringRef kCFBundleNameKey;

CF_EXTERN_C_BEGIN

CFTypeID CFBundleGetTypeID(void);
/// Not owned by the caller.
CFBundleRef CFBundleGetMainBundle(void);
/// Of those that are known; NULL when there is none. Not owned by the caller.
CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier);
/// Owned by the caller; NULL when there is no folder.
CFBundleRef CFBundleCreate(CFAllocatorRef allocator, CFURLRef url);
/// Owned by the bundle; NULL when there is none.
CFStringRef CFBundleGetIdentifier(CFBundleRef bundle);
CFDictionaryRef CFBundleGetInfoDictionary(CFBundleRef bundle);
CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key);
/// Owned by the caller; NULL when there is none. A NULL type is part of the name, a NULL folder the topmost.
CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle);
CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type, CFStringRef folder);
CFStringRef CFBundleCopyLocalizedString(CFBundleRef bundle, CFStringRef key, CFStringRef value, CFStringRef table);
#define CFCopyLocalizedStringFromTableInBundle(key, table, bundle, comment) \
  CFBundleCopyLocalizedString((bundle), (key), (key), (table))

CF_EXTERN_C_END
