// A date picker: its wheels, its limits, what a finger does.
#import <UIKit/UIDatePicker+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UIPickerView+Sim.h>
#import <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <algorithm>
#include <cmath>
#include <string>

/// Counts what it is told.
@interface DateListener : NSObject {
 @public
  int changes;
}
- (void)changed;
@end

@implementation DateListener
- (void)changed {
  ++changes;
}
@end

namespace {

class UIDatePickerTests : public ObjCTest {
 protected:
  /// In Greenwich, with the words of `locale`.
  UIDatePicker *make(UIDatePickerMode mode, NSString *locale = @"en_US") {
    UIDatePicker *picker = [[[UIDatePicker alloc] initWithFrame:CGRectZero] autorelease];
    [picker setTimeZone:[NSTimeZone timeZoneForSecondsFromGMT:0]];
    [picker setLocale:[[[NSLocale alloc] initWithLocaleIdentifier:locale] autorelease]];
    [picker setDatePickerMode:mode];
    return picker;
  }
  /// Seconds since 1970 of 23 November 2020, 17:38:09.
  static constexpr NSTimeInterval kDate = 1606153089;
  static NSDate *date(NSTimeInterval seconds) { return [NSDate dateWithTimeIntervalSince1970:seconds]; }

  /// The titles of the selected rows.
  std::string shown(UIDatePicker *picker) {
    std::string all;
    UIPickerView *wheels = [picker sim_wheels];
    for (NSInteger at = 0; at < [wheels numberOfComponents]; ++at) {
      UIColor *color = nil;
      NSString *title = [wheels sim_titleOfRow:[wheels selectedRowInComponent:at] inComponent:at color:&color];
      all += (at > 0 ? " | " : "") + std::string([title UTF8String]);
    }
    return all;
  }
  void turn(UIDatePicker *picker, NSInteger wheel, NSInteger row) {
    EXPECT_TRUE([[picker sim_wheels] sim_selectByUser:row inComponent:wheel]);
  }
  NSTimeInterval dateOf(UIDatePicker *picker) { return [[picker date] timeIntervalSince1970]; }
};

TEST_F(UIDatePickerTests, StartsAsADeviceDoes) {
  UIDatePicker *picker = [[[UIDatePicker alloc] init] autorelease];
  EXPECT_EQ([picker datePickerMode], UIDatePickerModeDateAndTime);
  EXPECT_NEAR([[picker date] timeIntervalSinceNow], 0, 60);
  EXPECT_EQ([picker minimumDate], nil);
  EXPECT_EQ([picker maximumDate], nil);
  EXPECT_EQ([picker timeZone], nil);
  EXPECT_OBJC_EQ([[picker locale] localeIdentifier], [[NSLocale currentLocale] localeIdentifier]);
  EXPECT_EQ([picker minuteInterval], 1);
  EXPECT_EQ([picker countDownDuration], 0);
  EXPECT_EQ([picker datePickerStyle], UIDatePickerStyleWheels);
  EXPECT_EQ([picker preferredDatePickerStyle], UIDatePickerStyleAutomatic);
  EXPECT_EQ([picker bounds].size.width, 320);
  EXPECT_EQ([picker intrinsicContentSize].height, 216);
  EXPECT_EQ([picker sizeThatFits:CGSizeZero].width, 320);
  const CGRect given = CGRectMake(0, 0, 200, 100);
  EXPECT_EQ([[[[UIDatePicker alloc] initWithFrame:given] autorelease] bounds].size.height, 100);
}

TEST_F(UIDatePickerTests, WheelsAreThoseOfTheModeAndTheLocale) {
  const struct {
    UIDatePickerMode mode;
    NSString *locale;
    const char *shown;
  } cases[] = {
      {UIDatePickerModeDateAndTime, @"en_US", "Mon Nov 23 | 5 | 38 | PM"},
      {UIDatePickerModeDateAndTime, @"en_GB", "Mon 23 Nov | 17 | 38"},
      {UIDatePickerModeTime, @"en_US", "5 | 38 | PM"},
      {UIDatePickerModeTime, @"en_GB", "17 | 38"},
      {UIDatePickerModeDate, @"en_US", "November | 23 | 2020"},
      {UIDatePickerModeDate, @"en_GB", "23 | November | 2020"},
      {UIDatePickerModeDate, @"ja_JP", "2020 | 11\u6708 | 23"},
      {UIDatePickerModeCountDownTimer, @"en_US", "1 hour | 5 min"},
  };
  for (const auto &[mode, locale, expected] : cases) {
    UIDatePicker *picker = make(mode, locale);
    [picker setDate:date(kDate)];
    [picker setCountDownDuration:3900];
    EXPECT_EQ(shown(picker), expected) << [locale UTF8String];
  }
  UIDatePicker *picker = make(UIDatePickerModeTime);
  [picker setDate:date(kDate)];
  EXPECT_EQ(shown(picker), "5 | 38 | PM");
  [picker setLocale:[[[NSLocale alloc] initWithLocaleIdentifier:@"en_GB"] autorelease]];
  EXPECT_EQ(shown(picker), "17 | 38");
  [picker setDatePickerMode:UIDatePickerModeDate];
  EXPECT_EQ(shown(picker), "23 | November | 2020");
  [picker setTimeZone:[NSTimeZone timeZoneForSecondsFromGMT:9 * 3600]];
  EXPECT_EQ(shown(picker), "24 | November | 2020");
  [picker setDate:[NSDate date]];
  [picker setDatePickerMode:UIDatePickerModeDateAndTime];
  EXPECT_TRUE(shown(picker).starts_with("Today | ")) << shown(picker);
}

TEST_F(UIDatePickerTests, TitlesFitOnTheirWheelsAndTheseInThePicker) {
  UIFont *font = [UIFont systemFontOfSize:23];  // Of the page's wheels, which keep 8 points free on either side.
  for (const UIDatePickerMode mode :
       {UIDatePickerModeDateAndTime, UIDatePickerModeDate, UIDatePickerModeCountDownTimer}) {
    UIDatePicker *picker = make(mode);
    [picker setDate:date(kDate)];
    UIPickerView *wheels = [picker sim_wheels];
    CGFloat all = 0;
    for (NSInteger wheel = 0; wheel < [wheels numberOfComponents]; ++wheel) {
      const CGFloat width = [wheels rowSizeForComponent:wheel].width;
      all += width + (wheel > 0 ? 5 : 0);
      const NSInteger selected = [wheels selectedRowInComponent:wheel];
      const NSInteger end = std::min<NSInteger>([wheels numberOfRowsInComponent:wheel], selected + 400);
      for (NSInteger row = std::max<NSInteger>(selected - 400, 0); row < end; ++row) {
        UIColor *color = nil;
        NSString *title = [wheels sim_titleOfRow:row inComponent:wheel color:&color];
        EXPECT_LE([title sizeWithAttributes:@{NSFontAttributeName : font}].width + 16, width) << [title UTF8String];
      }
    }
    EXPECT_LE(all, 320);
  }
}

TEST_F(UIDatePickerTests, AFingerTurnsToADateAndTheListenersHear) {
  UIDatePicker *picker = make(UIDatePickerModeDateAndTime);
  const auto listener = objcxx::adopt([[DateListener alloc] init]);
  [picker addTarget:listener.get() action:@selector(changed) forControlEvents:UIControlEventValueChanged];
  [picker setDate:date(kDate + 0.5)];
  EXPECT_EQ(listener.get()->changes, 0);
  turn(picker, 3, 0);
  EXPECT_EQ(dateOf(picker), kDate + 0.5 - 12 * 3600);
  turn(picker, 1, 5);
  EXPECT_EQ(dateOf(picker), kDate + 0.5 - 11 * 3600);
  turn(picker, 2, 0);
  EXPECT_EQ(dateOf(picker), kDate + 0.5 - 11 * 3600 - 38 * 60);
  turn(picker, 0, [[picker sim_wheels] selectedRowInComponent:0] + 1);
  EXPECT_EQ(dateOf(picker), kDate + 0.5 + 13 * 3600 - 38 * 60);
  EXPECT_EQ(listener.get()->changes, 4);
  EXPECT_EQ(shown(picker), "Tue Nov 24 | 6 | 00 | AM");
}

TEST_F(UIDatePickerTests, AWheelGoesBackToADayThatThereIs) {
  UIDatePicker *picker = make(UIDatePickerModeDate);
  [picker setDate:date(1801353600)];  // 31 January 2027, noon.
  EXPECT_EQ(shown(picker), "January | 31 | 2027");
  turn(picker, 0, 1);
  EXPECT_EQ(shown(picker), "February | 28 | 2027");
  turn(picker, 1, 30);
  EXPECT_EQ(shown(picker), "February | 28 | 2027");
  turn(picker, 2, 2027);
  EXPECT_EQ(shown(picker), "February | 28 | 2028");
}

TEST_F(UIDatePickerTests, WhatIsBeyondALimitIsTheLimit) {
  UIDatePicker *picker = make(UIDatePickerModeDateAndTime);
  [picker setDate:date(kDate)];
  [picker setMinimumDate:date(kDate + 3600)];
  EXPECT_EQ(dateOf(picker), kDate + 3600);
  EXPECT_EQ(shown(picker), "Mon Nov 23 | 6 | 38 | PM");
  turn(picker, 1, 0);
  EXPECT_EQ(dateOf(picker), kDate + 3600);
  EXPECT_EQ(shown(picker), "Mon Nov 23 | 6 | 38 | PM") << "the wheel went back";
  [picker setMaximumDate:date(kDate + 7200)];
  turn(picker, 1, 10);
  EXPECT_EQ(dateOf(picker), kDate + 7200);
  [picker setDate:date(0)];
  EXPECT_EQ(dateOf(picker), kDate + 3600);
  [picker setMaximumDate:date(0)];
  [picker setDate:date(5)];
  EXPECT_EQ(dateOf(picker), 5) << "limits that exclude each other";
  [picker setDate:nil];
  EXPECT_EQ(dateOf(picker), 5);
}

TEST_F(UIDatePickerTests, MinutesHaveAnInterval) {
  UIDatePicker *picker = make(UIDatePickerModeTime, @"en_GB");
  [picker setDate:date(kDate)];
  [picker setMinuteInterval:15];
  EXPECT_EQ(shown(picker), "17 | 30");
  EXPECT_EQ(dateOf(picker), kDate) << "until a wheel is turned";
  EXPECT_EQ([[picker sim_wheels] numberOfRowsInComponent:1], 4);
  turn(picker, 1, 3);
  EXPECT_EQ(dateOf(picker), kDate + 7 * 60);
  for (const NSInteger bad : {7, 31, 60, 0, -5}) {
    [picker setMinuteInterval:bad];
    EXPECT_EQ([picker minuteInterval], 1) << bad;
  }
  [picker setMinuteInterval:30];
  EXPECT_EQ([picker minuteInterval], 30);
}

TEST_F(UIDatePickerTests, ACountdownIsOfWholeMinutesBelowADay) {
  UIDatePicker *picker = make(UIDatePickerModeCountDownTimer);
  EXPECT_EQ(shown(picker), "0 hours | 0 min");
  [picker setCountDownDuration:125];
  EXPECT_EQ([picker countDownDuration], 120);
  [picker setCountDownDuration:1e9];
  EXPECT_EQ([picker countDownDuration], 86340);
  EXPECT_EQ(shown(picker), "23 hours | 59 min");
  [picker setCountDownDuration:-5];
  EXPECT_EQ([picker countDownDuration], 0);
  [picker setCountDownDuration:NAN];
  EXPECT_EQ([picker countDownDuration], 0);
  [picker setCountDownDuration:300];
  [picker setMinuteInterval:5];
  turn(picker, 0, 1);
  EXPECT_EQ([picker countDownDuration], 3900);
  turn(picker, 0, 0);
  turn(picker, 1, 0);
  EXPECT_EQ([picker countDownDuration], 300) << "the least there is";
  EXPECT_EQ(shown(picker), "0 hours | 5 min");
  [picker setMinimumDate:date(kDate)];
  turn(picker, 1, 2);
  EXPECT_EQ([picker countDownDuration], 600) << "limits are not for it";
  [picker setDate:date(kDate - 60)];
  EXPECT_EQ(dateOf(picker), kDate - 60) << "nor for the date beside it";
  [picker setDatePickerMode:UIDatePickerModeTime];
  EXPECT_EQ(dateOf(picker), kDate);
}

TEST_F(UIDatePickerTests, TimeZonesChangeTheirClocks) {
  UIDatePicker *picker = make(UIDatePickerModeDateAndTime, @"en_GB");
  NSTimeZone *zone = [NSTimeZone timeZoneWithName:@"Europe/Paris"];
  ASSERT_NE(zone, nil);
  [picker setTimeZone:zone];
  [picker setDate:date(1774663200)];  // 28 March 2026, 03:00 in Paris, the day before clocks are put on.
  EXPECT_EQ(shown(picker), "Sat 28 Mar | 03 | 00");
  turn(picker, 0, [[picker sim_wheels] selectedRowInComponent:0] + 1);
  EXPECT_EQ(shown(picker), "Sun 29 Mar | 03 | 00");
  EXPECT_EQ(dateOf(picker), 1774663200 + 23 * 3600);
  turn(picker, 1, 2);
  EXPECT_EQ(shown(picker), "Sun 29 Mar | 03 | 00") << "there is no such hour";
}

TEST_F(UIDatePickerTests, AnHourThatClocksLeaveOutIsTheNextOnEitherSideOfGreenwich) {
  UIDatePicker *picker = make(UIDatePickerModeDateAndTime, @"en_GB");
  [picker setTimeZone:[NSTimeZone timeZoneWithName:@"America/New_York"]];
  [picker setDate:date(1772951400)];  // 8 March 2026, 01:30, half an hour before clocks are put on.
  EXPECT_EQ(shown(picker), "Sun 8 Mar | 01 | 30");
  turn(picker, 1, 2);
  EXPECT_EQ(shown(picker), "Sun 8 Mar | 03 | 30");
  EXPECT_EQ(dateOf(picker), 1772951400 + 3600);
  turn(picker, 1, 1);
  EXPECT_EQ(dateOf(picker), 1772951400);
}

TEST_F(UIDatePickerTests, AnHourThatThereIsTwiceStaysTheOneItWas) {
  UIDatePicker *picker = make(UIDatePickerModeTime, @"en_GB");
  [picker setTimeZone:[NSTimeZone timeZoneWithName:@"America/New_York"]];
  const NSTimeInterval first = 1793511000, second = first + 3600;  // 1 November 2026, 01:30 before and after.
  for (const NSTimeInterval hour : {first, second}) {
    [picker setDate:date(hour)];
    EXPECT_EQ(shown(picker), "01 | 30");
    turn(picker, 1, 40);
    EXPECT_EQ(dateOf(picker), hour + 600);
  }
  [picker setDate:date(first - 3600)];
  turn(picker, 0, 1);
  EXPECT_EQ(dateOf(picker), first);
  [picker setDate:date(second + 3600)];
  turn(picker, 0, 1);
  EXPECT_EQ(dateOf(picker), second);
}

TEST_F(UIDatePickerTests, ADateBetweenTwoRowsStaysUntilAWheelIsTurned) {
  UIDatePicker *picker = make(UIDatePickerModeTime);
  [picker setDate:date(kDate)];
  [picker setMinuteInterval:15];
  EXPECT_EQ(shown(picker), "5 | 30 | PM");
  EXPECT_EQ(dateOf(picker), kDate);
  turn(picker, 0, 5);
  EXPECT_EQ(dateOf(picker), kDate + 3600 - 8 * 60) << "as the wheels show it";
}

TEST_F(UIDatePickerTests, TheTimeZoneIsThatOfACalendarUnlessOneIsSet) {
  UIDatePicker *picker = make(UIDatePickerModeTime, @"en_GB");
  EXPECT_OBJC_EQ([[picker calendar] calendarIdentifier], [[NSCalendar currentCalendar] calendarIdentifier]);
  NSCalendar *calendar = [[[NSCalendar alloc] initWithCalendarIdentifier:NSCalendarIdentifierGregorian] autorelease];
  [calendar setTimeZone:[NSTimeZone timeZoneForSecondsFromGMT:2 * 3600]];
  [picker setDate:date(kDate)];
  [picker setCalendar:calendar];
  EXPECT_EQ(shown(picker), "17 | 38");
  [picker setTimeZone:nil];
  EXPECT_EQ(shown(picker), "19 | 38");
  [picker setCalendar:nil];
  ASSERT_NE([picker calendar], nil);
  UIDatePicker *plain = make(UIDatePickerModeTime, @"en_GB");
  [plain setTimeZone:nil];
  [plain setDate:date(kDate)];
  EXPECT_EQ(shown(picker), shown(plain));
}

TEST_F(UIDatePickerTests, DatesBeyondTheYearsOfTheWheelsAreKept) {
  UIDatePicker *picker = make(UIDatePickerModeDate);
  for (const NSTimeInterval far : {-1e300, -1e12, 1e12, 1e300}) {
    [picker setDate:date(far)];
    EXPECT_EQ(dateOf(picker), far);
    EXPECT_EQ(shown(picker), far < 0 ? "January | 1 | 1" : "December | 31 | 9999") << far;
  }
  turn(picker, 1, 0);
  EXPECT_EQ(shown(picker), "December | 1 | 9999");
  [picker setDate:date(kDate)];
  for (const NSTimeInterval none : {NSTimeInterval(INFINITY), -NSTimeInterval(INFINITY)}) {
    [picker setDate:date(none)];
    EXPECT_EQ(dateOf(picker), kDate);
  }
}

TEST_F(UIDatePickerTests, WheelsAreAsLargeAsThePickerAndHaveItsColour) {
  UIDatePicker *picker = make(UIDatePickerModeDate);
  [picker setFrame:CGRectMake(10, 10, 300, 150)];
  EXPECT_EQ([[picker sim_wheels] bounds].size.height, 150);
  [picker setValue:[UIColor redColor] forKey:@"textColor"];
  UIColor *color = nil;
  [[picker sim_wheels] sim_titleOfRow:0 inComponent:0 color:&color];
  EXPECT_OBJC_EQ(color, [UIColor redColor]);
  EXPECT_OBJC_EQ([picker valueForKey:@"textColor"], [UIColor redColor]);
}

}  // namespace
