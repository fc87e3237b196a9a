// The functions of dispatch/group.h and dispatch/semaphore.h.
#import "dispatch/DispatchObjects.h"

#include <condition_variable>
#include <mutex>

#include "dispatch/Group.hpp"
#include "dispatch/Times.hpp"

using sim::dispatch::Group;
using sim::dispatch::GroupMember;
using sim::dispatch::misuse;
using sim::dispatch::queueOf;
using sim::dispatch::Work;
using sim::dispatch::workOf;

@interface SIMGroup : SIMDispatchObject <OS_dispatch_group> {
 @public
  std::shared_ptr<Group> group;
}
@end

@implementation SIMGroup
@end

@interface SIMSemaphore : SIMDispatchObject <OS_dispatch_semaphore> {
 @public
  std::mutex mutex;
  std::condition_variable changed;
  intptr_t value;
  intptr_t waiting;
}
@end

@implementation SIMSemaphore
@end

namespace {

const std::shared_ptr<Group> &groupOf(dispatch_group_t object, const char *function) {
  if (!object) misuse(std::string(function) + " was called without a group.");
  return static_cast<SIMGroup *>(object)->group;
}

SIMSemaphore *checked(dispatch_semaphore_t object, const char *function) {
  if (!object) misuse(std::string(function) + " was called without a semaphore.");
  return static_cast<SIMSemaphore *>(object);
}

void addToGroup(const std::shared_ptr<Group> &group, sim::dispatch::Queue &queue, Work work) {
  auto member = std::make_shared<GroupMember>(group);
  queue.add(
      [member = std::move(member), inner = std::move(work)]() mutable {
        const auto kept =
            std::move(member);  // The group is left when what the work holds has gone, also when it raises.
        const Work running = std::move(inner);
        running();
      },
      false);
}

}  // namespace

dispatch_group_t dispatch_group_create(void) {
  SIMGroup *made = [[SIMGroup alloc] init];
  made->group = std::make_shared<Group>();
  return made;
}

void dispatch_group_async(dispatch_group_t group, dispatch_queue_t queue, dispatch_block_t block) {
  addToGroup(groupOf(group, "dispatch_group_async"), *queueOf(queue, "dispatch_group_async"),
             workOf(block, "dispatch_group_async"));
}

void dispatch_group_async_f(dispatch_group_t group, dispatch_queue_t queue, void *context, dispatch_function_t work) {
  addToGroup(groupOf(group, "dispatch_group_async_f"), *queueOf(queue, "dispatch_group_async_f"),
             [=] { work(context); });
}

void dispatch_group_enter(dispatch_group_t group) { groupOf(group, "dispatch_group_enter")->enter(); }

void dispatch_group_leave(dispatch_group_t group) {
  const auto kept = groupOf(group, "dispatch_group_leave");  // What waited for this may end the object.
  kept->leave();
}

intptr_t dispatch_group_wait(dispatch_group_t group, dispatch_time_t timeout) {
  const auto kept = groupOf(group, "dispatch_group_wait");
  return kept->wait(timeout) ? 0 : 1;
}

void dispatch_group_notify(dispatch_group_t group, dispatch_queue_t queue, dispatch_block_t block) {
  groupOf(group, "dispatch_group_notify")
      ->notify(queueOf(queue, "dispatch_group_notify"), workOf(block, "dispatch_group_notify"));
}

void dispatch_group_notify_f(dispatch_group_t group, dispatch_queue_t queue, void *context, dispatch_function_t work) {
  groupOf(group, "dispatch_group_notify_f")->notify(queueOf(queue, "dispatch_group_notify_f"), [=] { work(context); });
}

dispatch_semaphore_t dispatch_semaphore_create(intptr_t value) {
  if (value < 0) return nil;
  SIMSemaphore *made = [[SIMSemaphore alloc] init];
  made->value = value;
  return made;
}

intptr_t dispatch_semaphore_wait(dispatch_semaphore_t semaphore, dispatch_time_t timeout) {
  SIMSemaphore *counted = checked(semaphore, "dispatch_semaphore_wait");
  std::unique_lock lock(counted->mutex);
  ++counted->waiting;
  const bool got = sim::dispatch::waitUntil(counted->changed, lock, timeout, [counted] { return counted->value > 0; });
  --counted->waiting;
  if (!got) return 1;
  --counted->value;
  return 0;
}

intptr_t dispatch_semaphore_signal(dispatch_semaphore_t semaphore) {
  SIMSemaphore *counted = checked(semaphore, "dispatch_semaphore_signal");
  const std::lock_guard lock(counted->mutex);  // Told under the mutex: the one who waits may end the object.
  ++counted->value;
  counted->changed.notify_one();
  return counted->waiting >= counted->value ? 1 : 0;
}
