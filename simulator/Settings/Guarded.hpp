// Running a page's code without letting its exceptions end the application.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// Runs `body`. What it raises ends the application on a device; here it becomes a line in the log. Returns the
/// exception's name, autoreleased, or nil when nothing was raised.
template <typename Body>
NSString *guarded(const char *doing, Body body) {
  @try {
    body();
  } @catch (NSException *exception) {
    NSLog(@"Uncaught exception while %s: %@: %@", doing, [exception name], [exception reason]);
    return [exception name] ?: @"NSException";
  }
  return nil;
}

}  // namespace sim
