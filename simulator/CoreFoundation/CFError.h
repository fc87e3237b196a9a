// CFError is NSError. What is created or copied is owned by the caller; allocators are ignored.
#pragma once

#import <CoreFoundation/CFBase.h>

typedef struct __CFError* CFErrorRef;
typedef CFStringRef CFErrorDomain;

CF_EXPORT const CFErrorDomain kCFErrorDomainPOSIX;
CF_EXPORT const CFErrorDomain kCFErrorDomainOSStatus;
CF_EXPORT const CFErrorDomain kCFErrorDomainMach;
CF_EXPORT const CFErrorDomain kCFErrorDomainCocoa;
CF_EXPORT const CFStringRef kCFErrorLocalizedDescriptionKey;
CF_EXPORT const CFStringRef kCFErrorLocalizedFailureReasonKey;
CF_EXPORT const CFStringRef kCFErrorLocalizedRecoverySuggestionKey;
CF_EXPORT const CFStringRef kCFErrorDescriptionKey;
CF_EXPORT const CFStringRef kCFErrorUnderlyingErrorKey;

CF_EXTERN_C_BEGIN

CFTypeID CFErrorGetTypeID(void);
CFErrorRef CFErrorCreate(CFAllocatorRef allocator, CFErrorDomain domain, CFIndex code, CFDictionaryRef userInfo);
CFErrorRef CFErrorCreateWithUserInfoKeysAndValues(CFAllocatorRef allocator, CFErrorDomain domain, CFIndex code,
                                                  const void* const* keys, const void* const* values, CFIndex count);
/// Owned by the error.
CFErrorDomain CFErrorGetDomain(CFErrorRef error);
CFIndex CFErrorGetCode(CFErrorRef error);
CFDictionaryRef CFErrorCopyUserInfo(CFErrorRef error);
CFStringRef CFErrorCopyDescription(CFErrorRef error);
/// NULL when it has none.
CFStringRef CFErrorCopyFailureReason(CFErrorRef error);
CFStringRef CFErrorCopyRecoverySuggestion(CFErrorRef error);

CF_EXTERN_C_END
