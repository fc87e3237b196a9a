// CFDate is NSDate.
#pragma once

#import <CoreFoundation/CFBase.h>

/// Seconds since the first moment of 2001, UTC.
typedef double CFTimeInterval;
typedef CFTimeInterval CFAbsoluteTime;
typedef const struct __CFDate* CFDateRef;

CF_EXTERN_C_BEGIN

CFAbsoluteTime CFAbsoluteTimeGetCurrent(void);
CFTypeID CFDateGetTypeID(void);
/// Owned by the caller; the allocator is ignored.
CFDateRef CFDateCreate(CFAllocatorRef allocator, CFAbsoluteTime time);
CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef date);

CF_EXTERN_C_END
