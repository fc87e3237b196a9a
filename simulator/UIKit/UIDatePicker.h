// A date, a time or a duration on wheels.
#pragma once

#import <UIKit/UIControl.h>

#include <objcxx/HiddenState.h>

typedef NS_ENUM(NSInteger, UIDatePickerMode) {
  UIDatePickerModeTime,
  UIDatePickerModeDate,
  UIDatePickerModeDateAndTime,
  UIDatePickerModeCountDownTimer,
};

typedef NS_ENUM(NSInteger, UIDatePickerStyle) {
  UIDatePickerStyleAutomatic,
  UIDatePickerStyleWheels,
  UIDatePickerStyleCompact,
  UIDatePickerStyleInline,
};

SIM_STATE_TYPE(DatePickerState);

/// 320 × 216 points unless a size was given. Sends value-changed when a wheel was turned.
@interface UIDatePicker : UIControl {
 @private
  SIM_STATE(DatePickerState, _datePickerState);
}
/// UIDatePickerModeDateAndTime at first.
@property(nonatomic) UIDatePickerMode datePickerMode;
/// The order of the wheels, their words, and whether the clock has 24 hours; nil for the current locale, as at first.
@property(nonatomic, retain) NSLocale *locale;
/// The current one at first, and after nil. Of one that was set the time zone counts; dates are always Gregorian ones.
@property(nonatomic, copy) NSCalendar *calendar;
/// nil at first: that of the calendar, or the current one.
@property(nonatomic, retain) NSTimeZone *timeZone;
/// Now at first. What is beyond a limit is that limit. Setting it sends no action; nil and infinite dates are ignored.
@property(nonatomic, retain) NSDate *date;
/// nil at first. Limits that exclude each other count for nothing.
@property(nonatomic, retain) NSDate *minimumDate;
@property(nonatomic, retain) NSDate *maximumDate;
/// 0 at first; whole minutes below a day, in seconds, of the countdown's mode alone.
@property(nonatomic) NSTimeInterval countDownDuration;
/// 1 at first. What does not divide 60, or is above 30, is 1.
@property(nonatomic) NSInteger minuteInterval;
- (void)setDate:(NSDate *)date animated:(BOOL)animated;
/// UIDatePickerStyleAutomatic at first, which is the wheels. Others are not carried.
@property(nonatomic) UIDatePickerStyle preferredDatePickerStyle;
@property(nonatomic, readonly) UIDatePickerStyle datePickerStyle;
@end
