#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>
#import <Foundation/PreferenceDomain.h>

#include <array>
#include <optional>

const CFStringRef kCFPreferencesAnyApplication = (CFStringRef) @"kCFPreferencesAnyApplication";
const CFStringRef kCFPreferencesCurrentApplication = (CFStringRef) @"kCFPreferencesCurrentApplication";
const CFStringRef kCFPreferencesAnyHost = (CFStringRef) @"kCFPreferencesAnyHost";
const CFStringRef kCFPreferencesCurrentHost = (CFStringRef) @"kCFPreferencesCurrentHost";
const CFStringRef kCFPreferencesAnyUser = (CFStringRef) @"kCFPreferencesAnyUser";
const CFStringRef kCFPreferencesCurrentUser = (CFStringRef) @"kCFPreferencesCurrentUser";

namespace {

using sim::PreferencePlace;

bool isSame(CFStringRef one, CFStringRef other) { return [(NSString *)one isEqualToString:(NSString *)other]; }

NSString *domainOf(CFStringRef application) {
  if (isSame(application, kCFPreferencesCurrentApplication)) return sim::applicationIdentifier();
  if (isSame(application, kCFPreferencesAnyApplication)) return sim::kGlobalDomain;
  return (NSString *)application;
}

std::optional<PreferencePlace> placeOf(CFStringRef user, CFStringRef host) {
  const bool isAnyHost = isSame(host, kCFPreferencesAnyHost);
  if (isSame(user, kCFPreferencesAnyUser)) {
    return isAnyHost ? std::optional(PreferencePlace::everybody) : std::nullopt;
  }
  if (!isSame(user, kCFPreferencesCurrentUser) && !isSame(user, CFSTR("mobile"))) return std::nullopt;
  return isAnyHost ? PreferencePlace::user : PreferencePlace::userOnThisDevice;
}

/// The file of exactly one domain; nil, with a line in the log, when there is none.
NSString *fileOf(CFStringRef application, CFStringRef user, CFStringRef host) {
  const auto place = placeOf(user, host);
  NSString *file = place ? sim::preferenceFileOfDomain(domainOf(application), *place) : nil;
  if (!file) NSLog(@"[CoreFoundation] There are no preferences of %@, %@, %@.", application, user, host);
  return file;
}

NSMutableDictionary *suites() {
  static NSMutableDictionary *suites = [[NSMutableDictionary alloc] init];
  return suites;
}

/// Where a value of the application is searched.
NSArray *domainsOf(CFStringRef application) {
  NSString *own = domainOf(application);
  NSMutableArray *domains = [NSMutableArray arrayWithObject:own];
  @synchronized(suites()) {
    [domains addObjectsFromArray:[suites() objectForKey:own] ?: @[]];
  }
  [domains addObject:sim::kGlobalDomain];
  return domains;
}

id valueFor(NSString *key, CFStringRef application) {
  static constexpr std::array kPlaces = {PreferencePlace::userOnThisDevice, PreferencePlace::user,
                                         PreferencePlace::everybody};
  for (NSString *domain in domainsOf(application)) {
    for (const auto place : kPlaces) {
      id found = [sim::preferencesInFile(sim::preferenceFileOfDomain(domain, place)) objectForKey:key];
      if (found) return found;
    }
  }
  return nil;
}

std::optional<Boolean> truthOf(id value) {
  if ([value isKindOfClass:[NSNumber class]]) return [value boolValue];
  if (![value isKindOfClass:[NSString class]]) return std::nullopt;
  NSString *word = [value lowercaseString];
  if ([@[ @"true", @"yes", @"1" ] containsObject:word]) return true;
  if ([@[ @"false", @"no", @"0" ] containsObject:word]) return false;
  return std::nullopt;
}

std::optional<CFIndex> integerOf(id value) {
  if ([value isKindOfClass:[NSNumber class]]) return [value longValue];
  if (![value isKindOfClass:[NSString class]]) return std::nullopt;
  NSScanner *scanner = [NSScanner scannerWithString:value];
  long long number = 0;
  if (![scanner scanLongLong:&number] || ![scanner isAtEnd]) return std::nullopt;
  return number;
}

template <typename Value>
Value told(std::optional<Value> value, Boolean *isValid) {
  if (isValid) *isValid = value.has_value();
  return value.value_or(Value());
}

}  // namespace

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application) {
  return (CFPropertyListRef)[valueFor((NSString *)key, application) retain];
}

Boolean CFPreferencesGetAppBooleanValue(CFStringRef key, CFStringRef application, Boolean *isValid) {
  return told(truthOf(valueFor((NSString *)key, application)), isValid);
}

CFIndex CFPreferencesGetAppIntegerValue(CFStringRef key, CFStringRef application, Boolean *isValid) {
  return told(integerOf(valueFor((NSString *)key, application)), isValid);
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef application) {
  CFPreferencesSetValue(key, value, application, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
}

Boolean CFPreferencesAppSynchronize(CFStringRef application) {
  return CFPreferencesSynchronize(application, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
}

void CFPreferencesAddSuitePreferencesToApp(CFStringRef application, CFStringRef suite) {
  NSString *own = domainOf(application);
  @synchronized(suites()) {
    NSArray *before = [suites() objectForKey:own] ?: @[];
    if (![before containsObject:(id)suite]) [suites() setObject:[before arrayByAddingObject:(id)suite] forKey:own];
  }
}

void CFPreferencesRemoveSuitePreferencesFromApp(CFStringRef application, CFStringRef suite) {
  NSString *own = domainOf(application);
  @synchronized(suites()) {
    NSMutableArray *left = [NSMutableArray arrayWithArray:[suites() objectForKey:own]];
    [left removeObject:(id)suite];
    [suites() setObject:left forKey:own];
  }
}

Boolean CFPreferencesAppValueIsForced(CFStringRef, CFStringRef) { return false; }

CFPropertyListRef CFPreferencesCopyValue(CFStringRef key, CFStringRef application, CFStringRef user, CFStringRef host) {
  NSString *file = fileOf(application, user, host);
  return file ? (CFPropertyListRef)[[sim::preferencesInFile(file) objectForKey:(id)key] retain] : nullptr;
}

CFDictionaryRef CFPreferencesCopyMultiple(CFArrayRef keys, CFStringRef application, CFStringRef user,
                                          CFStringRef host) {
  NSString *file = fileOf(application, user, host);
  NSDictionary *all = (file ? sim::preferencesInFile(file) : nil) ?: @{};
  if (!keys) return (CFDictionaryRef)[all copy];
  NSMutableDictionary *some = [[NSMutableDictionary alloc] init];
  for (NSString *key in (NSArray *)keys) {
    if (id value = [all objectForKey:key]) [some setObject:value forKey:key];
  }
  return (CFDictionaryRef)some;
}

void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef application, CFStringRef user,
                           CFStringRef host) {
  NSDictionary *set = value ? @{(NSString *)key : (id)value} : @{};
  CFPreferencesSetMultiple((CFDictionaryRef)set, (CFArrayRef) @[ (NSString *)key ], application, user, host);
}

void CFPreferencesSetMultiple(CFDictionaryRef values, CFArrayRef removed, CFStringRef application, CFStringRef user,
                              CFStringRef host) {
  NSString *file = fileOf(application, user, host);
  if (file) sim::changePreferencesInFile(file, (NSDictionary *)values, (NSArray *)removed);
}

Boolean CFPreferencesSynchronize(CFStringRef application, CFStringRef user, CFStringRef host) {
  NSString *file = fileOf(application, user, host);
  return file && sim::preferencesInFile(file);
}

CFArrayRef CFPreferencesCopyKeyList(CFStringRef application, CFStringRef user, CFStringRef host) {
  NSString *file = fileOf(application, user, host);
  NSArray *keys = file ? [sim::preferencesInFile(file) allKeys] : nil;
  return [keys count] > 0 ? (CFArrayRef)[keys copy] : nullptr;
}
