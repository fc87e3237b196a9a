// What the compiler calls in code with ARC, to Clang's public description of it ("Runtime support"). Any thread.
#pragma once

#include <objc/objc.h>

#include <stddef.h>

#if defined(__cplusplus)
extern "C" {
#endif

id objc_retain(id object);
void objc_release(id object);
id objc_autorelease(id object);
id objc_retainAutorelease(id object);
id objc_autoreleaseReturnValue(id object);
id objc_retainAutoreleaseReturnValue(id object);
id objc_retainAutoreleasedReturnValue(id object);
id objc_unsafeClaimAutoreleasedReturnValue(id object);
/// A block on the stack is copied to the heap.
id objc_retainBlock(id block);
void objc_storeStrong(id* place, id object);

void* objc_autoreleasePoolPush(void);
void objc_autoreleasePoolPop(void* pool);

// A weak reference reads as nil from the moment in which the last owner of the object lets it go.
id objc_initWeak(id* place, id object);
id objc_storeWeak(id* place, id object);
id objc_loadWeak(id* place);
id objc_loadWeakRetained(id* place);
void objc_copyWeak(id* to, id* from);
/// Leaves `from` without a reference.
void objc_moveWeak(id* to, id* from);
void objc_destroyWeak(id* place);

// The setters of properties.
void objc_setProperty_atomic(id self, SEL selector, id value, ptrdiff_t offset);
void objc_setProperty_atomic_copy(id self, SEL selector, id value, ptrdiff_t offset);
void objc_setProperty_nonatomic(id self, SEL selector, id value, ptrdiff_t offset);
void objc_setProperty_nonatomic_copy(id self, SEL selector, id value, ptrdiff_t offset);
/// Atomic properties that hold an object of C++; `copy` assigns.
void objc_getCppObjectAtomic(void* to, const void* from, void (*copy)(void* to, const void* from));
void objc_setCppObjectAtomic(void* to, const void* from, void (*copy)(void* to, const void* from));

#if defined(__cplusplus)
}
#endif
