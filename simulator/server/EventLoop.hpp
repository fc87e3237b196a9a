// The main thread's loop: descriptors that are ready, timers, and tasks posted by the HTTP thread.
#pragma once

#include "base/Descriptor.hpp"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace sim {

/// A poll loop. Every callback runs on the thread that calls `run`; only `post` and `stop` may be called from others.
class EventLoop final {
 public:
  using Task = std::function<void()>;
  using Timer = std::uint64_t;

  /// Throws Failure when the system gives no descriptor.
  EventLoop();
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;

  /// Calls `ready` whenever one of `events` (POLLIN, POLLOUT) or a hang-up stands on the descriptor, until `unwatch`.
  /// Watching a descriptor again replaces what was asked before. The descriptor stays the caller's.
  void watch(int descriptor, short events, Task ready);
  void unwatch(int descriptor);

  /// Runs `task` once after `delay`. A timer that has run or was cancelled may be cancelled again.
  Timer after(std::chrono::milliseconds delay, Task task);
  void cancel(Timer timer);

  /// Runs `task` on the loop's thread as soon as it can. Any thread.
  void post(Task task);

  /// Returns after `stop`.
  void run();

  /// Any thread.
  void stop();

 private:
  using Clock = std::chrono::steady_clock;
  struct Watch {
    short events = 0;
    std::uint64_t generation = 0;  // Tells a replaced watch from the one that was polled.
    Task ready;
  };

  void runPosted();
  void runTimers();
  int millisecondsToNextTimer() const;

  Descriptor wake_;
  std::map<int, Watch> watches_;
  std::map<std::pair<Clock::time_point, Timer>, Task> timers_;
  std::uint64_t lastNumber_ = 0;
  bool running_ = false;

  std::mutex mutex_;  // Guards `posted_`.
  std::vector<Task> posted_;
};

}  // namespace sim
