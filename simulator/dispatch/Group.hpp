// What counts the work that is under way. Plain C++.
#pragma once

#include <dispatch/time.h>

#include "dispatch/Queue.hpp"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace sim::dispatch {

/// Any thread.
class Group final {
 public:
  void enter();
  void leave();
  /// Whether it was empty before `until`.
  bool wait(dispatch_time_t until);
  void notify(std::shared_ptr<Queue> queue, Work work);

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t count_ = 0;
  std::vector<std::pair<std::shared_ptr<Queue>, Work>> waiting_;
};

/// Leaves a group when it goes.
class GroupMember final {
 public:
  explicit GroupMember(std::shared_ptr<Group> group) : group_(std::move(group)) { group_->enter(); }
  ~GroupMember() { group_->leave(); }
  GroupMember(const GroupMember&) = delete;
  GroupMember& operator=(const GroupMember&) = delete;

 private:
  std::shared_ptr<Group> group_;
};

}  // namespace sim::dispatch
