// Restarts of the user interface that a bundle asks the system for.
#import <FrontBoardServices/FrontBoardServices.h>
#import <SpringBoardServices/SpringBoardServices.h>

#import <Foundation/NotCarried.h>
#import <Foundation/SIMDevice.h>

#include <fcntl.h>
#include <unistd.h>

#include "base/Descriptor.hpp"

namespace {

/// As the program killall does: tells the simulator through a pipe that nobody reads without one.
void restartUserInterface() {
  NSString *pipe = SIMDeviceFolder() ? SIMDevicePath(@"/.simulator/backboardd") : nil;
  const sim::Descriptor opened(pipe ? ::open([pipe fileSystemRepresentation], O_WRONLY | O_NONBLOCK | O_CLOEXEC) : -1);
  if (!opened || ::write(opened.get(), "\n", 1) != 1) NSLog(@"[FrontBoardServices] There is nothing to restart.");
}

void expectNoTarget(NSURL *url, NSString *of) {
  if (!url) return;
  sim::notCarried([of stringByAppendingString:@".targetURL"], @"after the respring the first page is shown.");
}

}  // namespace

@implementation SBSRelaunchAction
@synthesize reason = _reason;
@synthesize options = _options;
@synthesize targetURL = _targetURL;

+ (instancetype)actionWithReason:(NSString *)reason
                         options:(SBSRelaunchActionOptions)options
                       targetURL:(NSURL *)targetURL {
  SBSRelaunchAction *action = [[[self alloc] init] autorelease];
  action->_reason = [reason copy];
  action->_options = options;
  action->_targetURL = [targetURL retain];
  return action;
}

- (void)dealloc {
  [_reason release];
  [_targetURL release];
  [super dealloc];
}

@end

@implementation SBSRestartRenderServerAction
@synthesize targetURL = _targetURL;

+ (instancetype)restartActionWithTargetRelaunchURL:(NSURL *)targetURL {
  SBSRestartRenderServerAction *action = [[[self alloc] init] autorelease];
  action->_targetURL = [targetURL retain];
  return action;
}

- (void)dealloc {
  [_targetURL release];
  [super dealloc];
}

@end

@implementation FBSSystemService

+ (instancetype)sharedService {
  static FBSSystemService *service = [[FBSSystemService alloc] init];
  return service;
}

- (void)sendActions:(NSSet *)actions withResult:(void (^)(NSError *))result {
  bool restarts = false;
  for (id action in actions) {
    if ([action isKindOfClass:[SBSRelaunchAction class]] ||
        [action isKindOfClass:[SBSRestartRenderServerAction class]]) {
      expectNoTarget([action targetURL], NSStringFromClass([action class]));
      restarts = true;
    } else {
      NSLog(@"[FrontBoardServices] An action of the class %@ is not known.", [action class]);
    }
  }
  if (result) {
    dispatch_async(dispatch_get_main_queue(), ^{
      result(nil);
    });
  }
  if (restarts) restartUserInterface();
}

@end
