// Moments as dispatch counts them, on the clocks of this computer. Plain C++.
#pragma once

#include <dispatch/time.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace sim::dispatch {

/// Of the monotonic clock.
std::uint64_t monotonicNanoseconds();

/// `when` on the monotonic clock: now for what has passed, and DISPATCH_TIME_FOREVER.
std::uint64_t monotonic(dispatch_time_t when);

/// Waits for `condition` until `when`. Whether it has come.
template <typename Condition>
bool waitUntil(std::condition_variable& changed, std::unique_lock<std::mutex>& lock, dispatch_time_t when,
               Condition condition) {
  const auto end = monotonic(when);
  if (end == DISPATCH_TIME_FOREVER) {
    changed.wait(lock, condition);
    return true;
  }
  const std::chrono::steady_clock::time_point point{std::chrono::nanoseconds(end)};
  return changed.wait_until(lock, point, condition);
}

}  // namespace sim::dispatch
