#include "support/objc/MethodSpy.h"

/// Of GCC's runtime: makes the tables by which the class and its subclasses find methods anew.
extern "C" void __objc_update_dispatch_table_for_class(Class changed);

namespace testing_support {

IMP exchangeImplementation(Class owner, SEL selector, IMP implementation) {
  Method method = class_getInstanceMethod(owner, selector);
  if (!method) std::abort();
  const IMP former = method_setImplementation(method, implementation);
  // The runtime forgets subclasses that have a table of their own.
  Class implementing = owner;
  while (class_getInstanceMethod(class_getSuperclass(implementing), selector) == method) {
    implementing = class_getSuperclass(implementing);
  }
  __objc_update_dispatch_table_for_class(implementing);
  return former;
}

}  // namespace testing_support
