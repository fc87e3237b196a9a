// Watches calls of a method that leave no trace, such as those of the superclass's by a class in a bundle.
#pragma once

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace testing_support {

/// Gives `selector`, as `owner` or one of its superclasses implements it, another implementation. Returns the former.
IMP exchangeImplementation(Class owner, SEL selector, IMP implementation);

/// While it lives, calls `seen` with the receiver and the arguments before each call of `selector` as `owner` or one of
/// its superclasses implements it, on any object. The method returns nothing and takes `Arguments`. At most one spy at
/// a time for a selector: a second one ends the program, as does a selector that nobody implements. Main thread only.
template <typename... Arguments>
class MethodSpy final {
 public:
  using Seen = std::function<void(id receiver, Arguments... arguments)>;

  MethodSpy(Class owner, SEL selector, Seen seen) : owner_(owner), selector_(selector), seen_(std::move(seen)) {
    if (!spies().emplace(sel_getName(selector), this).second) std::abort();
    original_ = exchangeImplementation(owner, selector, reinterpret_cast<IMP>(reinterpret_cast<void*>(&called)));
  }
  ~MethodSpy() {
    exchangeImplementation(owner_, selector_, original_);
    spies().erase(sel_getName(selector_));
  }
  MethodSpy(const MethodSpy&) = delete;
  MethodSpy& operator=(const MethodSpy&) = delete;

 private:
  static std::map<std::string, MethodSpy*>& spies() {
    static std::map<std::string, MethodSpy*> spies;
    return spies;
  }

  static void called(id receiver, SEL selector, Arguments... arguments) {
    const MethodSpy& spy = *spies().at(sel_getName(selector));
    spy.seen_(receiver, arguments...);
    const auto original = reinterpret_cast<void (*)(id, SEL, Arguments...)>(reinterpret_cast<void*>(spy.original_));
    original(receiver, selector, arguments...);
  }

  Class owner_;
  SEL selector_;
  Seen seen_;
  IMP original_ = nullptr;
};

}  // namespace testing_support

using testing_support::MethodSpy;
