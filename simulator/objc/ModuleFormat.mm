#include "ModuleFormat.hpp"

#include "Properties.hpp"

#include <objc/runtime.h>

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace sim {
namespace {

constexpr unsigned long kVersion = 8;           // Of the format that GCC's runtime reads.
constexpr std::uintptr_t kProtocolVersion = 2;  // Of the protocols in it.
constexpr std::uintptr_t kLastProtocolVersion = 15;
constexpr unsigned long kKindOfClass =
    3;  // The flags that tell a class from a metaclass; the others are the runtime's.

/// Classes of the newer format whose superclass nobody has loaded yet.
std::vector<ClassDefinition *> &waiting() {
  static auto *classes = new std::vector<ClassDefinition *>;
  return *classes;
}

using Sizes = std::unordered_map<std::string, long>;

bool waits(const void *definition) {
  return std::find(waiting().begin(), waiting().end(), definition) != waiting().end();
}

/// The size of an instance of the class `name`; none while that is not known.
std::optional<long> instanceSize(const char *name, const Sizes &arriving) {
  if (!name) return 0;
  if (const auto found = arriving.find(name); found != arriving.end()) return found->second;
  Class registered = objc_lookUpClass(name);
  if (!registered || waits(registered)) return std::nullopt;
  return static_cast<long>(class_getInstanceSize(registered));
}

/// Places the class's own instance variables behind those of its superclass, which take `start` bytes.
void layOut(ClassDefinition &definition, long start) {
  definition.instanceSize = start - definition.instanceSize;
  const int count = definition.ivars ? definition.ivars->count : 0;
  for (int index = 0; index < count; ++index) {
    int &offset = definition.ivars->all[index].offset;
    offset += static_cast<int>(start);
    if (definition.ivarOffsets) *definition.ivarOffsets[index] = offset;
  }
}

void layOutWaiting(Sizes &arriving) {
  for (bool progress = true; progress;) {
    progress = false;
    for (std::size_t index = 0; index < waiting().size();) {
      ClassDefinition *definition = waiting()[index];
      const auto start = instanceSize(definition->superclass, arriving);
      if (!start) {
        ++index;
        continue;
      }
      waiting().erase(waiting().begin() + static_cast<std::ptrdiff_t>(index));
      layOut(*definition, *start);
      arriving[definition->name] = definition->instanceSize;
      progress = true;
    }
  }
}

void setVersions(ProtocolList *list) {
  for (; list; list = list->next) {
    for (unsigned long index = 0; index < list->count; ++index) {
      ProtocolDefinition *protocol = list->all[index];
      if (!protocol || protocol->version == kProtocolVersion || protocol->version > kLastProtocolVersion) continue;
      protocol->version = kProtocolVersion;
      setVersions(protocol->protocols);
    }
  }
}

}  // namespace

bool prepareModule(Module &module) {
  const bool isNewer = module.version != kVersion;
  Definitions &definitions = *module.definitions;
  Sizes arriving;
  for (int index = 0; index < definitions.classCount; ++index) {
    auto *definition = static_cast<ClassDefinition *>(definitions.all[index]);
    if (isNewer) {
      definition->flags &= kKindOfClass;
      definition->metaclass->flags &= kKindOfClass;
      setVersions(definition->protocols);
      noteProperties(*definition);
    }
    if (isNewer && definition->instanceSize <= 0) {
      waiting().push_back(definition);
    } else {
      arriving[definition->name] = definition->instanceSize;
    }
  }
  layOutWaiting(arriving);
  if (!isNewer) return false;
  for (int index = 0; index < definitions.categoryCount; ++index) {
    setVersions(static_cast<CategoryDefinition *>(definitions.all[definitions.classCount + index])->protocols);
  }
  module.version = kVersion;
  module.size = sizeof(Module);
  return true;
}

}  // namespace sim
