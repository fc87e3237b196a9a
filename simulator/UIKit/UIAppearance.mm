// The proxies: what is told to them is kept, and told to the instances that they stand for.
#import <UIKit/UIAppearance+Sim.h>

#import "AppearanceMarks.h"

#import <Foundation/NotCarried.h>

#import <UIKit/UIBarItem.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewController.h>

#include <objc/runtime.h>
#include <objcxx/Retained.h>

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <optional>
#include <string>

namespace {

/// Whom a proxy stands for.
struct Audience {
  Class kind = Nil;
  std::vector<Class> containers;  ///< From the innermost out.
  objcxx::Retained<UITraitCollection> traits;

  bool operator==(const Audience &other) const {
    return kind == other.kind && containers == other.containers &&
           (traits.get() == other.traits.get() || [traits.get() isEqual:other.traits.get()]);
  }
};

/// "setTitleTextAttributes:forState:" is got by "titleTextAttributesForState:".
std::string getterOf(std::string setter) {
  setter = setter.substr(3);
  std::size_t colon = setter.find(':');
  setter[0] = static_cast<char>(std::tolower(setter[0]));
  setter.erase(colon, 1);
  if (colon < setter.size()) setter[colon] = static_cast<char>(std::toupper(setter[colon]));
  return setter;
}

bool isSetter(SEL selector, NSMethodSignature *signature) {
  const std::string_view name = sel_getName(selector);
  return name.starts_with("set") && name.size() > 4 && [signature numberOfArguments] > 2 &&
         *[signature methodReturnType] == 'v';
}

}  // namespace

/// What is sent to one becomes an invocation.
@interface SIMAppearanceProxy : NSObject {
 @public
  Audience _audience;
  std::vector<std::pair<std::string, objcxx::Retained<NSInvocation>>> _calls;  // By the value that each sets.
}
@end

@implementation SIMAppearanceProxy

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
  return [_audience.kind instanceMethodSignatureForSelector:selector] ?: [super methodSignatureForSelector:selector];
}

- (BOOL)respondsToSelector:(SEL)selector {
  return [super respondsToSelector:selector] || [_audience.kind instancesRespondToSelector:selector];
}

- (void)forwardInvocation:(NSInvocation *)call {
  const SEL selector = [call selector];
  if (![_audience.kind instancesRespondToSelector:selector]) return [self doesNotRecognizeSelector:selector];
  if (isSetter(selector, [call methodSignature])) return [self sim_take:call];
  if (*[[call methodSignature] methodReturnType] != 'v') return [self sim_answer:call];
  sim::notCarried([NSString stringWithFormat:@"%@ of an appearance proxy", NSStringFromSelector(selector)],
                  @"Proxies take setters and getters.");
}

- (void)sim_take:(NSInvocation *)call {
  sim::watchSetter(_audience.kind, [call selector]);
  const std::string key = sim::valueKey(call);
  std::erase_if(_calls, [&](const auto &each) { return each.first == key; });
  _calls.emplace_back(key, sim::copyOfCall(call));
}

/// A getter has the value that was set last; nothing where none was.
- (void)sim_answer:(NSInvocation *)call {
  std::string getter = sel_getName([call selector]);
  if (getter.starts_with("is") && getter.size() > 2 && std::isupper(getter[2])) {
    getter = static_cast<char>(std::tolower(getter[2])) + getter.substr(3);
  }
  const NSUInteger size = [[call methodSignature] methodReturnLength];
  std::vector<char> value(std::max<NSUInteger>(size, sizeof(long double)), 0);
  for (const auto &[key, set] : _calls) {
    if (getterOf(key.substr(0, key.find(' '))) != getter) continue;
    const NSUInteger axes = [[call methodSignature] numberOfArguments] - 2;
    bool isSame = [[set.get() methodSignature] numberOfArguments] == axes + 3;
    for (NSUInteger at = 0; at < axes && isSame; ++at) {
      std::uintptr_t wanted = 0, has = 0;
      NSUInteger width = 0;
      NSGetSizeAndAlignment([[call methodSignature] getArgumentTypeAtIndex:at + 2], &width, nullptr);
      if (width > sizeof(wanted)) return;
      [call getArgument:&wanted atIndex:static_cast<NSInteger>(at + 2)];
      [set.get() getArgument:&has atIndex:static_cast<NSInteger>(at + 3)];
      isSame = wanted == has;
    }
    if (isSame) [set.get() getArgument:value.data() atIndex:2];
  }
  if (size > 0) [call setReturnValue:value.data()];
}

@end

namespace {

using Proxies = std::vector<objcxx::Retained<SIMAppearanceProxy>>;

Proxies &proxies() {
  static auto *all = new Proxies;
  return *all;
}

id proxyFor(Audience audience) {
  for (const auto &each : proxies()) {
    if (each.get()->_audience == audience) return each.get();
  }
  const auto proxy = objcxx::adopt([[SIMAppearanceProxy alloc] init]);
  proxy.get()->_audience = std::move(audience);
  proxies().push_back(proxy);
  return proxy.get();
}

std::vector<Class> classesIn(NSArray *array) {
  std::vector<Class> classes;
  for (Class each in array) classes.push_back(each);
  return classes;
}

std::vector<Class> classesIn(Class first, va_list rest) {
  std::vector<Class> classes;
  for (Class each = first; each; each = va_arg(rest, Class)) classes.push_back(each);
  return classes;
}

NSUInteger depthOf(Class kind) {
  NSUInteger depth = 0;
  for (Class each = kind; each; each = class_getSuperclass(each)) ++depth;
  return depth;
}

/// How far from the window each container is met, the outermost first; nothing when they are not all there in order.
std::optional<std::vector<std::size_t>> placesOf(const std::vector<Class> &wanted, const sim::Containers &around) {
  std::vector<std::size_t> places;
  std::size_t at = 0;
  for (auto kind = wanted.rbegin(); kind != wanted.rend(); ++kind) {
    while (at < around.size() && ![around[around.size() - 1 - at] isKindOfClass:*kind]) ++at;
    if (at == around.size()) return std::nullopt;
    places.push_back(at++);
  }
  return places;
}

/// A proxy that stands for an instance, with what decides between several.
struct Match {
  SIMAppearanceProxy *proxy = nil;  // Not owned.
  NSUInteger depth = 0;             ///< Of the class.
  bool hasTraits = false;
  std::vector<std::size_t> places;

  /// Whether the other one's values go over this one's.
  bool yieldsTo(const Match &other) const {
    if (depth != other.depth) return depth < other.depth;
    if (hasTraits != other.hasTraits) return other.hasTraits;
    const std::size_t both = std::min(places.size(), other.places.size());
    for (std::size_t at = 0; at < both; ++at) {
      if (places[at] != other.places[at]) return places[at] > other.places[at];
    }
    return places.size() < other.places.size();
  }
};

}  // namespace

namespace sim {

bool hasAppearances() { return !proxies().empty(); }

Containers containersOf(UIView *view) {
  Containers around;
  for (UIResponder *next = [view nextResponder]; next; next = [next nextResponder]) {
    if ([next isKindOfClass:[UIView class]] || [next isKindOfClass:[UIViewController class]]) around.push_back(next);
  }
  return around;
}

void applyAppearance(NSObject *object, const Containers &around, UITraitCollection *traits) {
  std::vector<Match> matches;
  for (const auto &each : proxies()) {
    const Audience &audience = each.get()->_audience;
    if (![object isKindOfClass:audience.kind]) continue;
    if (audience.traits && ![traits containsTraitsInCollection:audience.traits.get()]) continue;
    if (auto places = placesOf(audience.containers, around)) {
      matches.push_back({each.get(), depthOf(audience.kind), bool(audience.traits), std::move(*places)});
    }
  }
  std::stable_sort(matches.begin(), matches.end(),
                   [](const Match &one, const Match &other) { return one.yieldsTo(other); });
  for (const Match &match : matches) {
    const auto calls = match.proxy->_calls;
    for (const auto &[key, call] : calls) play(call.get(), object);
  }
}

}  // namespace sim

// What the classes have that proxies stand for.
#define APPEARANCE_METHODS                                                                                        \
  +(instancetype)appearance {                                                                                     \
    return proxyFor({self, {}, {}});                                                                              \
  }                                                                                                               \
  +(instancetype)appearanceWhenContainedInInstancesOfClasses : (NSArray *)classes {                               \
    return proxyFor({self, classesIn(classes), {}});                                                              \
  }                                                                                                               \
  +(instancetype)appearanceForTraitCollection : (UITraitCollection *)traits {                                     \
    return proxyFor({self, {}, objcxx::share(traits)});                                                           \
  }                                                                                                               \
  +(instancetype)appearanceForTraitCollection : (UITraitCollection *)traits whenContainedInInstancesOfClasses     \
      : (NSArray *)classes {                                                                                      \
    return proxyFor({self, classesIn(classes), objcxx::share(traits)});                                           \
  }                                                                                                               \
  +(instancetype)appearanceWhenContainedIn : (Class)first, ... {                                                  \
    va_list rest;                                                                                                 \
    va_start(rest, first);                                                                                        \
    auto classes = classesIn(first, rest);                                                                        \
    va_end(rest);                                                                                                 \
    return proxyFor({self, std::move(classes), {}});                                                              \
  }                                                                                                               \
  +(instancetype)appearanceForTraitCollection : (UITraitCollection *)traits whenContainedIn : (Class)first, ... { \
    va_list rest;                                                                                                 \
    va_start(rest, first);                                                                                        \
    auto classes = classesIn(first, rest);                                                                        \
    va_end(rest);                                                                                                 \
    return proxyFor({self, std::move(classes), objcxx::share(traits)});                                           \
  }

@implementation UIView (UIAppearance)
APPEARANCE_METHODS
@end

@implementation UIBarItem (UIAppearance)
APPEARANCE_METHODS
@end
