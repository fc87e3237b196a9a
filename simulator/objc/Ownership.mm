// Ownership as code with ARC asks for it, over Foundation's.
#import <Foundation/Foundation.h>

#include <Block.h>
#include <objc/arc.h>

#include <mutex>
#include <utility>

// Of GCC's runtime, which declares them nowhere.
extern "C" void objc_setProperty(id self, SEL selector, size_t offset, id value, BOOL isAtomic, BOOL shouldCopy);

id objc_retain(id object) { return [object retain]; }

void objc_release(id object) { [object release]; }

id objc_autorelease(id object) { return [object autorelease]; }

id objc_retainAutorelease(id object) { return [[object retain] autorelease]; }

id objc_autoreleaseReturnValue(id object) { return [object autorelease]; }

id objc_retainAutoreleaseReturnValue(id object) { return [[object retain] autorelease]; }

id objc_retainAutoreleasedReturnValue(id object) { return [object retain]; }

id objc_unsafeClaimAutoreleasedReturnValue(id object) { return object; }

id objc_retainBlock(id block) { return static_cast<id>(_Block_copy(block)); }

void objc_storeStrong(id *place, id object) {
  [object retain];
  [std::exchange(*place, object) release];
}

void *objc_autoreleasePoolPush(void) { return [[NSAutoreleasePool alloc] init]; }

void objc_autoreleasePoolPop(void *pool) { [static_cast<NSAutoreleasePool *>(pool) drain]; }

void objc_setProperty_atomic(id self, SEL selector, id value, ptrdiff_t offset) {
  objc_setProperty(self, selector, static_cast<size_t>(offset), value, YES, NO);
}

void objc_setProperty_atomic_copy(id self, SEL selector, id value, ptrdiff_t offset) {
  objc_setProperty(self, selector, static_cast<size_t>(offset), value, YES, YES);
}

void objc_setProperty_nonatomic(id self, SEL selector, id value, ptrdiff_t offset) {
  objc_setProperty(self, selector, static_cast<size_t>(offset), value, NO, NO);
}

void objc_setProperty_nonatomic_copy(id self, SEL selector, id value, ptrdiff_t offset) {
  objc_setProperty(self, selector, static_cast<size_t>(offset), value, NO, YES);
}

namespace {

std::recursive_mutex &cxxProperties() {
  static auto *mutex = new std::recursive_mutex;
  return *mutex;
}

}  // namespace

void objc_getCppObjectAtomic(void *to, const void *from, void (*copy)(void *to, const void *from)) {
  const std::lock_guard lock(cxxProperties());
  copy(to, from);
}

void objc_setCppObjectAtomic(void *to, const void *from, void (*copy)(void *to, const void *from)) {
  const std::lock_guard lock(cxxProperties());
  copy(to, from);
}
