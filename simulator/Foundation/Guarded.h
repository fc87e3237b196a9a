// Running a page's code without letting its exceptions end the application.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// A line in the log: what was being done, the exception, and the file on the device whose code raised it or,
/// when that was a framework, called that.
void logUncaught(NSString *doing, NSException *exception);

/// Is told, on the main thread, of each exception that `guarded` has caught, when the log has its line.
using UncaughtHandler = void (*)(NSException *exception, void *context);

/// Sets the handler, of which there is at most one; nullptr sets none. Main thread.
void setUncaughtHandler(UncaughtHandler handler, void *context);

/// Runs `body`. What it raises ends the application on a device; here it becomes a line in the log. Returns the
/// exception's name, autoreleased, or nil when nothing was raised.
template <typename Body>
NSString *guarded(NSString *doing, Body body) {
  @try {
    body();
  } @catch (NSException *exception) {
    logUncaught(doing, exception);
    return [exception name] ?: @"NSException";
  }
  return nil;
}

}  // namespace sim
