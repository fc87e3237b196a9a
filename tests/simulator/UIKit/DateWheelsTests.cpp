// The rows of a date picker's wheels.
#include "UIKit/DateWheels.hpp"

#include <gtest/gtest.h>

#include <chrono>

namespace {

using sim::DateWheel;
using sim::DateWheels;
using namespace std::chrono;

std::int64_t at(int y, unsigned m, unsigned d, int hour = 0, int minute = 0, int second = 0) {
  const auto day = sys_days(year(y) / month(m) / std::chrono::day(d));
  return seconds(day.time_since_epoch()).count() + hour * 3600 + minute * 60 + second;
}

const DateWheels kWheels({DateWheel::day}, 5);

TEST(DateWheelsTest, EachWheelShowsItsPart) {
  const std::int64_t time = at(2026, 11, 23, 17, 38, 9);
  EXPECT_EQ(kWheels.row(DateWheel::month, time), 10);
  EXPECT_EQ(kWheels.row(DateWheel::dayOfMonth, time), 22);
  EXPECT_EQ(kWheels.row(DateWheel::year, time), 2025);
  EXPECT_EQ(kWheels.row(DateWheel::hour, time), 17);
  EXPECT_EQ(kWheels.row(DateWheel::hourOfHalf, time), 4) << "five, in rows from one";
  EXPECT_EQ(kWheels.row(DateWheel::half, time), 1);
  EXPECT_EQ(kWheels.row(DateWheel::minute, time), 7) << "35, the one before";
  const sim::CivilDate date = sim::dateOfDayRow(kWheels.row(DateWheel::day, time));
  EXPECT_EQ(date.year, 2026);
  EXPECT_EQ(date.month, 11u);
  EXPECT_EQ(date.day, 23u);
  EXPECT_EQ(date.weekday, 1u) << "a Monday";
}

TEST(DateWheelsTest, NoonAndMidnightAreTwelve) {
  for (const int hour : {0, 12}) {
    const std::int64_t time = at(2026, 1, 1, hour, 30);
    EXPECT_EQ(kWheels.row(DateWheel::hourOfHalf, time), 11);
    EXPECT_EQ(kWheels.row(DateWheel::half, time), hour / 12);
    EXPECT_EQ(kWheels.turned(DateWheel::hourOfHalf, 0, time), at(2026, 1, 1, hour + 1, 30));
    EXPECT_EQ(kWheels.turned(DateWheel::hourOfHalf, 11, time + 3600), time);
    EXPECT_EQ(kWheels.turned(DateWheel::half, 1 - hour / 12, time), at(2026, 1, 1, 12 - hour, 30));
  }
}

TEST(DateWheelsTest, AWheelThatIsTurnedLeavesTheRest) {
  const std::int64_t time = at(2026, 11, 23, 17, 38, 9);
  EXPECT_EQ(kWheels.turned(DateWheel::month, 0, time), at(2026, 1, 23, 17, 38, 9));
  EXPECT_EQ(kWheels.turned(DateWheel::dayOfMonth, 0, time), at(2026, 11, 1, 17, 38, 9));
  EXPECT_EQ(kWheels.turned(DateWheel::year, 1999, time), at(2000, 11, 23, 17, 38, 9));
  EXPECT_EQ(kWheels.turned(DateWheel::hour, 3, time), at(2026, 11, 23, 3, 38, 9));
  EXPECT_EQ(kWheels.turned(DateWheel::minute, 2, time), at(2026, 11, 23, 17, 10, 9));
  const int today = kWheels.row(DateWheel::day, time);
  EXPECT_EQ(kWheels.turned(DateWheel::day, today + 9, time), at(2026, 12, 2, 17, 38, 9));
}

TEST(DateWheelsTest, MinutesAreThoseThatWereShown) {
  const DateWheels clock({DateWheel::hour, DateWheel::minute}, 15);
  EXPECT_EQ(clock.turned(DateWheel::hour, 3, at(2026, 11, 23, 17, 38, 9)), at(2026, 11, 23, 3, 30, 9));
  EXPECT_EQ(clock.turned(DateWheel::minute, 3, at(2026, 11, 23, 17, 38, 9)), at(2026, 11, 23, 17, 45, 9));
}

TEST(DateWheelsTest, ADayThatTheMonthDoesNotHaveIsItsLast) {
  EXPECT_EQ(kWheels.turned(DateWheel::month, 1, at(2026, 1, 31, 8)), at(2026, 2, 28, 8));
  EXPECT_EQ(kWheels.turned(DateWheel::dayOfMonth, 30, at(2028, 2, 3)), at(2028, 2, 29));
  EXPECT_EQ(kWheels.turned(DateWheel::year, 2026, at(2028, 2, 29)), at(2027, 2, 28));
}

TEST(DateWheelsTest, EveryRowIsShownByItself) {
  const std::int64_t time = at(2027, 1, 1, 0, 0, 0);
  for (const DateWheel wheel : {DateWheel::month, DateWheel::dayOfMonth, DateWheel::year, DateWheel::hour,
                                DateWheel::hourOfHalf, DateWheel::half, DateWheel::minute, DateWheel::day}) {
    for (int row = 0; row < kWheels.rows(wheel); ++row) {
      ASSERT_EQ(kWheels.row(wheel, kWheels.turned(wheel, row, time)), row) << int(wheel);
    }
  }
  EXPECT_EQ(kWheels.rows(DateWheel::minute), 12);
}

TEST(DateWheelsTest, WhatTheWheelsDoNotReachIsTheirEnd) {
  EXPECT_EQ(kWheels.row(DateWheel::day, at(1800, 1, 1)), 0);
  EXPECT_EQ(kWheels.row(DateWheel::day, at(2500, 1, 1)), kWheels.rows(DateWheel::day) - 1);
  EXPECT_EQ(kWheels.row(DateWheel::year, at(-5, 1, 1)), 0);
  EXPECT_EQ(kWheels.row(DateWheel::year, at(12000, 1, 1)), 9998);
}

TEST(DateWheelsTest, TimesBefore1970AreTold) {
  const std::int64_t time = at(1969, 12, 31, 23, 59, 59);
  EXPECT_EQ(time, -1);
  EXPECT_EQ(kWheels.row(DateWheel::hour, time), 23);
  EXPECT_EQ(kWheels.row(DateWheel::year, time), 1968);
  EXPECT_EQ(kWheels.turned(DateWheel::minute, 0, time), at(1969, 12, 31, 23, 0, 59));
}

}  // namespace
