// The user's defaults, which live in memory alone.
#import <Foundation/Foundation.h>

// Replacing the method of the class is what this file is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSUserDefaults (Device)

/// There is no file to read or to write. GNUstep's own, which also comes every half minute by itself, would
/// make a folder for one.
- (BOOL)synchronize {
  return YES;
}

@end
