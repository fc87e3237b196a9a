// Numbers as the user reads them.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// `value`, which is finite, rounded to `decimals` places and written with all of them as the user's locale writes
/// numbers; a half is rounded away from zero, and there is no negative zero. Less than 0 decimals count as 0, more than
/// 6 as 6. Autoreleased.
NSString *numberText(double value, int decimals);

}  // namespace zuno
