// Files and their failures in Foundation's terms: NSString paths, and NSErrors as on a device.
#pragma once

#import <Foundation/Foundation.h>

#include "base/Files.hpp"

#include <optional>
#include <span>
#include <string>

namespace sim {

/// Foundation's error codes for property lists, which GNUstep base does not declare.
inline constexpr NSInteger kPropertyListReadCorruptError = 3840;
inline constexpr NSInteger kPropertyListWriteInvalidError = 3852;

/// `path` as the system takes it; "" for nil.
std::string fileSystemPath(NSString *path);

/// An error in NSCocoaErrorDomain with `explanation` under NSDebugDescription; autoreleased.
NSError *cocoaError(NSInteger code, const std::string &explanation);

/// The bytes of a regular file; nothing, with an error, when it cannot be read.
std::optional<FileContent> contentOfFile(NSString *path, NSError **error);

/// Writes a whole file, see base/Files.hpp. NO with an error, and a line in the log, when that fails.
BOOL writeFile(NSString *path, std::span<const std::byte> bytes, BOOL atomically, NSError **error);

/// Stores `error` where the caller wants it; answers NO, for `return report(…)`.
inline BOOL report(NSError **place, NSError *error) {
  if (place) *place = error;
  return NO;
}

/// The error for the file at `path` that could not be written, made or moved, for the `errno` value `number`.
NSError *writeError(NSString *path, int number);

/// "PATH was not written", for the log.
NSString *notWritten(NSString *path);

/// Stores `error` where the caller wants it, and says in the log, where a maker finds why nothing has changed,
/// "[Foundation] ", `what`, and the reason. Answers NO.
BOOL reportFailedWrite(NSError **place, NSString *what, NSError *error);

}  // namespace sim
