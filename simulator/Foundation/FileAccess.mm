#import "Foundation/FileAccess.h"

#include "base/UTF8.hpp"

#include <cerrno>
#include <cstring>

namespace sim {

namespace {

// Of Foundation's errors, one that GNUstep base does not declare.
constexpr NSInteger kFileWriteVolumeReadOnlyError = 642;

NSInteger readCode(int number) {
  switch (number) {
    case ENOENT:
    case ENOTDIR: return NSFileReadNoSuchFileError;
    case EACCES:
    case EPERM: return NSFileReadNoPermissionError;
    case ENAMETOOLONG: return NSFileReadInvalidFileNameError;
    default: return NSFileReadUnknownError;
  }
}

NSInteger writeCode(int number) {
  switch (number) {
    case ENOENT:
    case ENOTDIR: return NSFileNoSuchFileError;
    case EACCES:
    case EPERM: return NSFileWriteNoPermissionError;
    case ENOSPC:
    case EDQUOT: return NSFileWriteOutOfSpaceError;
    case EROFS: return kFileWriteVolumeReadOnlyError;
    case EEXIST: return NSFileWriteFileExistsError;
    case ENAMETOOLONG: return NSFileWriteInvalidFileNameError;
    default: return NSFileWriteUnknownError;
  }
}

NSError *fileError(NSInteger code, NSString *path, int number) {
  NSError *cause = [NSError errorWithDomain:NSPOSIXErrorDomain code:number userInfo:nil];
  return
      [NSError errorWithDomain:NSCocoaErrorDomain
                          code:code
                      userInfo:@{
                        NSFilePathErrorKey : path ? path : @"",
                        NSUnderlyingErrorKey : cause,
                        NSLocalizedDescriptionKey : [NSString stringWithFormat:@"%@: %s", path, std::strerror(number)]
                      }];
}

/// Explanations may quote a malformed document.
NSString *shown(const std::string &text) {
  const NSStringEncoding encoding = isUTF8(text) ? NSUTF8StringEncoding : NSISOLatin1StringEncoding;
  return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:encoding] autorelease];
}

}  // namespace

std::string fileSystemPath(NSString *path) {
  const char *text = [path length] > 0 ? [path fileSystemRepresentation] : nullptr;
  return text ? text : "";
}

NSError *cocoaError(NSInteger code, const std::string &explanation) {
  NSString *text = shown(explanation);
  return [NSError errorWithDomain:NSCocoaErrorDomain
                             code:code
                         userInfo:@{@"NSDebugDescription" : text, NSLocalizedDescriptionKey : text}];
}

std::optional<FileContent> contentOfFile(NSString *path, NSError **error) {
  int number = 0;
  auto content = readFile(fileSystemPath(path), &number);
  if (!content) report(error, fileError(readCode(number), path, number));
  return content;
}

BOOL writeFile(NSString *path, std::span<const std::byte> bytes, BOOL atomically, NSError **error) {
  const auto place = fileSystemPath(path);
  const int number = atomically ? writeFileAtomically(place, bytes) : writeFileInPlace(place, bytes);
  return number == 0 || reportFailedWrite(error, notWritten(path), writeError(path, number));
}

NSError *writeError(NSString *path, int number) { return fileError(writeCode(number), path, number); }

NSString *notWritten(NSString *path) { return [NSString stringWithFormat:@"%@ was not written", path]; }

BOOL reportFailedWrite(NSError **place, NSString *what, NSError *error) {
  // An error that comes from the system has the system's words in the one below it.
  NSError *cause = [[error userInfo] objectForKey:NSUnderlyingErrorKey];
  NSString *reason = [[cause domain] isEqualToString:NSPOSIXErrorDomain]
                         ? [NSString stringWithUTF8String:std::strerror(static_cast<int>([cause code]))]
                         : [error localizedDescription];
  NSLog(@"[Foundation] %@: %@", what, reason);
  return report(place, error);
}

}  // namespace sim
