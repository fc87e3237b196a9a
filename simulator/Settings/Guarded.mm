#import "Settings/Guarded.hpp"

#import <Foundation/SIMDevice.h>

namespace sim {

void logUncaught(const char *doing, NSException *exception) {
  NSString *file = nil;
  for (NSValue *address in [exception callStackReturnAddresses]) {
    if ((file = SIMDeviceCodeFile([address pointerValue]))) break;
  }
  NSLog(@"Uncaught exception while %s: %@: %@%@", doing, [exception name], [exception reason],
        file ? [NSString stringWithFormat:@" (from %@)", file] : @"");
}

}  // namespace sim
