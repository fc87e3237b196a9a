#import "core/NumberText.h"

#import <objcxx/Retained.h>

#include <algorithm>
#include <cmath>

namespace zuno {

NSString *numberText(double value, int decimals) {
  const int places = std::clamp(decimals, 0, 6);
  // The formatter would round a half to the even neighbour, and write what rounds to zero from below as -0.
  const double unit = std::pow(10.0, places);
  const double rounded = std::round(value * unit) / unit + 0.0;

  const auto formatter = objcxx::adopt([[NSNumberFormatter alloc] init]);
  [formatter.get() setNumberStyle:NSNumberFormatterDecimalStyle];
  [formatter.get() setMinimumFractionDigits:static_cast<NSUInteger>(places)];
  [formatter.get() setMaximumFractionDigits:static_cast<NSUInteger>(places)];
  return [formatter.get() stringFromNumber:[NSNumber numberWithDouble:rounded]];
}

}  // namespace zuno
