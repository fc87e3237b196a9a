// Waiting for what other threads and processes do.
#pragma once

#include <chrono>
#include <thread>

namespace test {

/// Asks `condition` until it holds. False when it does not within the time, which is far more than anything takes.
template <typename Condition>
bool waitUntil(Condition condition, std::chrono::seconds longest = std::chrono::seconds(30)) {
  const auto end = std::chrono::steady_clock::now() + longest;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

}  // namespace test
