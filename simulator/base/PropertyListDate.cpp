#include "base/PropertyListDate.hpp"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <system_error>

namespace sim {

namespace {

using namespace std::chrono;

constexpr sys_seconds kReference = sys_days{year{2001} / 1 / 1};

/// Takes `digits` decimal digits and the character behind them off `text`.
std::optional<int> take(std::string_view& text, std::size_t digits, char end) {
  if (text.size() <= digits || text[digits] != end) return std::nullopt;
  int value = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + digits, value);
  if (error != std::errc{} || stop != text.data() + digits || value < 0) return std::nullopt;
  text.remove_prefix(digits + 1);
  return value;
}

}  // namespace

std::optional<double> secondsFromISO8601(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const auto theYear = take(text, 4, '-'), theMonth = take(text, 2, '-'), theDay = take(text, 2, 'T');
  const auto hour = take(text, 2, ':'), minute = take(text, 2, ':'), second = take(text, 2, 'Z');
  if (!theYear || !theMonth || !theDay || !hour || !minute || !second || !text.empty()) return std::nullopt;
  const year_month_day date{year{negative ? -*theYear : *theYear}, month{static_cast<unsigned>(*theMonth)},
                            day{static_cast<unsigned>(*theDay)}};
  if (!date.ok() || *hour > 23 || *minute > 59 || *second > 60) return std::nullopt;
  const auto moment = sys_seconds{sys_days{date}} + hours{*hour} + minutes{*minute} + std::chrono::seconds{*second};
  return static_cast<double>((moment - kReference).count());
}

std::optional<std::string> iso8601FromSeconds(double seconds) {
  constexpr double kFarAway = 400e9;  // More than 12,000 years; keeps the conversion below in range.
  if (!(std::fabs(seconds) < kFarAway)) return std::nullopt;
  const auto moment = kReference + std::chrono::seconds{static_cast<long long>(std::floor(seconds))};
  const auto midnight = floor<days>(moment);
  const year_month_day date{midnight};
  const hh_mm_ss time{moment - midnight};
  const int theYear = static_cast<int>(date.year());
  if (theYear < -9999 || theYear > 9999) return std::nullopt;
  char text[40];
  std::snprintf(text, sizeof text, "%s%04d-%02u-%02uT%02d:%02d:%02dZ", theYear < 0 ? "-" : "", std::abs(theYear),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()));
  return text;
}

}  // namespace sim
