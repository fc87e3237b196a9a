// Finds what knows an object's class.
#pragma once

#import <Foundation/Foundation.h>

#include <objc/runtime.h>

#include <initializer_list>
#include <unordered_map>

namespace sim {

/// Adapters by the class that each is for, which its function `kind` gives. An object's is that of its own class, else
/// of the nearest superclass that has one, in whatever order they were listed. Main thread only.
template <typename Adapter>
class AdapterTable final {
 public:
  /// The adapters are not owned and outlive the table.
  AdapterTable(std::initializer_list<const Adapter *> adapters) {
    for (const Adapter *adapter : adapters) adapters_.emplace(adapter->kind(), adapter);
  }

  /// nullptr for nil, and for an object of no such class.
  const Adapter *of(id object) const {
    for (Class kind = [object class]; kind; kind = class_getSuperclass(kind)) {
      if (const auto found = adapters_.find(kind); found != adapters_.end()) return found->second;
    }
    return nullptr;
  }

 private:
  std::unordered_map<Class, const Adapter *> adapters_;
};

}  // namespace sim
