#include "UIKit/DateWheels.hpp"

#include <algorithm>
#include <chrono>

namespace sim {
namespace {

using namespace std::chrono;

// What the wheels reach. A device's wheel of days goes on for as long as it is turned.
constexpr sys_days kFirstDay = January / 1 / 1900;
constexpr sys_days kLastDay = December / 31 / 2199;
constexpr int kLastYear = 9999;
constexpr int kDay = 24 * 60 * 60;
constexpr int kHalf = kDay / 2;

sys_days dayOf(std::int64_t time) { return sys_days(floor<days>(seconds(time))); }

std::int64_t secondsOf(sys_days day, int time) { return seconds(day.time_since_epoch()).count() + time; }

std::int64_t withDate(year y, month m, day d, int time) {
  const year_month_day_last last(y, month_day_last(m));
  return secondsOf(sys_days(y / m / std::min(d, last.day())), time);
}

CivilDate civil(sys_days whole) {
  const year_month_day date(whole);
  return {int(date.year()), unsigned(date.month()), unsigned(date.day()), weekday(whole).c_encoding()};
}

}  // namespace

int DateWheels::rows(DateWheel wheel) const {
  switch (wheel) {
    case DateWheel::day: return int((kLastDay - kFirstDay).count()) + 1;
    case DateWheel::month: return 12;
    case DateWheel::dayOfMonth: return 31;
    case DateWheel::year: return kLastYear;
    case DateWheel::hour: return 24;
    case DateWheel::hourOfHalf: return 12;
    case DateWheel::half: return 2;
    case DateWheel::minute: return 60 / minuteInterval_;
  }
  return 0;
}

int DateWheels::row(DateWheel wheel, std::int64_t time) const {
  const CivilDate date = dateOf(time);
  const int second = timeOf(time);
  switch (wheel) {
    case DateWheel::day: return int((std::clamp(dayOf(time), kFirstDay, kLastDay) - kFirstDay).count());
    case DateWheel::month: return int(date.month) - 1;
    case DateWheel::dayOfMonth: return int(date.day) - 1;
    case DateWheel::year: return std::clamp(date.year, 1, kLastYear) - 1;
    case DateWheel::hour: return second / 3600;
    case DateWheel::hourOfHalf: return (second / 3600 + 11) % 12;  // From 1 to 12.
    case DateWheel::half: return second / kHalf;
    case DateWheel::minute: return second / 60 % 60 / minuteInterval_;
  }
  return 0;
}

std::int64_t DateWheels::turned(DateWheel wheel, int row, std::int64_t unturned) const {
  const bool hasMinutes = std::ranges::find(wheels_, DateWheel::minute) != wheels_.end();
  const std::int64_t time = hasMinutes ? unturned - timeOf(unturned) / 60 % minuteInterval_ * 60 : unturned;
  const year_month_day date(dayOf(time));
  const int second = timeOf(time);
  const int inHour = second % 3600;
  switch (wheel) {
    case DateWheel::day: return secondsOf(kFirstDay + days(row), second);
    case DateWheel::month: return withDate(date.year(), month(unsigned(row) + 1), date.day(), second);
    case DateWheel::dayOfMonth: return withDate(date.year(), date.month(), day(unsigned(row) + 1), second);
    case DateWheel::year: return withDate(year(row + 1), date.month(), date.day(), second);
    case DateWheel::hour: return secondsOf(dayOf(time), row * 3600 + inHour);
    case DateWheel::hourOfHalf: return secondsOf(dayOf(time), second / kHalf * kHalf + (row + 1) % 12 * 3600 + inHour);
    case DateWheel::half: return secondsOf(dayOf(time), row * kHalf + second % kHalf);
    case DateWheel::minute: return secondsOf(dayOf(time), second - inHour + row * minuteInterval_ * 60 + second % 60);
  }
  return time;
}

CivilDate dateOfDayRow(int row) { return civil(kFirstDay + days(row)); }

CivilDate dateOf(std::int64_t time) { return civil(dayOf(time)); }

int timeOf(std::int64_t time) { return int(time - secondsOf(dayOf(time), 0)); }

}  // namespace sim
