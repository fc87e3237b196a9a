// A date picker in a row: its wheels, its date, turning them.
#include "simulator/Settings/SessionTest.h"

namespace {

class DatePickerControlTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    picker_ = objcxx::adopt([[UIDatePicker alloc] initWithFrame:CGRectZero]);
    [picker() setTimeZone:[NSTimeZone timeZoneForSecondsFromGMT:0]];
    [picker() setLocale:[[[NSLocale alloc] initWithLocaleIdentifier:@"en_US"] autorelease]];
    [picker() setDate:[NSDate dateWithTimeIntervalSince1970:1606153089]];
  }
  void TearDown() override {
    picker_ = nullptr;
    SessionTest::TearDown();
  }
  UIDatePicker *picker() const { return picker_.get(); }

 private:
  objcxx::Retained<UIDatePicker> picker_;
};

TEST_F(DatePickerControlTest, ItsWheelsAreThoseOfAPicker) {
  [picker() setDatePickerMode:UIDatePickerModeTime];
  const Json described = controlOf(picker());
  EXPECT_EQ(described["type"], "picker");
  EXPECT_EQ(described["mode"], "time");
  EXPECT_EQ(described["date"], 1606153089);
  EXPECT_EQ(described["size"], Json({320, 216}));
  ASSERT_EQ(described["components"].size(), 3u);
  EXPECT_EQ(described["components"][2]["count"], 2);
  EXPECT_EQ(described["components"][2]["rows"][1]["title"], "PM");
  EXPECT_EQ(described["components"][0]["rows"].size(), 12u);
  EXPECT_EQ(row(0, 0)["value"], Json({4, 38, 1}));
}

TEST_F(DatePickerControlTest, EachModeHasAName) {
  EXPECT_EQ(controlOf(picker())["mode"], "dateAndTime");
  [picker() setDatePickerMode:UIDatePickerModeDate];
  EXPECT_EQ(controlOf(picker())["mode"], "date");
  [picker() setDatePickerMode:UIDatePickerModeCountDownTimer];
  [picker() setCountDownDuration:600];
  const Json described = controlOf(picker());
  EXPECT_EQ(described["mode"], "countDownTimer");
  EXPECT_EQ(described["date"], 600);
}

TEST_F(DatePickerControlTest, ItIsTurnedUnlessItIsDisabled) {
  [picker() setDatePickerMode:UIDatePickerModeTime];
  ControlPage *page = startControl(picker());
  [picker() addTarget:page action:@selector(changed:) forControlEvents:UIControlEventValueChanged];
  EXPECT_EQ(set(rowId(0, 0), {nullptr, nullptr, 0}), Outcome::done);
  EXPECT_EQ([[picker() date] timeIntervalSince1970], 1606153089 - 12 * 3600);
  EXPECT_NE(calls(page).find("changed"), std::string::npos) << calls(page);
  EXPECT_EQ(row(0, 0)["value"], Json({4, 38, 0}));
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", {12, 0, 0}}}, Outcome::refused);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", 5}}, Outcome::refused);
  [picker() setEnabled:NO];
  EXPECT_EQ(set(rowId(0, 0), {nullptr, nullptr, 1}), Outcome::refused);
  EXPECT_EQ([[picker() date] timeIntervalSince1970], 1606153089 - 12 * 3600);
}

TEST_F(DatePickerControlTest, OtherStylesAreSaidNotToBeCarried) {
  [picker() setPreferredDatePickerStyle:UIDatePickerStyleWheels];
  startControl(picker());
  EXPECT_FALSE(logged("preferredDatePickerStyle"));
  [picker() setPreferredDatePickerStyle:UIDatePickerStyleCompact];
  EXPECT_TRUE(logged("Dates are picked on wheels."));
  EXPECT_EQ([picker() preferredDatePickerStyle], UIDatePickerStyleCompact);
}

TEST_F(DatePickerControlTest, CalendarsButTheGregorianAreSaidNotToBeCarried) {
  startControl(picker());
  for (NSString *kind in @[ NSCalendarIdentifierGregorian, NSCalendarIdentifierISO8601 ]) {
    [picker() setCalendar:[[[NSCalendar alloc] initWithCalendarIdentifier:kind] autorelease]];
  }
  EXPECT_FALSE(logged("UIDatePicker.calendar"));
  NSString *other = NSCalendarIdentifierBuddhist;
  [picker() setCalendar:[[[NSCalendar alloc] initWithCalendarIdentifier:other] autorelease]];
  EXPECT_TRUE(logged("Dates are those of the Gregorian calendar."));
  EXPECT_OBJC_EQ([[picker() calendar] calendarIdentifier], other);
}

}  // namespace
