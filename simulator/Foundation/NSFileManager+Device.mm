// The directories of the device's user.
#import <Foundation/SIMDevice.h>

namespace {

constexpr char kHome[] = "/var/mobile";

/// Below the user's home; nil for a directory that a device does not have.
NSString *directoryName(NSSearchPathDirectory directory) {
  switch (directory) {
    case NSDocumentDirectory: return @"Documents";
    case NSLibraryDirectory: return @"Library";
    case NSCachesDirectory: return @"Library/Caches";
    case NSApplicationSupportDirectory: return @"Library/Application Support";
    default: return nil;
  }
}

}  // namespace

@implementation NSFileManager (Directories)

- (NSArray *)URLsForDirectory:(NSSearchPathDirectory)directory inDomains:(NSSearchPathDomainMask)domains {
  NSString *name = directoryName(directory);
  if (!name || !(domains & NSUserDomainMask)) return @[];
  NSString *path = SIMDevicePath([NSString stringWithFormat:@"%s/%@", kHome, name]);
  return @[ [NSURL fileURLWithPath:path isDirectory:YES] ];
}

@end
