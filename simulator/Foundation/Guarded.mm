#import "Foundation/Guarded.h"

#import "Foundation/SIMDevice.h"

namespace sim {

void logUncaught(NSString *doing, NSException *exception) {
  NSString *file = nil;
  for (NSValue *address in [exception callStackReturnAddresses]) {
    if ((file = SIMDeviceCodeFile([address pointerValue]))) break;
  }
  NSLog(@"Uncaught exception while %@: %@: %@%@", doing, [exception name], [exception reason],
        file ? [NSString stringWithFormat:@" (from %@)", file] : @"");
}

}  // namespace sim
