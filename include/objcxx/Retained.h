// Ownership of Objective-C objects under manual retain/release. Used from Objective-C++ only.
#pragma once

#import <Foundation/Foundation.h>

#include <cstddef>
#include <utility>

namespace objcxx {

/// Owns one reference to an Objective-C object.
///
/// T is the class, not the pointer (`id` is `Retained<NSObject>`). No constructor takes a raw pointer on purpose:
/// `adopt(x)` when you own a +1 (alloc, copy, new), `share(x)` when it was lent at +0. nil is fine everywhere.
/// Threads: one handle, one writer.
template <typename T>
class [[nodiscard]] Retained final {
 public:
  Retained() noexcept = default;
  Retained(std::nullptr_t) noexcept {}
  Retained(const Retained &other) noexcept : object_([other.object_ retain]) {}
  Retained(Retained &&other) noexcept : object_(std::exchange(other.object_, nil)) {}
  ~Retained() { [object_ release]; }
  Retained &operator=(Retained other) noexcept {  // Copy or move; safe against self and against re-entrant release.
    std::swap(object_, other.object_);
    return *this;
  }

  /// A borrowed look; ownership stays here.
  T *get() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nil; }
  /// Ends this handle's ownership and gives the object at +0, for `return handle.autoreleased();`.
  T *autoreleased() noexcept { return [std::exchange(object_, nil) autorelease]; }

  template <typename U>
  friend Retained<U> adopt(U *object) noexcept;
  template <typename U>
  friend Retained<U> share(U *object) noexcept;

 private:
  explicit Retained(T *owned) noexcept : object_(owned) {}
  T *object_ = nil;
};

/// Takes over the +1 that the caller owns.
template <typename U>
[[nodiscard]] Retained<U> adopt(U *object) noexcept {
  return Retained<U>(object);
}

/// Adds a reference of its own to an object that the caller was lent.
template <typename U>
[[nodiscard]] Retained<U> share(U *object) noexcept {
  return Retained<U>([object retain]);
}

}  // namespace objcxx
