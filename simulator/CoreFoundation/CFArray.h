// CFArray is NSArray: it holds objects. What is created or copied is owned by the caller; allocators are ignored. An
// index outside raises NSRangeException, as NSArray does.
#pragma once

#import <CoreFoundation/CFBase.h>

typedef const void* (*CFArrayRetainCallBack)(CFAllocatorRef allocator, const void* value);
typedef void (*CFArrayReleaseCallBack)(CFAllocatorRef allocator, const void* value);
typedef CFStringRef (*CFArrayCopyDescriptionCallBack)(const void* value);
typedef Boolean (*CFArrayEqualCallBack)(const void* one, const void* other);
typedef struct {
  CFIndex version;
  CFArrayRetainCallBack retain;
  CFArrayReleaseCallBack release;
  CFArrayCopyDescriptionCallBack copyDescription;
  CFArrayEqualCallBack equal;
} CFArrayCallBacks;
typedef void (*CFArrayApplierFunction)(const void* value, void* context);

/// The only call-backs that are carried: values are objects. Others end the process with a message.
CF_EXPORT const CFArrayCallBacks kCFTypeArrayCallBacks;

CF_EXTERN_C_BEGIN

CFTypeID CFArrayGetTypeID(void);
CFArrayRef CFArrayCreate(CFAllocatorRef allocator, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks);
CFArrayRef CFArrayCreateCopy(CFAllocatorRef allocator, CFArrayRef array);
CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef allocator, CFIndex capacity, const CFArrayCallBacks* callBacks);
CFMutableArrayRef CFArrayCreateMutableCopy(CFAllocatorRef allocator, CFIndex capacity, CFArrayRef array);

CFIndex CFArrayGetCount(CFArrayRef array);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
void CFArrayGetValues(CFArrayRef array, CFRange range, const void** values);
Boolean CFArrayContainsValue(CFArrayRef array, CFRange range, const void* value);
/// `kCFNotFound` when there is none.
CFIndex CFArrayGetFirstIndexOfValue(CFArrayRef array, CFRange range, const void* value);
void CFArrayApplyFunction(CFArrayRef array, CFRange range, CF_NOESCAPE CFArrayApplierFunction applier, void* context);

void CFArrayAppendValue(CFMutableArrayRef array, const void* value);
void CFArrayInsertValueAtIndex(CFMutableArrayRef array, CFIndex index, const void* value);
void CFArraySetValueAtIndex(CFMutableArrayRef array, CFIndex index, const void* value);
void CFArrayRemoveValueAtIndex(CFMutableArrayRef array, CFIndex index);
void CFArrayRemoveAllValues(CFMutableArrayRef array);
void CFArrayAppendArray(CFMutableArrayRef array, CFArrayRef other, CFRange range);
void CFArraySortValues(CFMutableArrayRef array, CFRange range, CFComparatorFunction comparator, void* context);

CF_EXTERN_C_END
