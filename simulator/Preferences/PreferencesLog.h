// What a maker of a bundle should know goes to the system log through here.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// Logs one line, headed "[Preferences] ".
void logPreferences(NSString *format, ...) NS_FORMAT_FUNCTION(1, 2);

/// Runs `body`; an exception that it raises is logged with `what` and swallowed. YES when it came through.
template <typename Body>
bool guarded(NSString *what, Body body) {
  @try {
    body();
    return true;
  } @catch (NSException *exception) {
    logPreferences(@"%@ raised %@: %@", what, [exception name], [exception reason]);
    return false;
  }
}

}  // namespace sim
