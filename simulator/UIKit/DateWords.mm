#import "DateWords.h"

namespace sim {
namespace {

NSString *formatFor(NSString *shape, NSLocale *locale) {
  return [NSDateFormatter dateFormatFromTemplate:shape options:0 locale:locale] ?: @"";
}

NSUInteger placeOf(NSString *letter, NSString *format) { return [format rangeOfString:letter].location; }

}  // namespace

DateWords::DateWords(NSLocale *locale) {
  const auto formatter = objcxx::adopt([[NSDateFormatter alloc] init]);
  [formatter.get() setLocale:locale];
  months = objcxx::share([formatter.get() monthSymbols]);
  shortMonths = objcxx::share([formatter.get() shortMonthSymbols]);
  shortWeekdays = objcxx::share([formatter.get() shortWeekdaySymbols]);
  beforeNoon = objcxx::share([formatter.get() AMSymbol]);
  afterNoon = objcxx::share([formatter.get() PMSymbol]);
  hasHalves = placeOf(@"a", formatFor(@"jm", locale)) != NSNotFound;
  NSString *date = formatFor(@"yMMMMd", locale);
  isMonthFirst = placeOf(@"M", date) < placeOf(@"d", date);
  isYearFirst = placeOf(@"y", date) < placeOf(@"d", date);
}

}  // namespace sim
