#import "WeakReferences.h"

#include <objc/arc.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace sim::WeakReferences {
namespace {

std::recursive_mutex &mutex() {
  static auto *mutex = new std::recursive_mutex;
  return *mutex;
}

/// The places that hold a reference to each object. Under the mutex.
std::unordered_map<const void *, std::vector<id *>> &places() {
  static auto *places = new std::unordered_map<const void *, std::vector<id *>>;
  return *places;
}

/// How many objects with references fall to each number: most objects have none, which is to cost nothing.
constexpr std::size_t kBuckets = 4096;
std::array<std::atomic<unsigned>, kBuckets> counts;

std::atomic<unsigned> &countFor(const void *object) {
  return counts[(reinterpret_cast<std::uintptr_t>(object) >> 4) % kBuckets];
}

void add(id *place, id object) {
  if (!object) return;
  auto [found, isNew] = places().try_emplace(object);
  found->second.push_back(place);
  if (isNew) ++countFor(object);
}

void remove(id *place, id object) {
  const auto found = places().find(object);
  if (found == places().end()) return;
  auto &all = found->second;
  all.erase(std::remove(all.begin(), all.end(), place), all.end());
  if (!all.empty()) return;
  places().erase(found);
  --countFor(object);
}

}  // namespace

ReleaseGuard::ReleaseGuard(const void *object) : object_(object) {
  if (countFor(object).load(std::memory_order_acquire) == 0) return;
  lock_ = std::unique_lock(mutex());
  if (places().count(object) == 0) lock_.unlock();
}

void ReleaseGuard::forget() const {
  if (!isReferenced()) return;
  const auto found = places().find(object_);
  if (found == places().end()) return;
  for (id *place : found->second) *place = nil;
  places().erase(found);
  --countFor(object_);
}

}  // namespace sim::WeakReferences

using sim::WeakReferences::mutex;

id objc_storeWeak(id *place, id object) {
  const std::lock_guard lock(mutex());
  sim::WeakReferences::remove(place, *place);
  *place = object;
  sim::WeakReferences::add(place, object);
  return object;
}

id objc_initWeak(id *place, id object) {
  *place = nil;
  return objc_storeWeak(place, object);
}

void objc_destroyWeak(id *place) {
  const std::lock_guard lock(mutex());
  sim::WeakReferences::remove(place, *place);
}

id objc_loadWeakRetained(id *place) {
  const std::lock_guard lock(mutex());
  return [*place retain];
}

id objc_loadWeak(id *place) { return [objc_loadWeakRetained(place) autorelease]; }

void objc_copyWeak(id *to, id *from) {
  const std::lock_guard lock(mutex());
  *to = nil;
  objc_storeWeak(to, *from);
}

void objc_moveWeak(id *to, id *from) {
  const std::lock_guard lock(mutex());
  objc_copyWeak(to, from);
  objc_destroyWeak(from);
  *from = nil;
}
