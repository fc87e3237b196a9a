// User defaults, whose domains are files of the device folder. What GNUstep keeps of them in memory, the registered
// defaults and those of the program's arguments and language, is asked last. Without a device folder there is no more.
#import <Foundation/Foundation.h>
#import <Foundation/PreferenceDomain.h>
#import <Foundation/SIMDevice.h>

#import <objc/runtime.h>

#import "objc/ReplaceMethod.h"

namespace {

using sim::applicationIdentifier;
using sim::kGlobalDomain;
using sim::preferenceFileOfDomain;
using sim::preferencesInFile;

using ObjectForKey = id (*)(id, SEL, NSString *);
using SetObject = void (*)(id, SEL, id, NSString *);
using RemoveObject = void (*)(id, SEL, NSString *);
using Representation = NSDictionary *(*)(id, SEL);
using Domain = NSDictionary *(*)(id, SEL, NSString *);
using SetDomain = void (*)(id, SEL, NSDictionary *, NSString *);
using ChangeSuites = void (*)(id, SEL, NSString *);

ObjectForKey originalObjectForKey = nullptr;
SetObject originalSetObject = nullptr;
RemoveObject originalRemoveObject = nullptr;
Representation originalRepresentation = nullptr;
Domain originalDomain = nullptr;
SetDomain originalSetDomain = nullptr;
RemoveObject originalRemoveDomain = nullptr;

/// The suites that were added to the application's search list. Under their own lock.
NSMutableArray *addedSuites() {
  static NSMutableArray *suites = [[NSMutableArray alloc] init];
  return suites;
}

/// What is searched for the application: its own domain, its suites, those of all.
NSArray *applicationDomains() {
  NSMutableArray *domains = [NSMutableArray arrayWithObject:applicationIdentifier()];
  @synchronized(addedSuites()) {
    [domains addObjectsFromArray:addedSuites()];
  }
  [domains addObject:kGlobalDomain];
  return domains;
}

id storedObject(NSArray *domains, NSString *key) {
  for (NSString *domain in domains) {
    id found = [preferencesInFile(preferenceFileOfDomain(domain)) objectForKey:key];
    if (found) return found;
  }
  return nil;
}

void tellOfChange(NSUserDefaults *defaults) {
  [[NSNotificationCenter defaultCenter] postNotificationName:NSUserDefaultsDidChangeNotification object:defaults];
}

void store(NSUserDefaults *defaults, NSString *domain, id value, NSString *key) {
  if (!key) [NSException raise:NSInvalidArgumentException format:@"-[NSUserDefaults setObject:forKey:]: no key"];
  if (value && ![NSPropertyListSerialization propertyList:value isValidForFormat:NSPropertyListXMLFormat_v1_0]) {
    [NSException raise:NSInvalidArgumentException
                format:@"Attempt to insert non-property list object %@ for key %@", value, key];
  }
  const BOOL done = sim::changePreferencesInFile(preferenceFileOfDomain(domain), value ? @{key : value} : @{},
                                                 value ? @[] : @[ key ]);
  if (done) tellOfChange(defaults);
}

/// The value of an argument of the program, which comes before all.
id argument(NSUserDefaults *defaults, NSString *key) {
  return [[defaults volatileDomainForName:NSArgumentDomain] objectForKey:key];
}

id objectForKey(id self, SEL selector, NSString *key) {
  if (!SIMDeviceFolder() || !key) return originalObjectForKey(self, selector, key);
  id found = argument(self, key) ?: storedObject(applicationDomains(), key);
  return found ?: originalObjectForKey(self, selector, key);
}

void setObject(id self, SEL selector, id value, NSString *key) {
  if (!SIMDeviceFolder()) return originalSetObject(self, selector, value, key);
  store(self, applicationIdentifier(), value, key);
}

void removeObject(id self, SEL selector, NSString *key) {
  if (!SIMDeviceFolder()) return originalRemoveObject(self, selector, key);
  store(self, applicationIdentifier(), nil, key);
}

NSDictionary *withStored(NSDictionary *others, NSArray *domains) {
  NSMutableDictionary *all = [NSMutableDictionary dictionaryWithDictionary:others];
  for (NSString *domain in [domains reverseObjectEnumerator]) {
    [all addEntriesFromDictionary:preferencesInFile(preferenceFileOfDomain(domain)) ?: @{}];
  }
  return all;
}

NSDictionary *representation(id self, SEL selector) {
  NSDictionary *others = originalRepresentation(self, selector);
  return SIMDeviceFolder() ? withStored(others, applicationDomains()) : others;
}

NSDictionary *domainNamed(id self, SEL selector, NSString *name) {
  NSString *file = preferenceFileOfDomain(name);
  if (!file) return originalDomain(self, selector, name);
  NSDictionary *values = preferencesInFile(file);
  return [values count] > 0 ? values : nil;
}

void setDomain(id self, SEL selector, NSDictionary *values, NSString *name) {
  NSString *file = preferenceFileOfDomain(name);
  if (!file) return originalSetDomain(self, selector, values, name);
  if (sim::replacePreferencesInFile(file, values ?: @{})) tellOfChange(self);
}

void removeDomain(id self, SEL selector, NSString *name) {
  NSString *file = preferenceFileOfDomain(name);
  if (!file) return originalRemoveDomain(self, selector, name);
  if (sim::replacePreferencesInFile(file, nil)) tellOfChange(self);
}

void addSuite(id, SEL, NSString *name) {
  if ([name length] == 0) return;
  @synchronized(addedSuites()) {
    if (![addedSuites() containsObject:name]) [addedSuites() addObject:name];
  }
}

void removeSuite(id, SEL, NSString *name) {
  @synchronized(addedSuites()) {
    [addedSuites() removeObject:name ?: @""];
  }
}

template <typename Implementation>
Implementation replace(SEL selector, Implementation implementation) {
  // Without a message to the class: that would start Foundation before its defaults are set.
  return sim::replaceMethod((Class)objc_getClass("NSUserDefaults"), selector, implementation);
}

}  // namespace

/// The defaults of a domain that is not the application's. It has nothing of what its superclass keeps.
@interface SIMSuiteDefaults : NSUserDefaults {
  NSString *_name;
}
@end

@implementation SIMSuiteDefaults

// The superclass's would read defaults of its own.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-designated-initializers"
- (instancetype)initWithSuiteName:(NSString *)name {
  if (!SIMDeviceFolder()) NSLog(@"[Foundation] There is no device whose preferences \"%@\" could be.", name);
  _name = [name copy];
  return self;
}
#pragma clang diagnostic pop

- (void)dealloc {
  [_name release];
  [super dealloc];
}

- (NSArray *)domains {
  return @[ _name, kGlobalDomain ];
}

- (id)objectForKey:(NSString *)key {
  if (!key) return nil;
  NSUserDefaults *standard = [NSUserDefaults standardUserDefaults];
  return argument(standard, key) ?: storedObject([self domains], key)
                                 ?: [[standard volatileDomainForName:NSRegistrationDomain] objectForKey:key];
}

- (void)setObject:(id)value forKey:(NSString *)key {
  store(self, _name, value, key);
}

- (void)removeObjectForKey:(NSString *)key {
  store(self, _name, nil, key);
}

- (NSDictionary *)dictionaryRepresentation {
  return withStored([[NSUserDefaults standardUserDefaults] volatileDomainForName:NSRegistrationDomain], [self domains]);
}

- (void)registerDefaults:(NSDictionary *)values {
  [[NSUserDefaults standardUserDefaults] registerDefaults:values];
}

- (NSDictionary *)volatileDomainForName:(NSString *)name {
  return [[NSUserDefaults standardUserDefaults] volatileDomainForName:name];
}

- (NSArray *)volatileDomainNames {
  return [[NSUserDefaults standardUserDefaults] volatileDomainNames];
}

- (void)setVolatileDomain:(NSDictionary *)values forName:(NSString *)name {
  [[NSUserDefaults standardUserDefaults] setVolatileDomain:values forName:name];
}

- (void)removeVolatileDomainForName:(NSString *)name {
  [[NSUserDefaults standardUserDefaults] removeVolatileDomainForName:name];
}

- (NSString *)description {
  return [NSString stringWithFormat:@"<NSUserDefaults: %p, suite %@>", static_cast<void *>(self), _name];
}

@end

// Replacing the method of the class is what this file is for.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSUserDefaults (Device)

+ (void)load {
  originalObjectForKey = replace(@selector(objectForKey:), objectForKey);
  originalSetObject = replace(@selector(setObject:forKey:), setObject);
  originalRemoveObject = replace(@selector(removeObjectForKey:), removeObject);
  originalRepresentation = replace(@selector(dictionaryRepresentation), representation);
  originalDomain = replace(@selector(persistentDomainForName:), domainNamed);
  originalSetDomain = replace(@selector(setPersistentDomain:forName:), setDomain);
  originalRemoveDomain = replace(@selector(removePersistentDomainForName:), removeDomain);
  replace(@selector(addSuiteNamed:), addSuite);
  replace(@selector(removeSuiteNamed:), removeSuite);
}

/// Every change is in its file at once. GNUstep's own, which also comes every half minute by itself, would make a
/// folder for one.
- (BOOL)synchronize {
  return YES;
}

@end

#pragma clang diagnostic pop

@implementation NSUserDefaults (Suites)

- (instancetype)initWithSuiteName:(NSString *)name {
  [self release];
  if (!name) return [[NSUserDefaults standardUserDefaults] retain];
  if ([name isEqualToString:NSGlobalDomain] || [name isEqualToString:applicationIdentifier()]) {
    NSLog(@"[Foundation] -[NSUserDefaults initWithSuiteName:]: \"%@\" is no suite but searched anyway.", name);
    return nil;
  }
  return (NSUserDefaults *)[[SIMSuiteDefaults alloc] initWithSuiteName:name];
}

- (NSURL *)URLForKey:(NSString *)key {
  id value = [self objectForKey:key];
  if ([value isKindOfClass:[NSData class]]) value = [NSKeyedUnarchiver unarchiveObjectWithData:value];
  if ([value isKindOfClass:[NSString class]]) return [NSURL fileURLWithPath:[value stringByExpandingTildeInPath]];
  return [value isKindOfClass:[NSURL class]] ? value : nil;
}

- (void)setURL:(NSURL *)url forKey:(NSString *)key {
  if (!url) return [self removeObjectForKey:key];
  [self setObject:[url isFileURL] ? (id)[url path] : [NSKeyedArchiver archivedDataWithRootObject:url] forKey:key];
}

@end
