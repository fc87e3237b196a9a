// Making, copying, moving and removing files and folders as on a device: GNUstep's own take a file for the folder that
// is wanted, leave part of a copy behind, and have the reason of a failure wrong.
#import <Foundation/Foundation.h>

#import "Foundation/FileAccess.h"

#include "base/FileTree.hpp"

#include <sys/stat.h>

#include <cerrno>
#include <span>
#include <string>

// Replacing the methods of the class is what this file is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSFileManager (Writing)

- (BOOL)copyItemAtPath:(NSString *)from toPath:(NSString *)to error:(NSError **)error {
  const int number = sim::copyItem(sim::fileSystemPath(from), sim::fileSystemPath(to));
  if (number == 0) return YES;
  return sim::reportFailedWrite(error, [NSString stringWithFormat:@"%@ was not copied to %@", from, to],
                                sim::writeError(from, number));
}

- (BOOL)moveItemAtPath:(NSString *)from toPath:(NSString *)to error:(NSError **)error {
  const int number = sim::moveItem(sim::fileSystemPath(from), sim::fileSystemPath(to));
  if (number == 0) return YES;
  return sim::reportFailedWrite(error, [NSString stringWithFormat:@"%@ was not moved to %@", from, to],
                                sim::writeError(from, number));
}

- (BOOL)removeItemAtPath:(NSString *)path error:(NSError **)error {
  const int number = sim::removeItem(sim::fileSystemPath(path));
  if (number == 0) return YES;
  NSError *reason = sim::writeError(path, number);
  if (number == ENOENT) return sim::report(error, reason);  // What is wanted is so already.
  return sim::reportFailedWrite(error, [NSString stringWithFormat:@"%@ was not removed", path], reason);
}

- (BOOL)createDirectoryAtPath:(NSString *)path
    withIntermediateDirectories:(BOOL)withParents
                     attributes:(NSDictionary *)attributes
                          error:(NSError **)error {
  const std::string folder = sim::fileSystemPath(path);
  int number = sim::makeFolder(folder, withParents);
  struct stat status{};
  // What stands at the path itself is told as being in the way, other than a file above it.
  if (number == ENOTDIR && ::lstat(folder.c_str(), &status) == 0) number = EEXIST;
  if (number != 0) {
    return sim::reportFailedWrite(error, [NSString stringWithFormat:@"The folder %@ was not made", path],
                                  sim::writeError(path, number));
  }
  return !attributes || [self changeFileAttributes:attributes atPath:path];
}

- (BOOL)createFileAtPath:(NSString *)path contents:(NSData *)contents attributes:(NSDictionary *)attributes {
  const std::span bytes(static_cast<const std::byte *>([contents bytes]), static_cast<std::size_t>([contents length]));
  if (!sim::writeFile(path, bytes, NO, nullptr)) return NO;
  return !attributes || [self changeFileAttributes:attributes atPath:path];
}

@end
