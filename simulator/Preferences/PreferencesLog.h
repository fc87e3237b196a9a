// What a maker of a bundle should know goes to the system log through here.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// Logs one line, headed "[Preferences] ".
void logPreferences(NSString *format, ...) NS_FORMAT_FUNCTION(1, 2);

}  // namespace sim
