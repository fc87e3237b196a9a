#include "dispatch/Group.hpp"

#include "dispatch/Times.hpp"

#include <utility>

namespace sim::dispatch {

void Group::enter() {
  const std::lock_guard lock(mutex_);
  ++count_;
}

void Group::leave() {
  std::unique_lock lock(mutex_);
  if (count_ == 0) misuse("dispatch_group_leave was called more often than dispatch_group_enter.");
  // Who waits for the end finds on the queues what was to come at the end.
  while (count_ == 1 && !waiting_.empty()) {
    auto due = std::exchange(waiting_, {});
    lock.unlock();
    for (auto& [queue, work] : due) queue->add(std::move(work), false);
    lock.lock();
  }
  if (--count_ == 0) changed_.notify_all();
}

bool Group::wait(dispatch_time_t until) {
  std::unique_lock lock(mutex_);
  return waitUntil(changed_, lock, until, [this] { return count_ == 0; });
}

void Group::notify(std::shared_ptr<Queue> queue, Work work) {
  {
    const std::lock_guard lock(mutex_);
    if (count_ > 0) {
      waiting_.emplace_back(std::move(queue), std::move(work));
      return;
    }
  }
  queue->add(std::move(work), false);
}

}  // namespace sim::dispatch
