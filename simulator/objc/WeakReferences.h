// Who refers weakly to an object, so that they see nil from the moment in which its last owner lets it go.
#pragma once

#import <Foundation/Foundation.h>

#include <mutex>

namespace sim::WeakReferences {

/// Held while a reference to an object is given up, so that nobody takes a new one from a weak reference meanwhile.
/// Does nothing for objects to which nobody refers weakly.
class ReleaseGuard final {
 public:
  explicit ReleaseGuard(const void* object);

  bool isReferenced() const { return lock_.owns_lock(); }
  /// Sets the references to nil. To be called when the object is about to be deallocated.
  void forget() const;

 private:
  const void* object_;
  std::unique_lock<std::recursive_mutex> lock_;
};

}  // namespace sim::WeakReferences
