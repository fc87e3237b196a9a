// The functions of the runtime as a device's headers declare them, over those of GCC's.
#pragma once

#include <objc/objc.h>

#if defined(__OBJC_GNUSTEP_RUNTIME_ABI__)
// The one function in it that looks into an object. With ARC an `id` is no pointer to a structure.
#define object_getClass(parameter) objc_classOfStructure(const struct objc_object* object)
#include_next <objc/runtime.h>
#undef object_getClass

/// The class of the object; Nil for nil.
static inline Class object_getClass(id object) {
  return objc_classOfStructure((__bridge const struct objc_object*)object);
}
#else
#include_next <objc/runtime.h>
#endif

/// How an object refers to one that is associated with it; the atomic ones give it out retained and autoreleased.
typedef enum objc_AssociationPolicy : __UINTPTR_TYPE__ objc_AssociationPolicy;
enum objc_AssociationPolicy : __UINTPTR_TYPE__ {
  OBJC_ASSOCIATION_ASSIGN = 0,
  OBJC_ASSOCIATION_RETAIN_NONATOMIC = 1,
  OBJC_ASSOCIATION_COPY_NONATOMIC = 3,
  OBJC_ASSOCIATION_RETAIN = 01401,
  OBJC_ASSOCIATION_COPY = 01403
};

/// Associates `value` with `object` under the address `key`, in place of the one before; nil takes that away. What is
/// associated is released when the object is deallocated. Any thread.
OBJC_EXPORT void objc_setAssociatedObject(id object, const void* key, id value, objc_AssociationPolicy policy);
/// nil when there is none. Any thread.
OBJC_EXPORT id objc_getAssociatedObject(id object, const void* key);
/// Takes all away, also what others associated. Any thread.
OBJC_EXPORT void objc_removeAssociatedObjects(id object);
