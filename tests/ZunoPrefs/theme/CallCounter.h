// What the bundle's code sends to the framework's own methods, where nothing else shows it.
#pragma once

#import <UIKit/UIKit.h>

#include <string>

#include "support/objc/MethodSpy.h"

namespace testing_support {

/// Counts the calls of one method of a class for as long as it lives. For methods without a result and with at most one
/// argument, an object or a whole number.
class CallCounter final {
 public:
  CallCounter(Class owner, SEL selector) : spy_(owner, selector, [this](id, NSInteger) { ++calls_; }) {}

  int calls() const { return calls_; }

 private:
  int calls_ = 0;
  MethodSpy<NSInteger> spy_;
};

/// Notes what pages present for as long as it lives, as it is at that moment: the class of each, the last action of an
/// alert, and "on the full screen" and "animated" where that is so.
class Presentations final {
 public:
  Presentations();

  /// What has been presented since the last call, joined by ", ".
  std::string take() const;

 private:
  mutable std::string seen_;
  MethodSpy<UIViewController *, BOOL, void (^)(void)> spy_;
};

}  // namespace testing_support
