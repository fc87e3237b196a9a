#include "dispatch/ThreadPool.hpp"

#include <chrono>
#include <thread>
#include <utility>

namespace sim::dispatch {
namespace {

constexpr std::chrono::seconds kPatience{5};

}  // namespace

ThreadPool& ThreadPool::shared() {
  static auto* pool = new ThreadPool;
  return *pool;
}

void ThreadPool::add(Level level, Work work) {
  const std::lock_guard lock(mutex_);
  waiting_[static_cast<std::size_t>(level)].push_back(std::move(work));
  ++count_;
  if (count_ > idle_ && threads_ < kMostThreads) {
    ++threads_;
    std::thread([this] { live(); }).detach();
  } else {
    changed_.notify_one();
  }
}

Work ThreadPool::take() {
  for (auto& level : waiting_) {
    if (level.empty()) continue;
    Work work = std::move(level.front());
    level.pop_front();
    --count_;
    return work;
  }
  return {};
}

void ThreadPool::live() {
  beginThread();
  std::unique_lock lock(mutex_);
  while (true) {
    if (Work work = take()) {
      lock.unlock();
      runWork(std::move(work), "running the work of a queue");
      lock.lock();
      continue;
    }
    ++idle_;
    const bool wanted = changed_.wait_for(lock, kPatience, [this] { return count_ > 0; });
    --idle_;
    if (!wanted) break;
  }
  --threads_;
  lock.unlock();
  endThread();
}

}  // namespace sim::dispatch
