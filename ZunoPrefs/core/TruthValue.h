// Truth values in the main preference file, whose readers expect the integers 0 and 1.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// The integer 0 or 1 in place of a truth value as switches give it; every other value, nil too, as it is.
id integerForTruth(id value);

}  // namespace zuno
