// Property lists as bytes.
#pragma once

#import <CoreFoundation/CFError.h>

typedef CFOptionFlags CFPropertyListMutabilityOptions;
enum : CFPropertyListMutabilityOptions {
  kCFPropertyListImmutable = 0,
  kCFPropertyListMutableContainers = 1 << 0,
  kCFPropertyListMutableContainersAndLeaves = 1 << 1
};
typedef enum : CFIndex {
  kCFPropertyListOpenStepFormat = 1,
  kCFPropertyListXMLFormat_v1_0 = 100,
  kCFPropertyListBinaryFormat_v1_0 = 200
} CFPropertyListFormat;

CF_EXTERN_C_BEGIN

/// Owned by the caller, as an error is; NULL with one when the bytes are no property list. `format` and `error` may be
/// NULL.
CFPropertyListRef CFPropertyListCreateWithData(CFAllocatorRef allocator, CFDataRef data, CFOptionFlags options,
                                               CFPropertyListFormat* format, CFErrorRef* error);
/// Owned by the caller, as an error is; NULL with one when that is no property list.
CFDataRef CFPropertyListCreateData(CFAllocatorRef allocator, CFPropertyListRef propertyList,
                                   CFPropertyListFormat format, CFOptionFlags options, CFErrorRef* error);
Boolean CFPropertyListIsValid(CFPropertyListRef propertyList, CFPropertyListFormat format);

CF_EXTERN_C_END
