#import <Preferences/PreferencesLog.h>

#include <cstdarg>

namespace sim {

void logPreferences(NSString *format, ...) {
  va_list arguments;
  va_start(arguments, format);
  NSString *line = [[NSString alloc] initWithFormat:format arguments:arguments];
  va_end(arguments);
  NSLog(@"[Preferences] %@", line);
  [line release];
}

}  // namespace sim
