#include "Values.h"

#include <cmath>
#include <cstring>

namespace fuzzing {
namespace {

bool bothAre(Class type, id first, id second) { return [first isKindOfClass:type] && [second isKindOfClass:type]; }

bool isBoolean(NSNumber *number) { return [number isKindOfClass:[[NSNumber numberWithBool:YES] class]]; }

bool isReal(NSNumber *number) { return std::strchr("fd", [number objCType][0]) != nullptr; }

bool sameNumber(NSNumber *first, NSNumber *second, Agreement agreement) {
  if (isBoolean(first) != isBoolean(second)) return false;
  // The text of an integer is exact over the whole signed and unsigned range.
  if (!isReal(first) && !isReal(second)) return [[first stringValue] isEqualToString:[second stringValue]];
  const double left = [first doubleValue], right = [second doubleValue];
  if (agreement == Agreement::kJSON) return left == right;
  if (isReal(first) != isReal(second)) return false;
  return std::isnan(left) ? std::isnan(right) : left == right && std::signbit(left) == std::signbit(right);
}

bool sameDate(NSDate *first, NSDate *second, Agreement agreement) {
  const double left = [first timeIntervalSinceReferenceDate], right = [second timeIntervalSinceReferenceDate];
  return agreement == Agreement::kXML ? std::floor(left) == std::floor(right) : left == right;
}

bool sameArray(NSArray *first, NSArray *second, Agreement agreement) {
  if ([first count] != [second count]) return false;
  for (NSUInteger index = 0; index < [first count]; ++index) {
    if (!same([first objectAtIndex:index], [second objectAtIndex:index], agreement)) return false;
  }
  return true;
}

bool sameDictionary(NSDictionary *first, NSDictionary *second, Agreement agreement) {
  if ([first count] != [second count]) return false;
  for (id key in first) {
    if (!same([first objectForKey:key], [second objectForKey:key], agreement)) return false;
  }
  return true;
}

}  // namespace

bool same(id first, id second, Agreement agreement) {
  if (first == second) return true;
  if (bothAre([NSNumber class], first, second)) return sameNumber(first, second, agreement);
  if (bothAre([NSDate class], first, second)) return sameDate(first, second, agreement);
  if (bothAre([NSArray class], first, second)) return sameArray(first, second, agreement);
  if (bothAre([NSDictionary class], first, second)) return sameDictionary(first, second, agreement);
  return [first isEqual:second];
}

}  // namespace fuzzing
