#include "ObjectiveC.hpp"

#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include "PointerAuthentication.hpp"

namespace device_test {
namespace {

constexpr Schema kIsa{Key::kDA, 0x6ae1, true};
constexpr Schema kSuperclass{Key::kDA, 0xb5ab, true};
constexpr Schema kClassData{Key::kDA, 0x61f8, true};
constexpr Schema kMethodList{Key::kDA, 0xc310, true};
constexpr Schema kImplementation{Key::kIA, 0, true};
constexpr std::uint64_t kDataFlags = 7;  // The low bits of the pointer to the class's data.
constexpr std::uint32_t kIsMeta = 1;

struct Class {
  std::uint64_t isa, superclass, cache, mask, data;
};

struct ClassData {
  std::uint32_t flags, start, size, reserved;
  std::uint64_t layout;
  const char* name;
  std::uint64_t methods;
};

struct Method {
  const char* name;
  const char* types;
  std::uint64_t implementation;
};

struct MethodList {
  std::uint32_t size, count;  // The low two bits of the size are flags; the high bit stands for another form of list.
  Method methods[];
};

struct Category {
  const char* name;
  const Class* extended;
  std::uint64_t instanceMethods, classMethods;
};

struct ConstantString {
  std::uint64_t isa, flags;
  const char* text;
  std::uint64_t length;
};

/// The pointer without its signature. Ends the process when that is wrong.
template <typename Type>
Type* checked(const std::uint64_t& place, Schema schema, const std::string& what) {
  const auto pointer = authenticated(place, schema, &place);
  if (pointer != stripped(pointer) || pointer != stripped(place)) fail(what + " has a wrong signature");
  return reinterpret_cast<Type*>(pointer);
}

// MARK: Stand-in classes

using Implementation = void (*)();

/// A class of the platform with its metaclass, which share a name.
struct StandIn {
  std::string name;
  Class itself{}, meta{};
};

struct Runtime {
  std::map<std::string, std::unique_ptr<StandIn>> classes;
  std::vector<const Category*> categories;
  const Image* image = nullptr;
};
Runtime runtime;

const ConstantString* asConstantString(const void* object);

std::uint64_t signedAt(const void* pointer, Schema schema, const std::uint64_t& place) {
  return sign(reinterpret_cast<std::uint64_t>(pointer), schema, &place);
}

StandIn& standIn(const std::string& name) {
  auto& found = runtime.classes[name];
  if (!found) {
    found = std::make_unique<StandIn>();
    found->name = name;
    found->itself.isa = signedAt(&found->meta, kIsa, found->itself.isa);
    found->meta.isa = signedAt(&found->meta, kIsa, found->meta.isa);
  }
  return *found;
}

/// The stand-in whose class or metaclass this is, or null.
const StandIn* standInOf(const Class* known) {
  for (const auto& [name, each] : runtime.classes) {
    if (known == &each->itself || known == &each->meta) return each.get();
  }
  return nullptr;
}

bool isInImage(const void* address) { return runtime.image->contains(reinterpret_cast<std::uint64_t>(address)); }

// MARK: Classes of the image

const ClassData& dataOf(const Class& known, const std::string& name) {
  const auto* data = checked<const char>(known.data, kClassData, "the data of " + name);
  const auto* result = reinterpret_cast<const ClassData*>(reinterpret_cast<std::uint64_t>(data) & ~kDataFlags);
  if (!isInImage(result)) fail("the data of " + name + " lies outside of the slice");
  return *result;
}

std::string nameOf(const Class& known) {
  if (const auto* found = standInOf(&known)) return found->name;
  const auto& data = dataOf(known, "a class");
  return std::string(data.flags & kIsMeta ? "+" : "") + data.name;
}

const MethodList* methodsOf(const std::uint64_t& place, const std::string& owner) {
  if (place == 0) return nullptr;
  const auto* list = checked<const MethodList>(place, kMethodList, "the method list of " + owner);
  if (!isInImage(list)) fail("the method list of " + owner + " lies outside of the slice");
  if ((list->size & ~3u) != sizeof(Method)) fail("the method list of " + owner + " has another form");
  return list;
}

void check(const MethodList* list, const std::string& owner) {
  for (std::uint32_t i = 0; list && i < list->count; ++i) {
    const auto& method = list->methods[i];
    const auto what = "the code of " + owner + " " + method.name;
    if (!isInImage(checked<void>(method.implementation, kImplementation, what)))
      fail(what + " lies outside of the slice");
  }
}

void check(const Class& known) {
  const auto name = nameOf(known);
  const auto* isa = checked<const Class>(known.isa, kIsa, "the isa of " + name);
  if (!isInImage(isa) && !standInOf(isa)) fail("the isa of " + name + " is no class");
  const auto* superclass = checked<const Class>(known.superclass, kSuperclass, "the superclass of " + name);
  if (!isInImage(superclass) && !standInOf(superclass)) fail("the superclass of " + name + " is no class");
  check(methodsOf(dataOf(known, name).methods, name), name);
}

const ConstantString* asConstantString(const void* object) {
  const auto strings = runtime.image->section("__DATA_CONST", "__cfstring");
  const auto* bytes = static_cast<const std::uint8_t*>(object);
  if (bytes < strings.data() || bytes >= strings.data() + strings.size()) return nullptr;
  const auto* string = static_cast<const ConstantString*>(object);
  if (checked<Class>(string->isa, kIsa, "a constant string") != &standIn("__CFConstantString").itself)
    fail("a constant string is of another class");
  return string;
}

template <typename Type>
std::span<const Type> contentsOf(const Image& image, const char* segment, const char* section) {
  const auto bytes = image.section(segment, section);
  return {reinterpret_cast<const Type*>(bytes.data()), bytes.size() / sizeof(Type)};
}

// MARK: Objects

/// An object of the platform; the image only passes it on.
struct Object {
  std::uint64_t isa = 0;
  std::string described;
};

Object* makeObject(const std::string& className, std::string described) {
  auto* object = new Object;
  object->isa = signedAt(&standIn(className).itself, kIsa, object->isa);
  object->described = std::move(described);
  return object;
}

std::string describe(const void* object) {
  if (!object) return "nil";
  if (const auto* string = asConstantString(object)) return std::string(string->text, string->length);
  return static_cast<const Object*>(object)->described;
}

std::string joined(const std::vector<std::string>& texts) {
  std::string result;
  for (const auto& text : texts) result += (result.empty() ? "" : ", ") + text;
  return result;
}

Object* numberWithInt(void*, const char*, int number) { return makeObject("NSNumber", decimal(number)); }

Object* numberWithFloat(void*, const char*, float number) {
  char text[64];
  std::snprintf(text, sizeof text, "%.1f", static_cast<double>(number));
  return makeObject("NSNumber", text);
}

Object* arrayWithObjects(void*, const char*, const void* const* objects, std::uint64_t count) {
  std::vector<std::string> texts;
  for (std::uint64_t i = 0; i < count; ++i) texts.push_back(describe(objects[i]));
  return makeObject("NSArray", "[" + joined(texts) + "]");
}

Object* dictionaryWithObjects(void*, const char*, const void* const* objects, const void* const* keys,
                              std::uint64_t count) {
  std::map<std::string, std::string> entries;
  for (std::uint64_t i = 0; i < count; ++i) entries[describe(keys[i])] = describe(objects[i]);
  std::vector<std::string> texts;
  for (const auto& [key, value] : entries) texts.push_back(key + ": " + value);
  return makeObject("NSDictionary", "{" + joined(texts) + "}");
}

void* same(void* object) { return object; }

const std::map<std::string, Implementation>& standInMethods() {
  static const std::map<std::string, Implementation> methods = {
      {"+[NSNumber numberWithInt:]", reinterpret_cast<Implementation>(numberWithInt)},
      {"+[NSNumber numberWithFloat:]", reinterpret_cast<Implementation>(numberWithFloat)},
      {"+[NSArray arrayWithObjects:count:]", reinterpret_cast<Implementation>(arrayWithObjects)},
      {"+[NSDictionary dictionaryWithObjects:forKeys:count:]", reinterpret_cast<Implementation>(dictionaryWithObjects)},
      {"-[NSDictionary retain]", reinterpret_cast<Implementation>(same)},
  };
  return methods;
}

// MARK: Messages

const Method* find(const MethodList* list, const char* selector) {
  for (std::uint32_t i = 0; list && i < list->count; ++i) {
    if (std::strcmp(list->methods[i].name, selector) == 0) return &list->methods[i];
  }
  return nullptr;
}

}  // namespace

/// The code of a method, found as the runtime finds it: from the receiver's isa up, categories first.
extern "C" std::uint64_t device_test_lookup(const std::uint64_t* receiver, const char* selector) {
  if (asConstantString(receiver)) fail(std::string("a constant string is sent ") + selector);
  const auto* known = checked<const Class>(*receiver, kIsa, std::string("the isa of the receiver of ") + selector);
  while (true) {
    if (const auto* found = standInOf(known)) {
      const auto name = std::string(known == &found->meta ? "+[" : "-[") + found->name + " " + selector + "]";
      const auto& methods = standInMethods();
      const auto method = methods.find(name);
      if (method == methods.end()) fail("nothing stands in for " + name);
      return reinterpret_cast<std::uint64_t>(method->second);
    }
    const auto name = nameOf(*known);
    const auto& data = dataOf(*known, name);
    const Method* method = nullptr;
    for (const auto* category : runtime.categories) {
      const bool isMeta = data.flags & kIsMeta;
      const auto* extended = category->extended;
      if (isMeta) extended = checked<const Class>(extended->isa, kIsa, "the isa of " + name);
      if (extended != known) continue;
      const auto& place = isMeta ? category->classMethods : category->instanceMethods;
      if ((method = find(methodsOf(place, name), selector))) break;
    }
    if (!method) method = find(methodsOf(data.methods, name), selector);
    if (method) {
      const auto what = "the code of " + name + " " + selector;
      return reinterpret_cast<std::uint64_t>(checked<void>(method->implementation, kImplementation, what));
    }
    known = checked<const Class>(known->superclass, kSuperclass, "the superclass of " + name);
  }
}

// objc_msgSend: keeps every register that may hold an argument, and goes on to the method.
asm(R"(
  .text
  .p2align 2
device_test_message_send:
  cbz x0, 1f
  stp x29, x30, [sp, #-16]!
  mov x29, sp
  stp q6, q7, [sp, #-32]!
  stp q4, q5, [sp, #-32]!
  stp q2, q3, [sp, #-32]!
  stp q0, q1, [sp, #-32]!
  stp x8, xzr, [sp, #-16]!
  stp x6, x7, [sp, #-16]!
  stp x4, x5, [sp, #-16]!
  stp x2, x3, [sp, #-16]!
  stp x0, x1, [sp, #-16]!
  bl device_test_lookup
  mov x16, x0
  ldp x0, x1, [sp], #16
  ldp x2, x3, [sp], #16
  ldp x4, x5, [sp], #16
  ldp x6, x7, [sp], #16
  ldp x8, xzr, [sp], #16
  ldp q0, q1, [sp], #32
  ldp q2, q3, [sp], #32
  ldp q4, q5, [sp], #32
  ldp q6, q7, [sp], #32
  ldp x29, x30, [sp], #16
  br x16
1:
  ret
)");
extern "C" void* device_test_message_send(const void* receiver, const char* selector);

std::map<std::string, std::uint64_t> objectiveCStandIns() {
  runtime = {};
  static std::uint64_t emptyCache[4] = {};
  return {
      {"_objc_msgSend", reinterpret_cast<std::uint64_t>(device_test_message_send)},
      {"_objc_retain", reinterpret_cast<std::uint64_t>(same)},
      {"__objc_empty_cache", reinterpret_cast<std::uint64_t>(emptyCache)},
      {"___CFConstantStringClassReference", reinterpret_cast<std::uint64_t>(&standIn("__CFConstantString").itself)},
  };
}

std::uint64_t standInClass(const std::string& symbol) {
  for (const auto* prefix : {"_OBJC_CLASS_$_", "_OBJC_METACLASS_$_"}) {
    if (!symbol.starts_with(prefix)) continue;
    auto& found = standIn(symbol.substr(std::strlen(prefix)));
    return reinterpret_cast<std::uint64_t>(prefix[6] == 'C' ? &found.itself : &found.meta);
  }
  return 0;
}

void registerClasses(const Image& image) {
  runtime.image = &image;
  for (const auto* known : contentsOf<const Class*>(image, "__DATA_CONST", "__objc_classlist")) {
    check(*known);
    check(*checked<const Class>(known->isa, kIsa, "the isa of " + nameOf(*known)));
  }
  for (const auto* category : contentsOf<const Category*>(image, "__DATA_CONST", "__objc_catlist")) {
    const auto name = std::string("the category ") + category->name;
    check(methodsOf(category->instanceMethods, name), name);
    check(methodsOf(category->classMethods, name), name);
    runtime.categories.push_back(category);
  }
  for (const auto& string : contentsOf<ConstantString>(image, "__DATA_CONST", "__cfstring")) asConstantString(&string);
}

std::string describedResult(const Image& image, std::string_view className, const char* selector) {
  const auto symbol = "_OBJC_CLASS_$_" + std::string(className);
  return describe(device_test_message_send(reinterpret_cast<const void*>(image.exported(symbol)), selector));
}

}  // namespace device_test
