#import "core/TruthValue.h"

#import <CoreFoundation/CoreFoundation.h>

namespace zuno {

// Foundation cannot tell YES from 1: both are numbers, and equal.
id integerForTruth(id value) {
  if (!value || CFGetTypeID((CFTypeRef)value) != CFBooleanGetTypeID()) return value;
  return [NSNumber numberWithInt:[value boolValue] ? 1 : 0];
}

}  // namespace zuno
