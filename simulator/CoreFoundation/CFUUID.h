// CFUUID is NSUUID here; on a device it is a type of its own, and is not to be cast.
#pragma once

#import <CoreFoundation/CFBase.h>

typedef const struct __CFUUID* CFUUIDRef;

CF_EXTERN_C_BEGIN

/// A new one, by chance; owned by the caller, as the text is. Allocators are ignored.
CFUUIDRef CFUUIDCreate(CFAllocatorRef allocator);
CFStringRef CFUUIDCreateString(CFAllocatorRef allocator, CFUUIDRef uuid);

CF_EXTERN_C_END
