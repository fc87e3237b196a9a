#import "ReplaceMethod.h"

#include <objc/runtime.h>

#include <utility>

/// Of GCC's runtime: makes the tables by which the class and its subclasses find methods anew, if they have any.
extern "C" void __objc_update_dispatch_table_for_class(Class changed);

namespace {

/// What GCC's runtime keeps of a method.
struct MethodEntry {
  SEL selector;
  const char *types;
  IMP implementation;
};

}  // namespace

IMP sim::replaceMethod(Class owner, SEL selector, IMP implementation) {
  Method method = class_getInstanceMethod(owner, selector);
  if (!method) return nullptr;
  IMP former = std::exchange(reinterpret_cast<MethodEntry *>(method)->implementation, implementation);
  Class implementing = owner;
  while (class_getInstanceMethod(class_getSuperclass(implementing), selector) == method) {
    implementing = class_getSuperclass(implementing);
  }
  __objc_update_dispatch_table_for_class(implementing);
  return former;
}
