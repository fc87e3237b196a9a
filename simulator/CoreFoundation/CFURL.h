// CFURL is NSURL. What is created or copied is owned by the caller; allocators are ignored.
#pragma once

#import <CoreFoundation/CFString.h>

typedef enum : CFIndex { kCFURLPOSIXPathStyle = 0 } CFURLPathStyle;

CF_EXTERN_C_BEGIN

CFTypeID CFURLGetTypeID(void);
/// NULL for what is no address.
CFURLRef CFURLCreateWithString(CFAllocatorRef allocator, CFStringRef string, CFURLRef base);
CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef allocator, CFStringRef path, CFURLPathStyle style,
                                       Boolean isDirectory);
CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef allocator, CFURLRef url, CFStringRef component,
                                               Boolean isDirectory);
CFURLRef CFURLCreateCopyDeletingLastPathComponent(CFAllocatorRef allocator, CFURLRef url);
/// Owned by the address.
CFStringRef CFURLGetString(CFURLRef url);
CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle style);
CFStringRef CFURLCopyPath(CFURLRef url);
CFStringRef CFURLCopyScheme(CFURLRef url);
CFStringRef CFURLCopyHostName(CFURLRef url);
CFStringRef CFURLCopyLastPathComponent(CFURLRef url);
CFStringRef CFURLCopyPathExtension(CFURLRef url);

CF_EXTERN_C_END
