#import "Foundation/Guarded.h"

#import "Foundation/SIMDevice.h"

#import <dispatch/dispatch.h>

namespace sim {
namespace {

UncaughtHandler uncaughtHandler = nullptr;
void *uncaughtContext = nullptr;

}  // namespace

void setUncaughtHandler(UncaughtHandler handler, void *context) {
  uncaughtHandler = handler;
  uncaughtContext = context;
}

void logUncaught(NSString *doing, NSException *exception) {
  NSString *file = nil;
  for (NSValue *address in [exception callStackReturnAddresses]) {
    if ((file = SIMDeviceCodeFile([address pointerValue]))) break;
  }
  NSLog(@"Uncaught exception while %@: %@: %@%@", doing, [exception name], [exception reason],
        file ? [NSString stringWithFormat:@" (from %@)", file] : @"");
  if ([NSThread isMainThread]) {
    if (uncaughtHandler) uncaughtHandler(exception, uncaughtContext);
    return;
  }
  dispatch_async(dispatch_get_main_queue(), ^{
    if (uncaughtHandler) uncaughtHandler(exception, uncaughtContext);
  });
}

}  // namespace sim
