// The living objects of a class, for references that own nothing: what is referred to takes itself out of them all.
#pragma once

#include <memory>
#include <unordered_set>

namespace sim {

/// The objects of class T that have entered themselves; each leaves in its -dealloc. Main thread only.
template <typename T>
std::unordered_set<T*>& living() {
  static auto& all = *std::make_unique<std::unordered_set<T*>>().release();  // Objects go while the process ends.
  return all;
}

}  // namespace sim
