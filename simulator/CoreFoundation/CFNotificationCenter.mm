#import <CoreFoundation/CFNotificationCenter+Sim.h>
#import <CoreFoundation/CFNotificationCenter.h>
#import <dispatch/dispatch.h>
#import <notify.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <cstdint>
#include <mutex>
#include <vector>

namespace {

struct Observation {
  std::uint64_t number;  // Tells an observation from a later equal one.
  const void *observer;  // not owned
  CFNotificationCallback callback;
  objcxx::Retained<NSString> name;
};

struct Center {
  std::mutex mutex;  // of what follows
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
  {
    const std::lock_guard lock(mutex);
    for (const auto &each : observations) {
      if (each.number <= newest && [each.name.get() isEqualToString:name]) due.push_back(each.number);
    }
  }
  for (const auto number : due) {  // A callback may add and remove observations, its own and others'.
    Observation observation{};
    {
      const std::lock_guard lock(mutex);
      const auto found = std::find_if(observations.begin(), observations.end(),
                                      [&](const Observation &each) { return each.number == number; });
      if (found == observations.end()) continue;
      observation = *found;
    }
    observation.callback(reference(), const_cast<void *>(observation.observer), (CFNotificationName)name, nullptr,
                         nullptr);
  }
}

}  // namespace

/// An observation in the local centre, which Foundation's keeps.
@interface SIMLocalObservation : NSObject {
 @public
  const void *observer;  // not owned
  CFNotificationCallback callback;
  NSString *name;
  const void *object;  // not owned
}
@end

@implementation SIMLocalObservation

- (void)received:(NSNotification *)notification {
  callback(CFNotificationCenterGetLocalCenter(), const_cast<void *>(observer), (CFNotificationName)[notification name],
           (const void *)[notification object], (CFDictionaryRef)[notification userInfo]);
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [name release];
  [super dealloc];
}

@end

namespace {

/// Under its own lock.
NSMutableArray *localObservations() {
  static NSMutableArray *observations = [[NSMutableArray alloc] init];
  return observations;
}

CFNotificationCenterRef localReference() {
  return reinterpret_cast<CFNotificationCenterRef>([NSNotificationCenter defaultCenter]);
}

void observeLocally(const void *observer, CFNotificationCallback callback, NSString *name, const void *object) {
  SIMLocalObservation *made = [[[SIMLocalObservation alloc] init] autorelease];
  made->observer = observer;
  made->callback = callback;
  made->name = [name copy];
  made->object = object;
  @synchronized(localObservations()) {
    [localObservations() addObject:made];
  }
  [[NSNotificationCenter defaultCenter] addObserver:made selector:@selector(received:) name:name object:(id)object];
}

/// Whether a removal that names `name` and `object`, or none, means this observation.
bool isMeant(SIMLocalObservation *each, const void *observer, NSString *name, const void *object) {
  return each->observer == observer && (!name || [each->name isEqualToString:name]) &&
         (!object || each->object == object);
}

void endLocally(const void *observer, NSString *name, const void *object) {
  NSMutableArray *ended = [NSMutableArray array];
  @synchronized(localObservations()) {
    for (SIMLocalObservation *each in localObservations()) {
      if (isMeant(each, observer, name, object)) [ended addObject:each];
    }
    [localObservations() removeObjectsInArray:ended];
  }
  for (SIMLocalObservation *each in ended) [[NSNotificationCenter defaultCenter] removeObserver:each];
}

}  // namespace

CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter(void) { return reference(); }

CFNotificationCenterRef CFNotificationCenterGetLocalCenter(void) { return localReference(); }

void CFNotificationCenterPostNotification(CFNotificationCenterRef target, CFNotificationName name, const void *object,
                                          CFDictionaryRef userInfo, Boolean) {
  if (name && target == localReference()) {
    [[NSNotificationCenter defaultCenter] postNotificationName:(NSString *)name
                                                        object:(id)object
                                                      userInfo:(NSDictionary *)userInfo];
    return;
  }
  if (target != reference() || !name) {
    NSLog(@"CFNotificationCenterPostNotification was called without a %@.", name ? @"centre" : @"name");
    return;
  }
  NSString *posted = [[(NSString *)name copy] autorelease];
  SIMDarwinPostHandler handler = nullptr;
  void *context = nullptr;
  std::uint64_t newest = 0;
  {
    const std::lock_guard lock(center().mutex);
    handler = center().handler;
    context = center().context;
    newest = center().last;
  }
  if (handler) handler(posted, context);
  dispatch_async(dispatch_get_main_queue(), ^{
    center().deliver(posted, newest);
  });
}

void CFNotificationCenterAddObserver(CFNotificationCenterRef target, const void *observer,
                                     CFNotificationCallback callback, CFStringRef name, const void *object,
                                     CFNotificationSuspensionBehavior) {
  if (callback && target == localReference()) return observeLocally(observer, callback, (NSString *)name, object);
  if (target != reference() || !callback || !name) {
    NSLog(@"CFNotificationCenterAddObserver was called without a %@.", !name       ? @"name"
                                                                       : !callback ? @"callback"
                                                                                   : @"centre");
    return;
  }
  const std::lock_guard lock(center().mutex);
  center().observations.push_back(
      {++center().last, observer, callback, objcxx::adopt((NSString *)[(NSString *)name copy])});
}

void CFNotificationCenterRemoveObserver(CFNotificationCenterRef target, const void *observer, CFNotificationName name,
                                        const void *object) {
  if (target == localReference()) return endLocally(observer, (NSString *)name, object);
  if (target != reference()) return;
  const std::lock_guard lock(center().mutex);
  std::erase_if(center().observations, [&](const Observation &each) {
    return each.observer == observer && (!name || [each.name.get() isEqualToString:(NSString *)name]);
  });
}

void CFNotificationCenterRemoveEveryObserver(CFNotificationCenterRef target, const void *observer) {
  CFNotificationCenterRemoveObserver(target, observer, nullptr, nullptr);
}

void SIMSetDarwinPostHandler(SIMDarwinPostHandler handler, void *context) {
  const std::lock_guard lock(center().mutex);
  center().handler = handler;
  center().context = context;
}

uint32_t notify_post(const char *name) {
  @autoreleasepool {
    NSString *text = name ? [NSString stringWithUTF8String:name] : nil;
    if (!text) return NOTIFY_STATUS_INVALID_NAME;
    CFNotificationCenterPostNotification(reference(), (CFNotificationName)text, nullptr, nullptr, true);
  }
  return NOTIFY_STATUS_OK;
}
