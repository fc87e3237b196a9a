// Weak references of classes that are compiled without ARC.
#pragma once

#import <Foundation/Foundation.h>
#include <objc/arc.h>

namespace sim {

/// Refers to an object without owning it, and to nil from the moment in which the last owner lets it go. `Object` is
/// the type as it is written for a variable: `id`, `id<Protocol>` or a pointer to a class. Any thread may let the
/// object go; one handle, one writer.
template <typename Object>
class Weak final {
 public:
  Weak() = default;
  ~Weak() { objc_destroyWeak(&object_); }
  Weak(const Weak&) = delete;
  Weak& operator=(const Weak&) = delete;
  Weak& operator=(Object object) {
    objc_storeWeak(&object_, object);
    return *this;
  }

  /// Autoreleased, so that it stays for as long as it is used.
  Object get() const { return static_cast<Object>(objc_loadWeak(&object_)); }
  operator Object() const { return get(); }

 private:
  mutable id object_ = nil;
};

}  // namespace sim
