#import <CoreFoundation/CFNotificationCenter+Sim.h>
#import <CoreFoundation/CFNotificationCenter.h>
#import <dispatch/dispatch.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace {

struct Observation {
  std::uint64_t number;  // Tells an observation from a later equal one.
  const void *observer;  // not owned
  CFNotificationCallback callback;
  objcxx::Retained<NSString> name;
};

struct Center {
  std::vector<Observation> observations;
  std::uint64_t last = 0;
  SIMDarwinPostHandler handler = nullptr;
  void *context = nullptr;

  /// Calls the observations of `name` that were made up to the one numbered `newest`.
  void deliver(NSString *name, std::uint64_t newest);
};

Center &center() {
  static Center *only = new Center;  // Lives as long as the process: posts may come while it ends.
  return *only;
}

CFNotificationCenterRef reference() { return reinterpret_cast<CFNotificationCenterRef>(&center()); }

void Center::deliver(NSString *name, std::uint64_t newest) {
  std::vector<std::uint64_t> due;
  for (const auto &each : observations) {
    if (each.number <= newest && [each.name.get() isEqualToString:name]) due.push_back(each.number);
  }
  for (const auto number : due) {  // A callback may add and remove observations, its own and others'.
    const auto found = std::find_if(observations.begin(), observations.end(),
                                    [&](const Observation &each) { return each.number == number; });
    if (found == observations.end()) continue;
    const auto observation = *found;
    observation.callback(reference(), const_cast<void *>(observation.observer), (CFNotificationName)name, nullptr,
                         nullptr);
  }
}

}  // namespace

CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter(void) { return reference(); }

void CFNotificationCenterPostNotification(CFNotificationCenterRef target, CFNotificationName name, const void *,
                                          CFDictionaryRef, Boolean) {
  if (target != reference() || !name) {
    NSLog(@"CFNotificationCenterPostNotification was called without a %@.", name ? @"centre" : @"name");
    return;
  }
  NSString *posted = [[(NSString *)name copy] autorelease];
  if (center().handler) center().handler(posted, center().context);
  const auto newest = center().last;
  dispatch_async(dispatch_get_main_queue(), ^{
    center().deliver(posted, newest);
  });
}

void CFNotificationCenterAddObserver(CFNotificationCenterRef target, const void *observer,
                                     CFNotificationCallback callback, CFStringRef name, const void *,
                                     CFNotificationSuspensionBehavior) {
  if (target != reference() || !callback || !name) {
    NSLog(@"CFNotificationCenterAddObserver was called without a %@.", !name       ? @"name"
                                                                       : !callback ? @"callback"
                                                                                   : @"centre");
    return;
  }
  center().observations.push_back(
      {++center().last, observer, callback, objcxx::adopt((NSString *)[(NSString *)name copy])});
}

void CFNotificationCenterRemoveObserver(CFNotificationCenterRef target, const void *observer, CFNotificationName name,
                                        const void *) {
  if (target != reference()) return;
  std::erase_if(center().observations, [&](const Observation &each) {
    return each.observer == observer && (!name || [each.name.get() isEqualToString:(NSString *)name]);
  });
}

void CFNotificationCenterRemoveEveryObserver(CFNotificationCenterRef target, const void *observer) {
  CFNotificationCenterRemoveObserver(target, observer, nullptr, nullptr);
}

void SIMSetDarwinPostHandler(SIMDarwinPostHandler handler, void *context) {
  center().handler = handler;
  center().context = context;
}
