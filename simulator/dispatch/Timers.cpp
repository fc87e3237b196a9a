#include "dispatch/Timers.hpp"

#include "dispatch/Times.hpp"

#include <thread>
#include <utility>

namespace sim::dispatch {

Timers& Timers::shared() {
  static auto* timers = new Timers;
  return *timers;
}

void Timers::add(std::uint64_t due, Work work) {
  const std::lock_guard lock(mutex_);
  waiting_.emplace(due, std::move(work));
  if (!std::exchange(isStarted_, true)) std::thread([this] { live(); }).detach();
  changed_.notify_one();
}

void Timers::live() {
  beginThread();
  std::unique_lock lock(mutex_);
  while (true) {
    if (waiting_.empty()) {
      changed_.wait(lock);
      continue;
    }
    const auto next = waiting_.begin();
    if (next->first > monotonicNanoseconds()) {
      // Copied: the timer may be gone when the wait is over.
      changed_.wait_until(lock, std::chrono::steady_clock::time_point(std::chrono::nanoseconds(next->first)));
      continue;
    }
    Work work = std::move(next->second);
    waiting_.erase(next);
    lock.unlock();
    runWork(std::move(work), "telling the time");
    lock.lock();
  }
}

}  // namespace sim::dispatch
