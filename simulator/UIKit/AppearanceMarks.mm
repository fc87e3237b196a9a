#import "AppearanceMarks.h"

#import <UIKit/FrameworkSupport.h>
#import "objc/ReplaceMethod.h"

#include <objc/runtime.h>
#include <objcxx/Retained.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

/// What is known of the values of an instance, associated with it.
@interface SIMAppearanceMarks : NSObject {
 @public
  std::set<std::string, std::less<>> set;     // By somebody.
  std::set<std::string, std::less<>> played;  // By a proxy.
}
@end

@implementation SIMAppearanceMarks
@end

namespace {

/// How many methods can be watched. A process has few.
constexpr std::size_t kMostWatched = 512;

const char kMarks = 0;
int systemSets = 0;
NSObject *playedTo = nil;  // Not owned: what a proxy sets a value of just now.

SIMAppearanceMarks *marksOf(NSObject *object, bool make) {
  auto *marks = static_cast<SIMAppearanceMarks *>(objc_getAssociatedObject(object, &kMarks));
  if (marks || !make) return marks;
  marks = [[[SIMAppearanceMarks alloc] init] autorelease];
  objc_setAssociatedObject(object, &kMarks, marks, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
  return marks;
}

/// How arguments of a method are handed on.
struct Arguments {
  int integers = 0;              ///< In registers of their kind.
  int fractions = 0;             ///< The same.
  bool isFourFractions = false;  ///< The first is a structure of four fractions.
  bool isHandedOn = true;
  std::vector<std::uintptr_t> axes;  ///< Which of their bits count, of each argument after the first.
};

constexpr int kMostIntegers = 4;
constexpr int kMostFractions = 4;

/// The types in a structure's encoding: of "{CGSize=dd}" the text "dd", of nested ones all of them.
std::string membersOf(std::string_view type) {
  std::string members;
  for (std::size_t at = 0; at < type.size(); ++at) {
    if (type[at] == '{') {
      at = type.find('=', at);
      if (at == std::string_view::npos) return "?";
    } else if (type[at] != '}') {
      members += type[at];
    }
  }
  return members;
}

bool isInteger(char type) { return std::strchr("@#:*^csilqCSILQB", type) != nullptr && type != '\0'; }

/// The type of an argument, without what is said beside it, such as const.
const char *typeAt(NSUInteger at, NSMethodSignature *signature) {
  const char *type = [signature getArgumentTypeAtIndex:at];
  while (*type != '\0' && std::strchr("rnNoORV", *type)) ++type;
  return type;
}

Arguments argumentsOf(NSMethodSignature *signature) {
  Arguments all;
  for (NSUInteger at = 2; at < [signature numberOfArguments]; ++at) {
    const char *type = typeAt(at, signature);
    NSUInteger size = 0;
    NSGetSizeAndAlignment(type, &size, nullptr);
    if (isInteger(*type)) {
      ++all.integers;
      if (at > 2)
        all.axes.push_back(size < sizeof(std::uintptr_t) ? (std::uintptr_t(1) << size * 8) - 1 : ~std::uintptr_t(0));
      continue;
    }
    const std::string members = *type == '{' ? membersOf(type) : std::string(type, 1);
    const bool isFractions = members.find_first_not_of('d') == std::string::npos || members == "f";
    if (at == 2 && isFractions && members.size() == 4) all.isFourFractions = true;
    else if (at == 2 && isFractions && members.size() <= 2) all.fractions += static_cast<int>(members.size());
    else all.isHandedOn = false;
  }
  const int mostIntegers = all.isFourFractions ? kMostIntegers - 1 : kMostIntegers;
  if (all.integers > mostIntegers || all.fractions > kMostFractions) all.isHandedOn = false;
  return all;
}

std::string keyOf(std::string_view name, const std::vector<std::uintptr_t> &axes) {
  std::string key(name);
  for (const std::uintptr_t axis : axes) key += ' ' + std::to_string(axis);
  return key;
}

/// A method that is watched.
struct Watched {
  Method method = nullptr;
  IMP former = nullptr;
  std::string name;
  Arguments arguments;
};

std::vector<Watched> &watched() {
  static auto *all = new std::vector<Watched>;
  return *all;
}

using Integers = std::array<std::uintptr_t, kMostIntegers>;

/// Notes a call. NO when it is the system's and a proxy has set the value: then that stays.
bool note(NSObject *object, const Watched &method, const Integers &integers) {
  if (object == playedTo) return true;
  const std::size_t first = static_cast<std::size_t>(method.arguments.integers) - method.arguments.axes.size();
  std::vector<std::uintptr_t> axes;
  for (std::size_t at = 0; at < method.arguments.axes.size(); ++at) {
    axes.push_back(integers[first + at] & method.arguments.axes[at]);
  }
  const std::string key = keyOf(method.name, axes);
  if (systemSets == 0) {
    marksOf(object, true)->set.insert(key);
    return true;
  }
  SIMAppearanceMarks *marks = marksOf(object, false);
  return !marks || !marks->played.contains(key);
}

struct FourFractions {
  double first, second, third, fourth;
};

/// In place of a watched method: one function for each, which hands on whatever is in the registers of arguments.
template <std::size_t Place>
void noteAndSet(NSObject *object, SEL setter, std::uintptr_t a, std::uintptr_t b, std::uintptr_t c, std::uintptr_t d,
                double w, double x, double y, double z) {
  const Watched &method = watched()[Place];
  const IMP former = method.former;
  if (!note(object, method, {a, b, c, d})) return;
  reinterpret_cast<decltype(&noteAndSet<Place>)>(reinterpret_cast<void *>(former))(object, setter, a, b, c, d, w, x, y,
                                                                                   z);
}

template <std::size_t Place>
void noteAndSetFour(NSObject *object, SEL setter, FourFractions value, std::uintptr_t a, std::uintptr_t b,
                    std::uintptr_t c) {
  const Watched &method = watched()[Place];
  const IMP former = method.former;
  if (!note(object, method, {a, b, c, 0})) return;
  reinterpret_cast<decltype(&noteAndSetFour<Place>)>(reinterpret_cast<void *>(former))(object, setter, value, a, b, c);
}

template <std::size_t... Places>
IMP functionAt(std::size_t place, bool isFourFractions, std::index_sequence<Places...>) {
  static const std::array<void *, sizeof...(Places)> kAny{reinterpret_cast<void *>(&noteAndSet<Places>)...};
  static const std::array<void *, sizeof...(Places)> kFour{reinterpret_cast<void *>(&noteAndSetFour<Places>)...};
  return reinterpret_cast<IMP>(isFourFractions ? kFour[place] : kAny[place]);
}

/// The integer in `call`, as wide as a register.
std::uintptr_t integerAt(NSInteger at, NSInvocation *call) {
  const char *type = typeAt(static_cast<NSUInteger>(at), [call methodSignature]);
  NSUInteger size = 0;
  NSGetSizeAndAlignment(type, &size, nullptr);
  std::uintptr_t value = 0;
  [call getArgument:&value atIndex:at];
  const int unused = static_cast<int>(sizeof(value) - size) * 8;
  if (unused == 0 || !std::strchr("csilq", *type)) return value;
  return static_cast<std::uintptr_t>(static_cast<std::intptr_t>(value << unused) >> unused);
}

/// Calls the method with the arguments of `call` in their registers: an invocation would keep the types of structures
/// for good.
void invoke(NSInvocation *call, NSObject *object) {
  NSMethodSignature *signature = [call methodSignature];
  const Arguments arguments = argumentsOf(signature);
  if (!arguments.isHandedOn) return [sim::copyOfCall(call).get() invokeWithTarget:object];

  Integers integers{};
  std::array<double, kMostFractions> fractions{};
  std::size_t next = 0;
  for (NSInteger at = 2; at < static_cast<NSInteger>([signature numberOfArguments]); ++at) {
    if (isInteger(*typeAt(static_cast<NSUInteger>(at), signature))) {
      integers[next++] = integerAt(at, call);
    } else {
      [call getArgument:fractions.data() atIndex:at];
    }
  }
  void *method = reinterpret_cast<void *>([object methodForSelector:[call selector]]);
  const auto [a, b, c, d] = integers;
  const auto [w, x, y, z] = fractions;
  if (arguments.isFourFractions) {
    reinterpret_cast<decltype(&noteAndSetFour<0>)>(method)(object, [call selector], { w, x, y, z }, a, b, c);
  } else {
    reinterpret_cast<decltype(&noteAndSet<0>)>(method)(object, [call selector], a, b, c, d, w, x, y, z);
  }
}

}  // namespace

namespace sim {

void watchSetter(Class owner, SEL setter) {
  Method method = class_getInstanceMethod(owner, setter);
  if (!method || watched().size() == kMostWatched) return;
  for (const Watched &each : watched()) {
    if (each.method == method) return;
  }
  const Arguments arguments = argumentsOf([owner instanceMethodSignatureForSelector:setter]);
  if (!arguments.isHandedOn) return;
  const std::size_t place = watched().size();
  watched().push_back({method, method_getImplementation(method), sel_getName(setter), arguments});
  (void)replaceMethod(owner, setter,
                      functionAt(place, arguments.isFourFractions, std::make_index_sequence<kMostWatched>()));
}

std::string valueKey(NSInvocation *call) {
  NSMethodSignature *signature = [call methodSignature];
  const Arguments arguments = argumentsOf(signature);
  std::vector<std::uintptr_t> axes;
  for (NSUInteger at = 3; at < [signature numberOfArguments] && arguments.isHandedOn; ++at) {
    std::uintptr_t value = 0;
    [call getArgument:&value atIndex:static_cast<NSInteger>(at)];
    axes.push_back(value & arguments.axes[at - 3]);
  }
  return keyOf(sel_getName([call selector]), axes);
}

objcxx::Retained<NSInvocation> copyOfCall(NSInvocation *call) {
  NSMethodSignature *signature = [call methodSignature];
  NSInvocation *copy = [NSInvocation invocationWithMethodSignature:signature];
  [copy setSelector:[call selector]];
  for (NSUInteger at = 2; at < [signature numberOfArguments]; ++at) {
    NSUInteger size = 0;
    NSGetSizeAndAlignment([signature getArgumentTypeAtIndex:at], &size, nullptr);
    std::vector<char> value(size);
    [call getArgument:value.data() atIndex:static_cast<NSInteger>(at)];
    [copy setArgument:value.data() atIndex:static_cast<NSInteger>(at)];
  }
  [copy retainArguments];
  return objcxx::share(copy);
}

void play(NSInvocation *call, NSObject *object) {
  const std::string key = valueKey(call);
  SIMAppearanceMarks *marks = marksOf(object, true);
  if (marks->set.contains(key)) return;
  marks->played.insert(key);
  NSObject *const former = std::exchange(playedTo, object);
  @try {
    invoke(call, object);
  } @finally {
    playedTo = former;
  }
}

bool isSetBySystem(NSObject *object) { return systemSets > 0 && object != playedTo; }

SystemSets::SystemSets() { ++systemSets; }
SystemSets::~SystemSets() { --systemSets; }

}  // namespace sim
