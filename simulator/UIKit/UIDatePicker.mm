#import <UIKit/UIDatePicker+Sim.h>

#import "DateWords.h"

#import <Foundation/NotCarried.h>
#import <UIKit/DateWheels.hpp>
#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/UIColor.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace sim {

struct DatePickerState {
  UIDatePickerMode mode = UIDatePickerModeDateAndTime;
  UIDatePickerStyle style = UIDatePickerStyleAutomatic;
  objcxx::Retained<NSLocale> locale;
  objcxx::Retained<NSCalendar> calendar;
  objcxx::Retained<NSTimeZone> timeZone;
  objcxx::Retained<NSDate> date;
  objcxx::Retained<NSDate> minimum;
  objcxx::Retained<NSDate> maximum;
  objcxx::Retained<UIColor> textColor;
  NSInteger duration = 0;  ///< Seconds.
  NSInteger minuteInterval = 1;
  std::unique_ptr<DateWords> words;  ///< Of the locale; made when they are needed.
  objcxx::Retained<UIPickerView> wheels;
  DateWheels shown{{}, 1};
  std::int64_t today = 0;  ///< The row of the wheel of days that is called so.
};

}  // namespace sim

namespace {

constexpr CGSize kDatePickerSize = {320, 216};
constexpr NSInteger kDay = 24 * 60 * 60;
// The first and the last second of the years of the wheels, since 1970: NSDate goes on for much longer.
constexpr double kFirstSecond = -62135596800, kLastSecond = 253402300799;

/// Points, as the wheels of a device look.
CGFloat widthOf(sim::DateWheel wheel, bool isDuration) {
  switch (wheel) {
    case sim::DateWheel::day: return 154;
    case sim::DateWheel::month: return 140;
    case sim::DateWheel::year: return 80;
    case sim::DateWheel::half: return 56;
    default: return isDuration ? 116 : 47;
  }
}

}  // namespace

@interface UIDatePicker (Wheels) <UIPickerViewDataSource, UIPickerViewDelegate>
/// The wheels are made anew when they are shown.
- (void)sim_changeWheels;
- (void)sim_showDate;
@end

@implementation UIDatePicker

- (instancetype)initWithFrame:(CGRect)frame {
  const bool hasSize = frame.size.width > 0 || frame.size.height > 0;
  if (!(self = [super initWithFrame:{frame.origin, hasSize ? frame.size : kDatePickerSize}])) return nil;
  _datePickerState = std::make_unique<sim::DatePickerState>();
  _datePickerState->date = objcxx::share([NSDate date]);
  _datePickerState->wheels = objcxx::adopt([[UIPickerView alloc] initWithFrame:[self bounds]]);
  return self;
}

- (void)dealloc {
  [_datePickerState->wheels.get() setDataSource:nil];
  [_datePickerState->wheels.get() setDelegate:nil];
  [super dealloc];
}

- (CGSize)sizeThatFits:(CGSize)size {
  (void)size;
  return kDatePickerSize;
}

- (CGSize)intrinsicContentSize {
  return kDatePickerSize;
}

- (UIDatePickerMode)datePickerMode {
  return _datePickerState->mode;
}

- (void)setDatePickerMode:(UIDatePickerMode)mode {
  _datePickerState->mode = mode;
  [self sim_changeWheels];
}

- (NSLocale *)locale {
  return _datePickerState->locale ? _datePickerState->locale.get() : [NSLocale currentLocale];
}

- (void)setLocale:(NSLocale *)locale {
  _datePickerState->locale = objcxx::share(locale);
  _datePickerState->words = nullptr;
  [self sim_changeWheels];
}

- (NSCalendar *)calendar {
  return _datePickerState->calendar ? _datePickerState->calendar.get() : [NSCalendar currentCalendar];
}

- (void)setCalendar:(NSCalendar *)calendar {
  NSString *kind = [calendar calendarIdentifier];
  if (calendar && ![kind isEqual:NSCalendarIdentifierGregorian] && ![kind isEqual:NSCalendarIdentifierISO8601]) {
    sim::notCarried(@"UIDatePicker.calendar", @"Dates are those of the Gregorian calendar.");
  }
  _datePickerState->calendar = objcxx::adopt((NSCalendar *)[calendar copy]);
  [self sim_changeWheels];
}

- (NSTimeZone *)timeZone {
  return _datePickerState->timeZone.get();
}

- (void)setTimeZone:(NSTimeZone *)timeZone {
  _datePickerState->timeZone = objcxx::share(timeZone);
  [self sim_changeWheels];
}

- (NSDate *)date {
  return _datePickerState->date.get();
}

- (void)setDate:(NSDate *)date {
  [self setDate:date animated:NO];
}

- (void)setDate:(NSDate *)date animated:(BOOL)animated {
  (void)animated;
  if (!date || !std::isfinite([date timeIntervalSince1970])) return;
  _datePickerState->date = objcxx::share([self sim_withinLimits:date]);
  [self sim_showDate];
}

/// The date, or the limit that it is beyond. A countdown has none.
- (NSDate *)sim_withinLimits:(NSDate *)date {
  NSDate *minimum = _datePickerState->minimum.get(), *maximum = _datePickerState->maximum.get();
  if (_datePickerState->mode == UIDatePickerModeCountDownTimer) return date;
  if (minimum && maximum && [minimum compare:maximum] == NSOrderedDescending) return date;
  if (minimum) date = [date laterDate:minimum];
  return maximum ? [date earlierDate:maximum] : date;
}

- (NSDate *)minimumDate {
  return _datePickerState->minimum.get();
}

- (void)setMinimumDate:(NSDate *)date {
  _datePickerState->minimum = objcxx::share(date);
  [self setDate:_datePickerState->date.get()];
}

- (NSDate *)maximumDate {
  return _datePickerState->maximum.get();
}

- (void)setMaximumDate:(NSDate *)date {
  _datePickerState->maximum = objcxx::share(date);
  [self setDate:_datePickerState->date.get()];
}

- (NSTimeInterval)countDownDuration {
  return NSTimeInterval(_datePickerState->duration);
}

- (void)setCountDownDuration:(NSTimeInterval)duration {
  const NSTimeInterval most = kDay - 60;
  const NSTimeInterval kept = std::isnan(duration) ? 0 : std::clamp<NSTimeInterval>(duration, 0, most);
  _datePickerState->duration = NSInteger(kept) / 60 * 60;
  [self sim_showDate];
}

- (NSInteger)minuteInterval {
  return _datePickerState->minuteInterval;
}

- (void)setMinuteInterval:(NSInteger)interval {
  _datePickerState->minuteInterval = interval >= 1 && interval <= 30 && 60 % interval == 0 ? interval : 1;
  [self sim_changeWheels];
}

- (UIDatePickerStyle)preferredDatePickerStyle {
  return _datePickerState->style;
}

- (void)setPreferredDatePickerStyle:(UIDatePickerStyle)style {
  if (style == UIDatePickerStyleCompact || style == UIDatePickerStyleInline) {
    sim::notCarried(@"UIDatePicker.preferredDatePickerStyle", @"Dates are picked on wheels.");
  }
  _datePickerState->style = style;
}

- (UIDatePickerStyle)datePickerStyle {
  return UIDatePickerStyleWheels;
}

/// Not declared, as on a device, where makers set it by its key.
- (UIColor *)textColor {
  return _datePickerState->textColor.get();
}

- (void)setTextColor:(UIColor *)color {
  _datePickerState->textColor = objcxx::share(color);
}

@end

@implementation UIDatePicker (Wheels)

- (NSTimeZone *)sim_zone {
  if (_datePickerState->timeZone) return _datePickerState->timeZone.get();
  return [_datePickerState->calendar.get() timeZone] ?: [NSTimeZone defaultTimeZone];
}

- (bool)sim_isDuration {
  return _datePickerState->mode == UIDatePickerModeCountDownTimer;
}

/// Seconds of the clock on the wall, or of the duration.
- (std::int64_t)sim_seconds {
  if ([self sim_isDuration]) return _datePickerState->duration;
  return [self sim_secondsOf:_datePickerState->date.get()];
}

- (std::int64_t)sim_secondsOf:(NSDate *)date {
  const double since1970 = std::clamp(std::floor([date timeIntervalSince1970]), kFirstSecond, kLastSecond);
  return std::int64_t(since1970) + [self sim_offsetAt:since1970];
}

/// Seconds by which clocks are ahead of Greenwich then.
- (NSInteger)sim_offsetAt:(double)since1970 {
  return [[self sim_zone] secondsFromGMTForDate:[NSDate dateWithTimeIntervalSince1970:since1970]];
}

/// Where clocks are put on, a time that there is not is later by as much. Where they are put back, a time that there is
/// twice is the one on the same side as the date was, or the first.
- (NSDate *)sim_dateAt:(std::int64_t)seconds {
  const double since1970 = [_datePickerState->date.get() timeIntervalSince1970];
  const NSInteger before = [self sim_offsetAt:double(seconds - kDay)],
                  after = [self sim_offsetAt:double(seconds + kDay)];
  const bool isBefore = [self sim_offsetAt:double(seconds - before)] == before;
  const bool isAfter = [self sim_offsetAt:double(seconds - after)] == after;
  const bool staysAfter = !isBefore || [self sim_offsetAt:since1970] == after;
  const NSInteger offset = isAfter && staysAfter ? after : before;
  return [NSDate dateWithTimeIntervalSince1970:double(seconds - offset) + (since1970 - std::floor(since1970))];
}

- (std::vector<sim::DateWheel>)sim_wheelsOfMode {
  using sim::DateWheel;
  std::vector<DateWheel> wheels;
  const sim::DateWords &words = *_datePickerState->words;
  if (_datePickerState->mode == UIDatePickerModeDate) {
    wheels = {DateWheel::dayOfMonth, DateWheel::month};
    if (words.isMonthFirst) std::swap(wheels[0], wheels[1]);
    wheels.insert(words.isYearFirst ? wheels.begin() : wheels.end(), DateWheel::year);
    return wheels;
  }
  if ([self sim_isDuration]) return {DateWheel::hour, DateWheel::minute};
  if (_datePickerState->mode == UIDatePickerModeDateAndTime) wheels.push_back(DateWheel::day);
  wheels.push_back(words.hasHalves ? DateWheel::hourOfHalf : DateWheel::hour);
  wheels.push_back(DateWheel::minute);
  if (words.hasHalves) wheels.push_back(DateWheel::half);
  return wheels;
}

- (void)sim_changeWheels {
  _datePickerState->shown = sim::DateWheels({}, 1);
  [self setDate:_datePickerState->date.get()];
}

- (void)sim_makeWheelsIfNeeded {
  sim::DatePickerState &state = *_datePickerState;
  UIPickerView *wheels = state.wheels.get();
  state.today = sim::DateWheels({}, 1).row(sim::DateWheel::day, [self sim_secondsOf:[NSDate date]]);
  if (!state.shown.wheels().empty()) return;
  if (!state.words) state.words = std::make_unique<sim::DateWords>([self locale]);
  state.shown = sim::DateWheels([self sim_wheelsOfMode], int(state.minuteInterval));
  [wheels setDataSource:self];
  [wheels setDelegate:self];
  [wheels reloadAllComponents];
  [self sim_showDate];
}

- (void)sim_showDate {
  const sim::DateWheels &shown = _datePickerState->shown;
  for (std::size_t at = 0; at < shown.wheels().size(); ++at) {
    [_datePickerState->wheels.get() selectRow:shown.row(shown.wheels()[at], [self sim_seconds])
                                  inComponent:NSInteger(at)
                                     animated:NO];
  }
}

- (sim::DateWheel)sim_wheelAt:(NSInteger)component {
  return _datePickerState->shown.wheels()[std::size_t(component)];
}

- (NSInteger)numberOfComponentsInPickerView:(UIPickerView *)wheels {
  (void)wheels;
  return NSInteger(_datePickerState->shown.wheels().size());
}

- (NSInteger)pickerView:(UIPickerView *)wheels numberOfRowsInComponent:(NSInteger)component {
  (void)wheels;
  return _datePickerState->shown.rows([self sim_wheelAt:component]);
}

- (CGFloat)pickerView:(UIPickerView *)wheels widthForComponent:(NSInteger)component {
  (void)wheels;
  return widthOf([self sim_wheelAt:component], [self sim_isDuration]);
}

- (NSString *)sim_titleOfDay:(NSInteger)row {
  if (row == _datePickerState->today) return @"Today";
  const sim::CivilDate date = sim::dateOfDayRow(int(row));
  const sim::DateWords &words = *_datePickerState->words;
  NSString *month = [words.shortMonths.get() objectAtIndex:date.month - 1];
  NSString *weekday = [words.shortWeekdays.get() objectAtIndex:date.weekday];
  if (words.isMonthFirst) return [NSString stringWithFormat:@"%@ %@ %u", weekday, month, date.day];
  return [NSString stringWithFormat:@"%@ %u %@", weekday, date.day, month];
}

- (NSString *)sim_titleOfRow:(NSInteger)row onWheel:(sim::DateWheel)wheel {
  const sim::DateWords &words = *_datePickerState->words;
  const NSInteger minutes = row * _datePickerState->minuteInterval;
  const bool isDuration = [self sim_isDuration];
  switch (wheel) {
    case sim::DateWheel::day: return [self sim_titleOfDay:row];
    case sim::DateWheel::month: return [words.months.get() objectAtIndex:NSUInteger(row)];
    case sim::DateWheel::hour:
      if (isDuration) return [NSString stringWithFormat:row == 1 ? @"%ld hour" : @"%ld hours", long(row)];
      return [NSString stringWithFormat:@"%02ld", long(row)];
    case sim::DateWheel::minute: return [NSString stringWithFormat:isDuration ? @"%ld min" : @"%02ld", long(minutes)];
    case sim::DateWheel::half: return (row == 0 ? words.beforeNoon : words.afterNoon).get();
    case sim::DateWheel::dayOfMonth:
    case sim::DateWheel::year:
    case sim::DateWheel::hourOfHalf: return [NSString stringWithFormat:@"%ld", long(row + 1)];
  }
  return @"";
}

- (NSAttributedString *)pickerView:(UIPickerView *)wheels
             attributedTitleForRow:(NSInteger)row
                      forComponent:(NSInteger)component {
  (void)wheels;
  NSString *title = [self sim_titleOfRow:row onWheel:[self sim_wheelAt:component]];
  UIColor *color = _datePickerState->textColor.get();
  NSDictionary *attributes = color ? @{NSForegroundColorAttributeName : color} : @{};
  return [[[NSAttributedString alloc] initWithString:title attributes:attributes] autorelease];
}

- (void)pickerView:(UIPickerView *)wheels didSelectRow:(NSInteger)row inComponent:(NSInteger)component {
  (void)wheels;
  const std::int64_t seconds =
      _datePickerState->shown.turned([self sim_wheelAt:component], int(row), [self sim_seconds]);
  if ([self sim_isDuration]) {
    // The least that can be counted down.
    [self setCountDownDuration:std::max<NSTimeInterval>(double(seconds), double(60 * [self minuteInterval]))];
  } else {
    [self setDate:[self sim_dateAt:seconds]];
  }
  [self sendActionsForControlEvents:UIControlEventValueChanged];
}

@end

@implementation UIDatePicker (Sim)

- (UIPickerView *)sim_wheels {
  [self sim_makeWheelsIfNeeded];
  [_datePickerState->wheels.get() setFrame:[self bounds]];
  return _datePickerState->wheels.get();
}

@end
