// The threads of all queues but the main one. Plain C++.
#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

namespace sim::dispatch {

using Work = std::function<void()>;

/// Classes of the quality of service, the most urgent first.
enum class Level : std::size_t { interactive, initiated, standard, utility, background };
inline constexpr std::size_t kLevels = 5;

/// Runs work on as many threads as it takes, up to 64, as many as a device has for its queues: one that waits does not
/// hold up the others. Threads end when they have had nothing to do for a while. Any thread.
class ThreadPool final {
 public:
  static constexpr std::size_t kMostThreads = 64;

  /// Lives as long as the process.
  static ThreadPool& shared();

  /// Runs `work` later: before all that waits of lower levels, after what waits of its own.
  void add(Level level, Work work);

 private:
  void live();
  /// The next work, which is taken out; empty when there is none. Under the mutex.
  Work take();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::array<std::deque<Work>, kLevels> waiting_;
  std::size_t count_ = 0;  // of what waits
  std::size_t threads_ = 0;
  std::size_t idle_ = 0;
};

// What a thread does that may run Objective-C, first and last, and with each piece of work: with an autorelease pool,
// catching what it raises. `doing` names the work for the log.
void beginThread();
void endThread();
void runWork(Work&& work, const char* doing);

}  // namespace sim::dispatch
