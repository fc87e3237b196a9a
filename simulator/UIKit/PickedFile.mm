#import "PickedFile.h"

#include "DeviceFiles.hpp"

#import <Foundation/SIMDevice.h>

namespace {

/// Whether a file of this name stands in the folder that the name is appended to.
bool isFileName(NSString *name) {
  return
      [name length] > 0 && [name rangeOfString:@"/"].location == NSNotFound && ![@[ @".", @".." ] containsObject:name];
}

}  // namespace

NSArray *sim::pathsBelow(NSString *folder, const std::vector<std::string_view> &extensions) {
  NSMutableArray *paths = [NSMutableArray array];
  for (const std::string &file : filesBelow([folder fileSystemRepresentation], extensions)) {
    NSString *path = [[[NSString alloc] initWithBytes:file.data() length:file.size()
                                             encoding:NSUTF8StringEncoding] autorelease];
    if (path) [paths addObject:path];
  }
  return paths;
}

NSURL *sim::temporaryCopy(NSString *path, NSString *name, NSError **error) {
  NSFileManager *manager = [NSFileManager defaultManager];
  NSString *inbox = SIMDevicePath(@"/var/mobile/tmp/Inbox");
  static bool emptied = false;
  if (!emptied) [manager removeItemAtPath:inbox error:NULL];
  emptied = true;

  NSString *folder = [inbox stringByAppendingPathComponent:[[NSUUID UUID] UUIDString]];
  NSString *copy = [folder stringByAppendingPathComponent:name];
  if (!isFileName(name) ||
      ![manager createDirectoryAtPath:folder withIntermediateDirectories:YES attributes:nil error:NULL] ||
      ![manager copyItemAtPath:path toPath:copy error:NULL]) {
    [manager removeItemAtPath:folder error:NULL];
    fail(error, NSFileWriteUnknownError, [NSString stringWithFormat:@"“%@” could not be copied.", name]);
    return nil;
  }
  return [NSURL fileURLWithPath:copy];
}

BOOL sim::fail(NSError **error, NSInteger code, NSString *sentence) {
  if (error) {
    *error = [NSError errorWithDomain:NSCocoaErrorDomain code:code userInfo:@{NSLocalizedDescriptionKey : sentence}];
  }
  return NO;
}
