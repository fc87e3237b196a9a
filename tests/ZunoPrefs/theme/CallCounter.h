// What the bundle's code sends to the framework's own methods, where nothing else shows it.
#pragma once

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <string>

namespace testing_support {

/// Counts the calls of one method of a class for as long as it lives; the method does what it did. For methods without a
/// result and with at most one argument, an object or a whole number. One at a time.
class CallCounter final {
 public:
  CallCounter(Class owner, SEL selector);
  ~CallCounter();
  CallCounter(const CallCounter &) = delete;
  CallCounter &operator=(const CallCounter &) = delete;

  int calls() const;

 private:
  Method method_;
};

/// Notes what pages present for as long as it lives: the class of each, and "animated". One at a time.
class Presentations final {
 public:
  Presentations();
  ~Presentations();
  Presentations(const Presentations &) = delete;
  Presentations &operator=(const Presentations &) = delete;

  /// What has been presented since the last call, joined by ", ".
  static std::string take();

 private:
  Method method_;
};

}  // namespace testing_support
