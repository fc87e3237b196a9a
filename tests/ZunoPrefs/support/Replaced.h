// Standing in for a method of the platform that gives a result; `MethodSpy` watches those that give none.
#pragma once

#include "support/objc/MethodSpy.h"

namespace testing_support {

/// While it lives, the function `other` stands in the place of the method `name`, as `owner` or one of its superclasses
/// implements it; for a class method `owner` is the metaclass. Main thread only.
template <typename Function>
class Replaced final {
 public:
  Replaced(Class owner, SEL name, Function* other)
      : owner_(owner),
        name_(name),
        original_(exchangeImplementation(owner, name, reinterpret_cast<IMP>(reinterpret_cast<void*>(other)))) {}
  ~Replaced() { exchangeImplementation(owner_, name_, original_); }
  Replaced(const Replaced&) = delete;
  Replaced& operator=(const Replaced&) = delete;

  /// What stood there before.
  Function* original() const { return reinterpret_cast<Function*>(reinterpret_cast<void*>(original_)); }

 private:
  Class owner_;
  SEL name_;
  IMP original_;
};

}  // namespace testing_support

using testing_support::Replaced;
