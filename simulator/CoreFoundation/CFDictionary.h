// CFDictionary is NSDictionary: keys and values are objects, and keys are copied. What is created or copied is owned by
// the caller; allocators are ignored.
#pragma once

#import <CoreFoundation/CFBase.h>

typedef const void* (*CFDictionaryRetainCallBack)(CFAllocatorRef allocator, const void* value);
typedef void (*CFDictionaryReleaseCallBack)(CFAllocatorRef allocator, const void* value);
typedef CFStringRef (*CFDictionaryCopyDescriptionCallBack)(const void* value);
typedef Boolean (*CFDictionaryEqualCallBack)(const void* one, const void* other);
typedef CFHashCode (*CFDictionaryHashCallBack)(const void* value);
typedef struct {
  CFIndex version;
  CFDictionaryRetainCallBack retain;
  CFDictionaryReleaseCallBack release;
  CFDictionaryCopyDescriptionCallBack copyDescription;
  CFDictionaryEqualCallBack equal;
  CFDictionaryHashCallBack hash;
} CFDictionaryKeyCallBacks;
typedef struct {
  CFIndex version;
  CFDictionaryRetainCallBack retain;
  CFDictionaryReleaseCallBack release;
  CFDictionaryCopyDescriptionCallBack copyDescription;
  CFDictionaryEqualCallBack equal;
} CFDictionaryValueCallBacks;
typedef void (*CFDictionaryApplierFunction)(const void* key, const void* value, void* context);

/// The only call-backs that are carried: keys and values are objects. Others end the process with a message.
CF_EXPORT const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks;
CF_EXPORT const CFDictionaryKeyCallBacks kCFCopyStringDictionaryKeyCallBacks;
CF_EXPORT const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks;

CF_EXTERN_C_BEGIN

CFTypeID CFDictionaryGetTypeID(void);
CFDictionaryRef CFDictionaryCreate(CFAllocatorRef allocator, const void** keys, const void** values, CFIndex count,
                                   const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks);
CFDictionaryRef CFDictionaryCreateCopy(CFAllocatorRef allocator, CFDictionaryRef dictionary);
CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef allocator, CFIndex capacity,
                                                 const CFDictionaryKeyCallBacks* keyCallBacks,
                                                 const CFDictionaryValueCallBacks* valueCallBacks);
CFMutableDictionaryRef CFDictionaryCreateMutableCopy(CFAllocatorRef allocator, CFIndex capacity,
                                                     CFDictionaryRef dictionary);

CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary);
Boolean CFDictionaryContainsKey(CFDictionaryRef dictionary, const void* key);
Boolean CFDictionaryContainsValue(CFDictionaryRef dictionary, const void* value);
/// Owned by the dictionary; NULL when there is none.
const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key);
Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef dictionary, const void* key, const void** value);
/// In one order for both; either may be NULL.
void CFDictionaryGetKeysAndValues(CFDictionaryRef dictionary, const void** keys, const void** values);
void CFDictionaryApplyFunction(CFDictionaryRef dictionary, CF_NOESCAPE CFDictionaryApplierFunction applier,
                               void* context);

/// Sets a value for a key that has none.
void CFDictionaryAddValue(CFMutableDictionaryRef dictionary, const void* key, const void* value);
void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void* key, const void* value);
/// Sets a value for a key that has one.
void CFDictionaryReplaceValue(CFMutableDictionaryRef dictionary, const void* key, const void* value);
void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, const void* key);
void CFDictionaryRemoveAllValues(CFMutableDictionaryRef dictionary);

CF_EXTERN_C_END
