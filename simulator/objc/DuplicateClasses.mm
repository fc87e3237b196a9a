// Two files that define a class of one name, as on a device: the first one loaded keeps the name, the other one's class
// is there as well, under a name that only its own file uses, and a line in the log says so. GCC's runtime has one name
// for one class: a second definition leaves it with half a class, over which it ends the process.
//
// The functions below stand before those of the same names in GCC's runtime, as this library does before that one in
// the order in which the loader looks symbols up.
#import <Foundation/Foundation.h>

#import <Foundation/SIMLog.h>

#include <dlfcn.h>
#include <link.h>
#include <objc/runtime.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "IvarOffsets.hpp"
#include "ModuleFormat.hpp"

namespace {

using sim::CategoryDefinition;
using sim::ClassDefinition;
using sim::Definitions;
using sim::Module;

/// A class that has its name in its own file only.
struct PrivateClass {
  const void *start;  // The file's place in memory.
  const void *end;
  const char *name;
  Class found;
  const PrivateClass *next;
};

std::atomic<const PrivateClass *> privateClasses{nullptr};  // Only ever grows.

/// A loaded file: where it lies in memory, and its name.
class Image final {
 public:
  /// The file that holds `address`; none when that is no part of a file.
  explicit Image(const void *address) {
    dl_find_object found{};
    if (_dl_find_object(const_cast<void *>(address), &found) != 0) return;
    start_ = found.dlfo_map_start;
    end_ = found.dlfo_map_end;
    map_ = found.dlfo_link_map;
  }

  const void *start() const { return start_; }
  const void *end() const { return end_; }
  bool holds(const void *address) const { return address >= start_ && address < end_; }
  const char *file() const { return isLibrary() ? map_->l_name : "the program"; }

  /// Whether the file defines a class `name`, by the symbol that the compiler makes for each.
  bool definesClass(const char *name) const {
    if (!isLibrary()) return false;
    void *handle = dlopen(map_->l_name, RTLD_LAZY | RTLD_NOLOAD);
    if (!handle) return false;
    const bool defines = holds(dlsym(handle, ("__objc_class_name_" + std::string(name)).c_str()));
    dlclose(handle);
    return defines;
  }

  /// Whether the file's references to the class `name`, which it defines, lead to that and not to another file's.
  bool reachesClass(const char *name) const {
    const void *global = dlsym(RTLD_DEFAULT, ("_OBJC_CLASS_" + std::string(name)).c_str());
    return !global || holds(global) || isSymbolic();
  }

 private:
  bool isLibrary() const { return map_ && *map_->l_name; }

  /// Whether the file was linked with -Bsymbolic.
  bool isSymbolic() const {
    for (const ElfW(Dyn) *entry = map_->l_ld; entry->d_tag != DT_NULL; ++entry) {
      if (entry->d_tag == DT_SYMBOLIC || (entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_SYMBOLIC))) return true;
    }
    return false;
  }

  const void *start_ = nullptr;
  const void *end_ = nullptr;
  const link_map *map_ = nullptr;
};

template <typename Function>
Function *nextFunction(const char *name) {
  return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

/// The name for the runtime of the class `name` of `image` when another has that name. Lives as long as the process, as
/// the image does, which is what tells it from other files that had the same path.
const char *privateName(const Image &image, const char *name) {
  static auto *names = new std::set<std::string>;
  const auto place = std::to_string(reinterpret_cast<std::uintptr_t>(image.start()));
  return names->insert(std::string(name) + " in " + image.file() + " at " + place).first->c_str();
}

/// Which class `image` means by a name.
enum class Meaning { registered, own, ownOutOfReach };

Meaning meaningOf(const char *name, const Image &image) {
  const void *registered = objc_lookUpClass(name);
  if (!registered || image.holds(registered) || !image.definesClass(name)) return Meaning::registered;
  return image.reachesClass(name) ? Meaning::own : Meaning::ownOutOfReach;
}

/// What is told, and undone, when the runtime knows a module.
struct Duplicate {
  ClassDefinition *definition;  // Null: left out.
  const char *name;
  const char *firstFile;
};

void setName(ClassDefinition *definition, const char *name) {
  definition->name = name;
  definition->metaclass->name = name;
}

/// Takes the class or category at `index` out.
void leaveOut(Definitions &definitions, int index) {
  void **end = definitions.all + definitions.classCount + definitions.categoryCount + 1;
  std::move(definitions.all + index + 1, end, definitions.all + index);
  --(index < definitions.classCount ? definitions.classCount : definitions.categoryCount);
}

/// Gives the classes whose names are taken names of their own, also where other classes refer to them.
std::vector<Duplicate> renameClasses(Definitions &definitions, const Image &image) {
  std::vector<Duplicate> duplicates;
  for (int index = 0; index < definitions.classCount;) {
    auto *definition = static_cast<ClassDefinition *>(definitions.all[index]);
    const char *name = definition->name;
    const void *registered = objc_lookUpClass(name);
    const bool isReached = image.holds(definition);
    if (registered) duplicates.push_back({isReached ? definition : nullptr, name, Image(registered).file()});
    if (registered && !isReached) {
      // The loader has bound the file's references to the other class, and this is that one.
      leaveOut(definitions, index);
      continue;
    }
    if (registered) {
      setName(definition, privateName(image, name));
      privateClasses = new PrivateClass{image.start(), image.end(), name, reinterpret_cast<Class>(definition),
                                        privateClasses.load()};
    }
    const char *superclass = definition->superclass;
    if (superclass && meaningOf(superclass, image) == Meaning::own) {
      definition->superclass = privateName(image, superclass);
    }
    ++index;
  }
  return duplicates;
}

/// Has the categories extend the class that their file means.
void redirectCategories(Definitions &definitions, const Image &image) {
  for (int index = definitions.classCount; index < definitions.classCount + definitions.categoryCount;) {
    auto *category = static_cast<CategoryDefinition *>(definitions.all[index]);
    const Meaning meaning = meaningOf(category->className, image);
    if (meaning == Meaning::ownOutOfReach) {
      leaveOut(definitions, index);
      continue;
    }
    if (meaning == Meaning::own) category->className = privateName(image, category->className);
    ++index;
  }
}

/// The runtime has the class under its private name; everybody else sees the name that it was given.
void finish(const Duplicate &duplicate, const Image &image) {
  if (duplicate.definition) setName(duplicate.definition, duplicate.name);
  NSLog(@"objc: Class %s is implemented in both %s and %s. The one in %s is used.", duplicate.name, duplicate.firstFile,
        image.file(), duplicate.firstFile);
}

/// The class that the code at `caller` means by `name` when that is one of its own file's alone.
Class privateClass(const void *caller, const char *name) {
  for (const auto *each = privateClasses.load(std::memory_order_acquire); each; each = each->next) {
    if (caller >= each->start && caller < each->end && name && std::strcmp(each->name, name) == 0) return each->found;
  }
  return Nil;
}

}  // namespace

extern "C" {

/// Called by each module of a file when the file is loaded.
void __objc_exec_class(Module *module) {
  static auto *const next = nextFunction<void(Module *)>("__objc_exec_class");
  static std::recursive_mutex mutex;
  const std::lock_guard lock(mutex);
  const Image image(module);
  const auto duplicates = renameClasses(*module->definitions, image);
  redirectCategories(*module->definitions, image);
  if (sim::prepareModule(*module)) sim::fillIvarOffsets(module);
  next(module);
  for (const auto &duplicate : duplicates) finish(duplicate, image);
}

/// Compiled code finds the classes that it names with this one …
Class objc_lookup_class(const char *name) {
  static auto *const next = nextFunction<Class(const char *)>("objc_lookup_class");
  if (Class own = privateClass(__builtin_return_address(0), name)) return own;
  return next(name);
}

/// … and, in categories, the class and the metaclass to whose superclass a message goes with these.
Class objc_get_class(const char *name) {
  static auto *const next = nextFunction<Class(const char *)>("objc_get_class");
  if (Class own = privateClass(__builtin_return_address(0), name)) return own;
  return next(name);
}

Class objc_get_meta_class(const char *name) {
  static auto *const next = nextFunction<Class(const char *)>("objc_get_meta_class");
  if (Class own = privateClass(__builtin_return_address(0), name)) return object_getClass((id)own);
  return next(name);
}

}  // extern "C"
