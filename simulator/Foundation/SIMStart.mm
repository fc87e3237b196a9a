#import <CoreFoundation/CFBase+Sim.h>
#import <Foundation/SIMDevice.h>
#import <Foundation/OfflineProtocol.h>
#import <dispatch/MainQueue+Sim.h>

#include <cstdlib>

namespace {

/// Before any Objective-C runs: texts and file names are UTF-8, whatever the user's locale says.
__attribute__((constructor)) void useUTF8() { setenv("GNUSTEP_STRING_ENCODING", "NSUTF8StringEncoding", 1); }

}  // namespace

void SIMStartFoundation(void) {
  static dispatch_once_t once;
  dispatch_once(&once, ^{
    @autoreleasepool {
      // Given before Foundation reads the computer's configuration, this stands in its place; all else is built in.
      GNUstepConfig(@{@"GNUSTEP_USER_CONFIG_FILE" : @"", @"GNUSTEP_USER_DEFAULTS_DIR" : @":INTERNAL:"});
      NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
      NSDictionary *arguments = [defaults volatileDomainForName:NSArgumentDomain];
      if (![arguments objectForKey:@"NSLanguages"]) [NSUserDefaults setUserLanguages:@[ @"en" ]];
      [defaults registerDefaults:@{@"Locale" : @"en_US", @"GSMacOSXCompatible" : @(YES)}];
      SIMStartCoreFoundation();
      SIMJoinMainRunLoop();
      sim::goOffline();
    }
  });
}
