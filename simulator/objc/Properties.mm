#include "Properties.hpp"

#include <objc/runtime.h>

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <unordered_map>

namespace sim {
namespace {

std::mutex &guard() {
  static auto *mutex = new std::mutex;
  return *mutex;
}

/// By the class, whose definition the runtime uses as it stands.
std::unordered_map<const void *, PropertyList *> &known() {
  static auto *lists = new std::unordered_map<const void *, PropertyList *>;
  return *lists;
}

PropertyList *propertiesOf(Class theClass) {
  const std::lock_guard lock(guard());
  const auto found = known().find((__bridge const void *)theClass);
  return found == known().end() ? nullptr : found->second;
}

const PropertyDefinition *definitionOf(objc_property_t property) {
  return reinterpret_cast<const PropertyDefinition *>(property);
}

objc_property_t handleOf(PropertyDefinition &definition) { return reinterpret_cast<objc_property_t>(&definition); }

constexpr std::size_t kHeadLength = 2;  // Of a name with attributes: the zero and the distance.

const char *nameOf(const PropertyDefinition &definition) {
  const char *text = definition.name;
  return text[0] == 0 ? text + static_cast<unsigned char>(text[1]) : text;
}

}  // namespace

void noteProperties(const ClassDefinition &definition) {
  if (!definition.properties) return;
  const std::lock_guard lock(guard());
  known()[&definition] = definition.properties;
}

}  // namespace sim

// In place of those of GCC's runtime, which find nothing.

const char *property_getName(objc_property_t property) {
  return property ? sim::nameOf(*sim::definitionOf(property)) : nullptr;
}

const char *property_getAttributes(objc_property_t property) {
  if (!property) return nullptr;
  const char *text = sim::definitionOf(property)->name;
  return text[0] == 0 ? text + sim::kHeadLength : "";
}

objc_property_t *class_copyPropertyList(Class theClass, unsigned int *count) {
  std::size_t found = 0;
  sim::PropertyList *const first = theClass ? sim::propertiesOf(theClass) : nullptr;
  for (const sim::PropertyList *list = first; list; list = list->next) found += static_cast<std::size_t>(list->count);
  if (count) *count = static_cast<unsigned int>(found);
  if (found == 0) return nullptr;
  auto *all = static_cast<objc_property_t *>(std::calloc(found + 1, sizeof(objc_property_t)));
  if (!all) std::abort();
  objc_property_t *next = all;
  for (sim::PropertyList *list = first; list; list = list->next) {
    for (int index = 0; index < list->count; ++index) *next++ = sim::handleOf(list->all[index]);
  }
  return all;
}

objc_property_t class_getProperty(Class theClass, const char *name) {
  if (!name) return nullptr;
  for (; theClass; theClass = class_getSuperclass(theClass)) {
    for (sim::PropertyList *list = sim::propertiesOf(theClass); list; list = list->next) {
      for (int index = 0; index < list->count; ++index) {
        if (std::strcmp(sim::nameOf(list->all[index]), name) == 0) return sim::handleOf(list->all[index]);
      }
    }
  }
  return nullptr;
}
