// A timer that tells a queue. Plain C++.
#pragma once

#include "dispatch/Queue.hpp"

#include <cstdint>
#include <memory>
#include <mutex>

namespace sim::dispatch {

/// Not started when it is made: suspended once. Any thread. What it does for others keeps it alive until that is done.
class TimerSource final : public std::enable_shared_from_this<TimerSource> {
 public:
  explicit TimerSource(std::shared_ptr<Queue> queue) : queue_(std::move(queue)) {}

  /// `due` on the monotonic clock, DISPATCH_TIME_FOREVER for never; nanoseconds from one time to the next.
  void set(std::uint64_t due, std::uint64_t interval);
  void setEventHandler(Work handler);
  void setCancelHandler(Work handler);
  void suspend();
  void resume();
  /// The first of several.
  void activate();
  void cancel();
  bool isCancelled() const;
  /// Of the event that is being told.
  std::uintptr_t count() const;

 private:
  /// Waits for the next time. Under the mutex.
  void schedule();
  void fire(std::uint64_t setting);
  /// Queues what tells of what has fired. Under the mutex.
  void queueTelling();
  void tell();

  const std::shared_ptr<Queue> queue_;
  mutable std::mutex mutex_;
  std::shared_ptr<Work> event_;
  Work cancel_;
  std::uint64_t due_;
  std::uint64_t interval_;
  std::uint64_t setting_ = 0;  // Tells the time that is waited for from those before.
  unsigned suspensions_ = 1;
  bool isActive_ = false;
  bool isSet_ = false;
  bool isCancelled_ = false;
  bool isTelling_ = false;    // or about to
  std::uintptr_t fired_ = 0;  // and not told
  std::uintptr_t told_ = 0;
};

}  // namespace sim::dispatch
