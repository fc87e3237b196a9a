#include "dispatch/Times.hpp"

#include <algorithm>
#include <limits>

namespace sim::dispatch {
namespace {

constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max();

std::int64_t read(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<std::int64_t>(now.tv_sec) * static_cast<std::int64_t>(NSEC_PER_SEC) + now.tv_nsec;
}

bool isWall(dispatch_time_t when) { return static_cast<std::int64_t>(when) < 0; }

/// Nanoseconds of the calendar for a moment of it.
std::int64_t wall(dispatch_time_t when) {
  return when == DISPATCH_WALLTIME_NOW ? read(CLOCK_REALTIME) : -static_cast<std::int64_t>(when);
}

dispatch_time_t wallTime(std::int64_t start, std::int64_t delta) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(start, delta, &sum)) return delta < 0 ? DISPATCH_TIME_FOREVER - 2 : DISPATCH_TIME_FOREVER;
  // The two last negative numbers stand for what they stand for.
  return static_cast<dispatch_time_t>(-std::max<std::int64_t>(sum, 3));
}

}  // namespace

std::uint64_t monotonicNanoseconds() { return static_cast<std::uint64_t>(read(CLOCK_MONOTONIC)); }

std::uint64_t monotonic(dispatch_time_t when) {
  if (when == DISPATCH_TIME_FOREVER) return when;
  const std::int64_t now = read(CLOCK_MONOTONIC);
  if (!isWall(when)) return std::max(static_cast<std::uint64_t>(now), when);
  const std::int64_t ahead = std::max<std::int64_t>(wall(when) - read(CLOCK_REALTIME), 0);
  return static_cast<std::uint64_t>(ahead > kLast - now ? kLast : now + ahead);
}

}  // namespace sim::dispatch

dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta) {
  if (when == DISPATCH_TIME_FOREVER) return when;
  if (sim::dispatch::isWall(when)) return sim::dispatch::wallTime(sim::dispatch::wall(when), delta);
  const auto start = when == DISPATCH_TIME_NOW ? sim::dispatch::read(CLOCK_MONOTONIC) : static_cast<std::int64_t>(when);
  std::int64_t sum = 0;
  if (__builtin_add_overflow(start, delta, &sum)) return DISPATCH_TIME_FOREVER;  // Only upwards: `start` is positive.
  return static_cast<dispatch_time_t>(std::max<std::int64_t>(sum, 1));
}

dispatch_time_t dispatch_walltime(const timespec* when, int64_t delta) {
  const auto start = when ? static_cast<std::int64_t>(when->tv_sec) * static_cast<std::int64_t>(NSEC_PER_SEC) +
                                static_cast<std::int64_t>(when->tv_nsec)
                          : sim::dispatch::read(CLOCK_REALTIME);
  return sim::dispatch::wallTime(start, delta);
}
