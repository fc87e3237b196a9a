#import "AssociatedObjects.h"

#include <objc/runtime.h>

#include <atomic>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace {

struct Association {
  id value = nil;
  objc_AssociationPolicy policy = OBJC_ASSOCIATION_ASSIGN;

  bool isOwned() const { return policy != OBJC_ASSOCIATION_ASSIGN; }
  bool isAtomic() const { return policy > 0xff; }
};

using Associations = std::unordered_map<const void *, Association>;

std::mutex &mutex() {
  static auto *mutex = new std::mutex;
  return *mutex;
}

/// By object, under the mutex.
std::unordered_map<const void *, Associations> &all() {
  static auto *all = new std::unordered_map<const void *, Associations>;
  return *all;
}

std::atomic<bool> isUsed{false};  // Most processes associate nothing.

id owned(id value, objc_AssociationPolicy policy) {
  switch (policy & 0xff) {
    case OBJC_ASSOCIATION_RETAIN_NONATOMIC: return [value retain];
    case OBJC_ASSOCIATION_COPY_NONATOMIC: return [value copy];
    default: return value;
  }
}

}  // namespace

void objc_setAssociatedObject(id object, const void *key, id value, objc_AssociationPolicy policy) {
  if (!object) return;
  Association replaced;
  Association added{owned(value, policy), policy};
  {
    const std::lock_guard lock(mutex());
    isUsed = true;
    if (added.value) {
      replaced = std::exchange(all()[object][key], added);
    } else if (const auto found = all().find(object); found != all().end()) {
      replaced = std::exchange(found->second[key], {});
      found->second.erase(key);
    }
  }
  if (replaced.isOwned()) [replaced.value release];
}

id objc_getAssociatedObject(id object, const void *key) {
  const std::lock_guard lock(mutex());
  const auto found = all().find(object);
  if (found == all().end()) return nil;
  const auto association = found->second.find(key);
  if (association == found->second.end()) return nil;
  id value = association->second.value;
  return association->second.isAtomic() ? [[value retain] autorelease] : value;
}

void objc_removeAssociatedObjects(id object) { sim::forgetAssociatedObjects(object); }

void sim::forgetAssociatedObjects(id object) {
  if (!isUsed.load(std::memory_order_acquire)) return;
  Associations removed;
  {
    const std::lock_guard lock(mutex());
    const auto found = all().find(object);
    if (found == all().end()) return;
    removed = std::move(found->second);
    all().erase(found);
  }
  for (const auto &[key, association] : removed) {
    if (association.isOwned()) [association.value release];
  }
}
