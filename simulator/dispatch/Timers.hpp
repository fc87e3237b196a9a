// Work for later. Plain C++.
#pragma once

#include "dispatch/ThreadPool.hpp"

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>

namespace sim::dispatch {

/// One thread that runs work when its time has come. The work is to be short: it queues what there is to do.
class Timers final {
 public:
  /// Lives as long as the process.
  static Timers& shared();

  /// Runs `work` at `due`, nanoseconds of the monotonic clock, in the order of these. Any thread.
  void add(std::uint64_t due, Work work);

 private:
  void live();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::multimap<std::uint64_t, Work> waiting_;
  bool isStarted_ = false;
};

}  // namespace sim::dispatch
