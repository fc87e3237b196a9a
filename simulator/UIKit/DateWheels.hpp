// What the wheels of a date picker stand for. Plain C++. Any thread.
#pragma once

#include <cstdint>
#include <vector>

namespace sim {

enum class DateWheel { day, month, dayOfMonth, year, hour, hourOfHalf, half, minute };

/// The calendar is Gregorian; `seconds` are those of a clock on the wall since 1970, without time zones, or those of a
/// duration since 0.
class DateWheels final {
 public:
  /// `minuteInterval`: how far apart the rows of minutes are; it divides 60.
  DateWheels(std::vector<DateWheel> wheels, int minuteInterval)
      : wheels_(std::move(wheels)), minuteInterval_(minuteInterval) {}

  const std::vector<DateWheel>& wheels() const noexcept { return wheels_; }
  int rows(DateWheel wheel) const;
  /// The row that shows `seconds`, the nearest one where there is none.
  int row(DateWheel wheel, std::int64_t seconds) const;
  /// What `seconds` become when the wheel is turned to `row`: a day that the month does not have is its last one,
  /// minutes between two rows are those of the row that was shown, and what no wheel shows stays.
  std::int64_t turned(DateWheel wheel, int row, std::int64_t seconds) const;
  int minuteInterval() const noexcept { return minuteInterval_; }

 private:
  std::vector<DateWheel> wheels_;
  int minuteInterval_;
};

struct CivilDate {
  int year = 1970;
  unsigned month = 1;    ///< From 1.
  unsigned day = 1;      ///< From 1.
  unsigned weekday = 4;  ///< From 0, which is Sunday.
};

/// The date of the row of the wheel of days.
CivilDate dateOfDayRow(int row);
CivilDate dateOf(std::int64_t seconds);
/// Seconds since midnight.
int timeOf(std::int64_t seconds);

}  // namespace sim
