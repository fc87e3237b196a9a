#import "cells/NorvikPackage.h"

#import <PrivateFoundation/NSTask.h>

#include <sys/stat.h>

#include <string_view>

#import "cells/PackageStatus.hpp"
#import "core/DevicePaths.h"

namespace {

NSString *const kUnknown = @"Unknown";

/// The package tool of the rootless layout, else the system's; nil when there is neither.
NSString *packageTool() {
  for (NSString *tool in @[ zuno::rootlessPackageTool(), zuno::systemPackageTool() ]) {
    struct stat status;
    if (stat([tool fileSystemRepresentation], &status) == 0) return tool;
  }
  return nil;
}

/// What `tool` prints of the package, until it closes its output; nil when that is no UTF-8 text.
NSData *statusRecord(NSString *tool, NSString *identifier) {
  NSTask *task = [[[NSTask alloc] init] autorelease];
  [task setLaunchPath:tool];
  [task setCurrentDirectoryPath:@"/"];
  [task setArguments:@[ @"-s", identifier ]];
  NSPipe *output = [NSPipe pipe];
  [task setStandardOutput:output];
  [task launch];
  NSData *data = [[output fileHandleForReading] readDataToEndOfFile];
  NSString *text = data ? [[[NSString alloc] initWithData:data encoding:NSUTF8StringEncoding] autorelease] : nil;
  return text ? data : nil;
}

/// The field "Version" of a status record; nil when it has none.
NSString *versionIn(NSData *record) {
  const auto value =
      zuno::statusField(std::string_view(static_cast<const char *>([record bytes]), [record length]), "Version");
  if (!value) return nil;
  return [[[NSString alloc] initWithBytes:value->data() length:value->size()
                                 encoding:NSUTF8StringEncoding] autorelease];
}

}  // namespace

@implementation NorvikPackage

@synthesize version = _version;

+ (instancetype)packageWithIdentifier:(NSString *)identifier isRootPackage:(BOOL)isRootPackage {
  NorvikPackage *package = [[[self alloc] init] autorelease];
  [package setVersion:kUnknown];
  if (isRootPackage) {
    [package setVersion:[NSString stringWithFormat:@"%@", @"0.1.0-Beta3-rootless"]];
    return package;
  }
  NSString *tool = packageTool();
  if (!tool) {
    [package setVersion:@"Unknown (dpkg-query not found)"];
    return package;
  }
  NSData *record = statusRecord(tool, identifier);
  @try {
    if (NSString *version = versionIn(record)) [package setVersion:version];
  } @catch (NSException *exception) {
    NSLog(@"%@", exception);
  }
  return package;
}

- (void)dealloc {
  [_version release];
  [super dealloc];
}

@end
