// CFData is NSData.
#pragma once

#import <CoreFoundation/CFBase.h>

CF_EXTERN_C_BEGIN

CFTypeID CFDataGetTypeID(void);
/// The bytes, owned by `data`; valid while it lives and does not change. May be NULL for empty data.
const UInt8* CFDataGetBytePtr(CFDataRef data);
CFIndex CFDataGetLength(CFDataRef data);
/// New data with a copy of `length` bytes; owned by the caller. The allocator is ignored. NULL for a negative length.
CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length);
CFDataRef CFDataCreateCopy(CFAllocatorRef allocator, CFDataRef data);
/// Empty data that can grow, whatever the capacity; owned by the caller.
CFMutableDataRef CFDataCreateMutable(CFAllocatorRef allocator, CFIndex capacity);
void CFDataAppendBytes(CFMutableDataRef data, const UInt8* bytes, CFIndex length);

CF_EXTERN_C_END
