// The functions of dispatch/block.h.
#import "dispatch/DispatchObjects.h"

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

#include <atomic>
#include <mutex>
#include <unordered_map>

#include "dispatch/Group.hpp"

using sim::dispatch::misuse;

/// What is known of a block that dispatch_block_create made. The block holds it.
@interface SIMWorkItem : NSObject {
 @public
  dispatch_block_flags_t flags;
  objcxx::BlockHandle<void> body;
  std::atomic<bool> isCancelled;
  std::atomic<bool> hasRun;
  std::shared_ptr<sim::dispatch::Group> group;  // Empty when it has run.
  const void *address;                          // The block's.
}
@end

namespace {

std::mutex &mutex() {
  static auto *mutex = new std::mutex;
  return *mutex;
}

/// By the addresses of their blocks; not owned. Under the mutex.
std::unordered_map<const void *, SIMWorkItem *> &items() {
  static auto *items = new std::unordered_map<const void *, SIMWorkItem *>;
  return *items;
}

objcxx::Retained<SIMWorkItem> find(dispatch_block_t block) {
  const std::lock_guard lock(mutex());
  const auto found = items().find((const void *)block);
  return found == items().end() ? objcxx::Retained<SIMWorkItem>() : objcxx::share(found->second);
}

objcxx::Retained<SIMWorkItem> checked(dispatch_block_t block, const char *function) {
  auto item = find(block);
  if (!item) misuse(std::string(function) + " was called without a block of dispatch_block_create.");
  return item;
}

}  // namespace

@implementation SIMWorkItem

- (void)perform {
  struct Leave {
    SIMWorkItem *item;
    ~Leave() {
      if (!item->hasRun.exchange(true)) item->group->leave();
    }
  } leave{self};
  if (!isCancelled) body();
}

- (void)dealloc {
  {
    const std::lock_guard lock(mutex());
    items().erase(address);
  }
  [super dealloc];
}

@end

bool sim::dispatch::isBarrier(dispatch_block_t block) {
  const auto item = find(block);
  return item && (item.get()->flags & DISPATCH_BLOCK_BARRIER);
}

dispatch_block_t dispatch_block_create(dispatch_block_flags_t flags, dispatch_block_t block) {
  if (!block) return nullptr;
  auto item = objcxx::adopt([[SIMWorkItem alloc] init]);
  SIMWorkItem *kept = item.get();
  kept->flags = flags;
  kept->body = objcxx::copyOf(block);
  kept->group = std::make_shared<sim::dispatch::Group>();
  kept->group->enter();
  dispatch_block_t made = Block_copy(^{
    [kept perform];
  });
  kept->address = (const void *)made;
  const std::lock_guard lock(mutex());
  items().emplace((const void *)made, kept);
  return made;
}

void dispatch_block_cancel(dispatch_block_t block) {
  checked(block, "dispatch_block_cancel").get()->isCancelled = true;
}

intptr_t dispatch_block_testcancel(dispatch_block_t block) {
  return checked(block, "dispatch_block_testcancel").get()->isCancelled ? 1 : 0;
}

intptr_t dispatch_block_wait(dispatch_block_t block, dispatch_time_t timeout) {
  const auto item = checked(block, "dispatch_block_wait");
  return item.get()->group->wait(timeout) ? 0 : 1;
}

void dispatch_block_notify(dispatch_block_t block, dispatch_queue_t queue, dispatch_block_t notification) {
  const auto item = checked(block, "dispatch_block_notify");
  item.get()->group->notify(sim::dispatch::queueOf(queue, "dispatch_block_notify"),
                            sim::dispatch::workOf(notification, "dispatch_block_notify"));
}
