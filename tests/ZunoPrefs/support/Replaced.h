// Watching the messages that the bundle sends to the platform.
#pragma once

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

namespace testing_support {

/// While it lives, the function `other` stands in the place of the method `name` of `owner`, which must have it; for a
/// class method `owner` is the metaclass. Main thread only.
template <typename Function>
class Replaced final {
 public:
  Replaced(Class owner, SEL name, Function *other)
      : method_(class_getInstanceMethod(owner, name)),
        original_(method_setImplementation(method_, reinterpret_cast<IMP>(reinterpret_cast<void *>(other)))) {}
  ~Replaced() { method_setImplementation(method_, original_); }
  Replaced(const Replaced &) = delete;
  Replaced &operator=(const Replaced &) = delete;

  /// What stood there before.
  Function *original() const { return reinterpret_cast<Function *>(reinterpret_cast<void *>(original_)); }

 private:
  Method method_;
  IMP original_;
};

}  // namespace testing_support

using testing_support::Replaced;
