// The device folder, which stands for the device's file system, and the start of a process that uses this library.
#pragma once

#import <Foundation/Foundation.h>

/// Prepares Foundation for this process: user defaults in memory only, so that nothing is read from or written to the
/// user's home folder; English; the main queue in the main run loop; NSLog to the log handler. Call it first in `main`,
/// on the main thread. Calling it again does nothing.
FOUNDATION_EXPORT void SIMStartFoundation(void);

/// Sets the folder that stands for the device's root; nil sets none. Symbolic links in it are resolved. Main thread.
FOUNDATION_EXPORT void SIMSetDeviceFolder(NSString *folder);

/// The device folder, absolute, without a slash at the end; nil when none is set.
FOUNDATION_EXPORT NSString *SIMDeviceFolder(void);

/// Where the file of the device's path `path` lies on this computer: the device folder plus `path`. "." and ".." are
/// resolved as if the device folder were the root, so the result never lies outside it. Raises
/// NSInternalInconsistencyException when no folder is set and NSInvalidArgumentException when `path` is nil.
FOUNDATION_EXPORT NSString *SIMDevicePath(NSString *path);

/// The file on the device, as a path there, whose code lies at `address`; nil when that is no code, or code from
/// elsewhere. Any thread that knows of Objective-C.
FOUNDATION_EXPORT NSString *SIMDeviceCodeFile(const void *address);
