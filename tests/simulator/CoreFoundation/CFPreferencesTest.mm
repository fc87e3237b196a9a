// Preferences in the files of their domains, by CoreFoundation's functions and by user defaults.
#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>
#import <Foundation/SIMDevice.h>
#import <Foundation/SIMLog.h>

#include <objcxx/Retained.h>

#include "support/objc/DiskFaults.h"
#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <string>
#include <thread>
#include <vector>

namespace {

NSString *const kFolder = @"/var/mobile/Library/Preferences";

class CFPreferencesTest : public DeviceTest {
 protected:
  static CFStringRef domain() { return CFSTR("com.example.bundle"); }
  NSString *file(NSString *name = @"com.example.bundle") const {
    return path([kFolder stringByAppendingFormat:@"/%@.plist", name]);
  }
  NSDictionary *stored(NSString *name = @"com.example.bundle") const {
    return [NSDictionary dictionaryWithContentsOfFile:file(name)];
  }
  static id value(NSString *key, CFStringRef of = domain()) {
    return [(id)CFPreferencesCopyAppValue((CFStringRef)key, of) autorelease];
  }
  static void set(NSString *key, id value) {
    CFPreferencesSetAppValue((CFStringRef)key, (CFPropertyListRef)value, domain());
  }
};

TEST_F(CFPreferencesTest, AValueIsInTheFileOfItsDomainAtOnce) {
  EXPECT_EQ(value(@"k"), nil);
  set(@"k", @"v");
  set(@"n", @3);
  EXPECT_OBJC_EQ(stored(), (@{@"k" : @"v", @"n" : @3}));
  EXPECT_OBJC_EQ(value(@"k"), @"v");
  EXPECT_TRUE(CFPreferencesAppSynchronize(domain()));
  set(@"k", nil);
  EXPECT_OBJC_EQ(stored(), @{@"n" : @3});
  EXPECT_EQ(listing(kFolder), "com.example.bundle.plist") << "No temporary file is left.";
}

TEST_F(CFPreferencesTest, WhatAnotherProcessWroteIsRead) {
  set(@"k", @"v");
  EXPECT_OBJC_EQ(value(@"k"), @"v");
  for (NSString *other in @[ @"w", @"x", @"longer", @"y" ]) {
    [@{@"k" : other} writeToFile:file() atomically:YES];
    EXPECT_OBJC_EQ(value(@"k"), other);
  }
  [[NSFileManager defaultManager] removeItemAtPath:file() error:NULL];
  EXPECT_EQ(value(@"k"), nil);
  [@{@"other" : @1} writeToFile:file() atomically:YES];
  set(@"k", @2);
  EXPECT_OBJC_EQ(stored(), (@{@"other" : @1, @"k" : @2}));
}

TEST_F(CFPreferencesTest, ABooleanHasSomeForms) {
  const auto truth = [](id value, Boolean *isValid) {
    set(@"k", value);
    return CFPreferencesGetAppBooleanValue(CFSTR("k"), domain(), isValid);
  };
  for (id yes in @[ @(YES), @1, @2, @"YES", @"true", @"1" ]) {
    Boolean isValid = false;
    EXPECT_TRUE(truth(yes, &isValid)) << [[yes description] UTF8String];
    EXPECT_TRUE(isValid);
  }
  for (id no in @[ @(NO), @0, @"no", @"False", @"0" ]) {
    Boolean isValid = false;
    EXPECT_FALSE(truth(no, &isValid));
    EXPECT_TRUE(isValid);
  }
  for (id other in @[ @"perhaps", @[], @{} ]) {
    Boolean isValid = true;
    EXPECT_FALSE(truth(other, &isValid));
    EXPECT_FALSE(isValid);
  }
  Boolean isValid = true;
  EXPECT_FALSE(CFPreferencesGetAppBooleanValue(CFSTR("missing"), domain(), &isValid));
  EXPECT_FALSE(isValid);
  EXPECT_FALSE(CFPreferencesGetAppBooleanValue(CFSTR("missing"), domain(), nullptr));
}

TEST_F(CFPreferencesTest, AnIntegerIsANumberOrATextOfOne) {
  const auto integer = [](id value, Boolean *isValid) {
    set(@"k", value);
    return CFPreferencesGetAppIntegerValue(CFSTR("k"), domain(), isValid);
  };
  Boolean isValid = false;
  EXPECT_EQ(integer(@-7, &isValid), -7);
  EXPECT_TRUE(isValid);
  EXPECT_EQ(integer(@"12", &isValid), 12);
  EXPECT_TRUE(isValid);
  EXPECT_EQ(integer(@2.9, nullptr), 2);
  EXPECT_EQ(integer(@"12 apples", &isValid), 0);
  EXPECT_FALSE(isValid);
}

TEST_F(CFPreferencesTest, UsersAndDevicesHaveFilesOfTheirOwn) {
  const auto set = [](CFStringRef value, CFStringRef user, CFStringRef host) {
    CFPreferencesSetValue(CFSTR("k"), value, domain(), user, host);
  };
  const auto get = [](CFStringRef user, CFStringRef host) {
    return [(id)CFPreferencesCopyValue(CFSTR("k"), domain(), user, host) autorelease];
  };
  set(CFSTR("all"), kCFPreferencesAnyUser, kCFPreferencesAnyHost);
  EXPECT_EQ(listing(@"/var/preferences"), "com.example.bundle.plist");
  EXPECT_OBJC_EQ(value(@"k"), @"all");
  set(CFSTR("user"), kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
  EXPECT_OBJC_EQ(stored(), @{@"k" : @"user"});
  EXPECT_OBJC_EQ(value(@"k"), @"user");
  set(CFSTR("here"), kCFPreferencesCurrentUser, kCFPreferencesCurrentHost);
  EXPECT_EQ(listing(@"/var/mobile/Library/Preferences/ByHost").find("com.example.bundle."), 0u);
  EXPECT_OBJC_EQ(value(@"k"), @"here");
  EXPECT_OBJC_EQ(get(kCFPreferencesAnyUser, kCFPreferencesAnyHost), @"all");
  EXPECT_OBJC_EQ(get(CFSTR("mobile"), kCFPreferencesAnyHost), @"user");
  EXPECT_OBJC_EQ(get(kCFPreferencesCurrentUser, kCFPreferencesCurrentHost), @"here");
  EXPECT_EQ(get(CFSTR("somebody"), kCFPreferencesAnyHost), nil);
  EXPECT_FALSE(CFPreferencesSynchronize(domain(), CFSTR("somebody"), kCFPreferencesAnyHost));
  EXPECT_TRUE(CFPreferencesSynchronize(domain(), kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
}

TEST_F(CFPreferencesTest, ApplicationsShareADomainAndMayHaveSuites) {
  [@{@"k" : @"global"} writeToFile:(makeFolder(kFolder), file(@".GlobalPreferences")) atomically:YES];
  EXPECT_OBJC_EQ(value(@"k"), @"global");
  EXPECT_OBJC_EQ(value(@"k", kCFPreferencesAnyApplication), @"global");
  [@{@"k" : @"suite"} writeToFile:file(@"com.example.suite") atomically:YES];
  EXPECT_OBJC_EQ(value(@"k"), @"global");
  CFPreferencesAddSuitePreferencesToApp(domain(), CFSTR("com.example.suite"));
  EXPECT_OBJC_EQ(value(@"k"), @"suite");
  set(@"k", @"own");
  EXPECT_OBJC_EQ(value(@"k"), @"own");
  set(@"k", nil);
  CFPreferencesRemoveSuitePreferencesFromApp(domain(), CFSTR("com.example.suite"));
  EXPECT_OBJC_EQ(value(@"k"), @"global");
  CFPreferencesSetAppValue(CFSTR("mine"), CFSTR("v"), kCFPreferencesCurrentApplication);
  EXPECT_OBJC_EQ(stored(@"com.apple.Preferences"), @{@"mine" : @"v"});
}

TEST_F(CFPreferencesTest, SeveralKeysAtOnce) {
  const auto user = kCFPreferencesCurrentUser, host = kCFPreferencesAnyHost;
  EXPECT_EQ(CFPreferencesCopyKeyList(domain(), user, host), nullptr);
  NSDictionary *first = @{@"a" : @1, @"b" : @2};
  CFPreferencesSetMultiple((CFDictionaryRef)first, nullptr, domain(), user, host);
  NSDictionary *second = @{@"c" : @3};
  NSArray *gone = @[ @"a", @"c" ];
  CFPreferencesSetMultiple((CFDictionaryRef)second, (CFArrayRef)gone, domain(), user, host);
  EXPECT_OBJC_EQ(stored(), (@{@"b" : @2, @"c" : @3}));
  NSArray *keys = [(id)CFPreferencesCopyKeyList(domain(), user, host) autorelease];
  EXPECT_OBJC_EQ([keys sortedArrayUsingSelector:@selector(compare:)], (@[ @"b", @"c" ]));
  NSArray *wanted = @[ @"b", @"x" ];
  EXPECT_OBJC_EQ([(id)CFPreferencesCopyMultiple((CFArrayRef)wanted, domain(), user, host) autorelease], @{@"b" : @2});
  EXPECT_OBJC_EQ([(id)CFPreferencesCopyMultiple(nullptr, domain(), user, host) autorelease], (@{@"b" : @2, @"c" : @3}));
}

TEST_F(CFPreferencesTest, WhatCannotBeStoredLeavesTheFileAsItWas) {
  set(@"k", @"v");
  const auto before = read([kFolder stringByAppendingPathComponent:@"com.example.bundle.plist"]);
  set(@"n", [NSNull null]);
  set(@"d", @{@"in" : [[[NSObject alloc] init] autorelease]});
  EXPECT_EQ(read([kFolder stringByAppendingPathComponent:@"com.example.bundle.plist"]), before);
  EXPECT_EQ(value(@"n"), nil);
  write([kFolder stringByAppendingPathComponent:@"com.example.bundle.plist"], "no property list");
  set(@"k", @"w");
  EXPECT_EQ(read([kFolder stringByAppendingPathComponent:@"com.example.bundle.plist"]), "no property list");
  EXPECT_EQ(value(@"k"), nil);
}

TEST_F(CFPreferencesTest, ADomainIsNoWayOutOfItsFolder) {
  CFPreferencesSetAppValue(CFSTR("k"), CFSTR("v"), CFSTR("../../escaped"));
  CFPreferencesSetAppValue(CFSTR("k"), CFSTR("v"), CFSTR(""));
  EXPECT_EQ(listing(@"/var/mobile"), "");
}

TEST_F(CFPreferencesTest, APathIsADomainToo) {
  NSString *place = @"/var/jb/var/mobile/Library/Preferences/com.example.root.plist";
  CFPreferencesSetAppValue(CFSTR("k"), CFSTR("v"), (CFStringRef)place);
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:path(place)], @{@"k" : @"v"});
  EXPECT_OBJC_EQ(value(@"k", (CFStringRef)[place stringByDeletingPathExtension]), @"v");
  EXPECT_OBJC_EQ(value(@"k", (CFStringRef)path(place)), @"v") << "as a path of this computer";
}

TEST_F(CFPreferencesTest, ThreadsDoNotUndoOneAnother) {
  std::vector<std::thread> threads;
  dispatch_group_t group = dispatch_group_create();
  for (int i = 0; i < 20; ++i) {
    dispatch_group_async(group, dispatch_get_global_queue(0, 0), ^{
      set([NSString stringWithFormat:@"k%d", i], @(i));
    });
  }
  dispatch_group_wait(group, DISPATCH_TIME_FOREVER);
  dispatch_release(group);
  EXPECT_EQ([stored() count], 20u);
}

class UserDefaultsTest : public CFPreferencesTest {
 protected:
  void SetUp() override {
    CFPreferencesTest::SetUp();
    suite_ = objcxx::adopt([[NSUserDefaults alloc] initWithSuiteName:@"com.example.bundle"]);
  }
  objcxx::Retained<NSUserDefaults> suite_;
};

TEST_F(UserDefaultsTest, ASuiteIsAFile) {
  NSUserDefaults *suite = suite_.get();
  [suite setBool:YES forKey:@"b"];
  [suite setInteger:7 forKey:@"i"];
  [suite setDouble:1.5 forKey:@"d"];
  [suite setObject:@[ @"a" ] forKey:@"o"];
  EXPECT_OBJC_EQ(stored(), (@{@"b" : @(YES), @"i" : @7, @"d" : @1.5, @"o" : @[ @"a" ]}));
  EXPECT_TRUE([suite boolForKey:@"b"]);
  EXPECT_EQ([suite integerForKey:@"i"], 7);
  EXPECT_EQ([suite doubleForKey:@"d"], 1.5);
  EXPECT_OBJC_EQ([suite arrayForKey:@"o"], @[ @"a" ]);
  [suite removeObjectForKey:@"o"];
  [suite setObject:nil forKey:@"d"];
  EXPECT_OBJC_EQ(stored(), (@{@"b" : @(YES), @"i" : @7}));
  EXPECT_OBJC_EQ(value(@"i"), @7);
  [@{@"i" : @8} writeToFile:file() atomically:YES];
  EXPECT_EQ([suite integerForKey:@"i"], 8);
  EXPECT_TRUE([suite synchronize]);
}

TEST_F(UserDefaultsTest, TheApplicationsOwnAreSettings) {
  NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
  [defaults setObject:@"v" forKey:@"k"];
  EXPECT_OBJC_EQ(stored(@"com.apple.Preferences"), @{@"k" : @"v"});
  EXPECT_OBJC_EQ([defaults stringForKey:@"k"], @"v");
  EXPECT_OBJC_EQ([[defaults dictionaryRepresentation] objectForKey:@"k"], @"v");
  EXPECT_EQ([suite_.get() objectForKey:@"k"], nil);
  [defaults removeObjectForKey:@"k"];
  EXPECT_EQ([defaults objectForKey:@"k"], nil);
  NSUserDefaults *same = [[[NSUserDefaults alloc] initWithSuiteName:nil] autorelease];
  [same setObject:@"w" forKey:@"k"];
  EXPECT_OBJC_EQ([defaults stringForKey:@"k"], @"w");
  EXPECT_EQ([[NSUserDefaults alloc] initWithSuiteName:@"com.apple.Preferences"], nil);
  EXPECT_EQ([[NSUserDefaults alloc] initWithSuiteName:NSGlobalDomain], nil);
}

TEST_F(UserDefaultsTest, RegisteredDefaultsStandBehindAllAndAreNotStored) {
  [suite_.get() registerDefaults:@{@"UserDefaultsTest" : @"registered"}];
  EXPECT_OBJC_EQ([suite_.get() stringForKey:@"UserDefaultsTest"], @"registered");
  EXPECT_OBJC_EQ([[NSUserDefaults standardUserDefaults] stringForKey:@"UserDefaultsTest"], @"registered");
  EXPECT_OBJC_EQ([[suite_.get() dictionaryRepresentation] objectForKey:@"UserDefaultsTest"], @"registered");
  [@{@"UserDefaultsTest" : @"global"} writeToFile:(makeFolder(kFolder), file(@".GlobalPreferences")) atomically:YES];
  EXPECT_OBJC_EQ([suite_.get() stringForKey:@"UserDefaultsTest"], @"global");
  [suite_.get() setObject:@"own" forKey:@"UserDefaultsTest"];
  EXPECT_OBJC_EQ([suite_.get() stringForKey:@"UserDefaultsTest"], @"own");
  EXPECT_OBJC_EQ([[suite_.get() dictionaryRepresentation] objectForKey:@"UserDefaultsTest"], @"own");
  EXPECT_OBJC_EQ(stored(), @{@"UserDefaultsTest" : @"own"});
  [[NSUserDefaults standardUserDefaults] registerDefaults:@{@"UserDefaultsTest" : @""}];
}

TEST_F(UserDefaultsTest, AnArgumentOfTheProgramComesBeforeWhatIsStored) {
  NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
  NSDictionary *arguments = [[[defaults volatileDomainForName:NSArgumentDomain] retain] autorelease];
  [suite_.get() setObject:@"stored" forKey:@"k"];
  [defaults setObject:@"stored" forKey:@"k"];
  [defaults removeVolatileDomainForName:NSArgumentDomain];
  [defaults setVolatileDomain:@{@"k" : @"argument"} forName:NSArgumentDomain];
  EXPECT_OBJC_EQ([suite_.get() stringForKey:@"k"], @"argument");
  EXPECT_OBJC_EQ([defaults stringForKey:@"k"], @"argument");
  [defaults removeVolatileDomainForName:NSArgumentDomain];
  if (arguments) [defaults setVolatileDomain:arguments forName:NSArgumentDomain];
  EXPECT_OBJC_EQ([suite_.get() stringForKey:@"k"], @"stored");
}

TEST_F(UserDefaultsTest, DomainsAreReadAndWrittenWhole) {
  NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
  EXPECT_EQ([defaults persistentDomainForName:@"com.example.bundle"], nil);
  [defaults setPersistentDomain:@{@"a" : @1} forName:@"com.example.bundle"];
  EXPECT_OBJC_EQ(stored(), @{@"a" : @1});
  EXPECT_OBJC_EQ([defaults persistentDomainForName:@"com.example.bundle"], @{@"a" : @1});
  [suite_.get() setPersistentDomain:@{@"b" : @2} forName:@"com.example.bundle"];
  EXPECT_OBJC_EQ([suite_.get() persistentDomainForName:@"com.example.bundle"], @{@"b" : @2});
  EXPECT_EQ([suite_.get() objectForKey:@"a"], nil);
  [defaults removePersistentDomainForName:@"com.example.bundle"];
  EXPECT_FALSE(exists([kFolder stringByAppendingPathComponent:@"com.example.bundle.plist"]));
}

TEST_F(UserDefaultsTest, AnAddedSuiteIsSearchedAfterTheOwnDomain) {
  NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
  [suite_.get() setObject:@"suite" forKey:@"k"];
  EXPECT_EQ([defaults objectForKey:@"k"], nil);
  [defaults addSuiteNamed:@"com.example.bundle"];
  EXPECT_OBJC_EQ([defaults objectForKey:@"k"], @"suite");
  [defaults setObject:@"own" forKey:@"k"];
  EXPECT_OBJC_EQ([defaults objectForKey:@"k"], @"own");
  EXPECT_OBJC_EQ([suite_.get() objectForKey:@"k"], @"suite");
  [defaults removeObjectForKey:@"k"];
  [defaults removeSuiteNamed:@"com.example.bundle"];
  EXPECT_EQ([defaults objectForKey:@"k"], nil);
}

}  // namespace

@interface UserDefaultsTestObserver : NSObject {
 @public
  int count;
  id last;
}
@end

@implementation UserDefaultsTestObserver
- (void)changed:(NSNotification *)notification {
  ++count;
  last = [notification object];
}
@end

namespace {

TEST_F(UserDefaultsTest, AChangeIsTold) {
  UserDefaultsTestObserver *observer = [[[UserDefaultsTestObserver alloc] init] autorelease];
  [[NSNotificationCenter defaultCenter] addObserver:observer
                                           selector:@selector(changed:)
                                               name:NSUserDefaultsDidChangeNotification
                                             object:nil];
  [suite_.get() setObject:@"v" forKey:@"k"];
  EXPECT_EQ(observer->count, 1);
  EXPECT_EQ(observer->last, suite_.get());
  [[NSUserDefaults standardUserDefaults] setBool:YES forKey:@"k"];
  EXPECT_EQ(observer->count, 2);
  EXPECT_EQ(observer->last, [NSUserDefaults standardUserDefaults]);
  [[NSUserDefaults standardUserDefaults] setPersistentDomain:@{@"k" : @1} forName:@"com.example.bundle"];
  EXPECT_EQ(observer->count, 3);
  [[NSUserDefaults standardUserDefaults] removePersistentDomainForName:@"com.example.bundle"];
  EXPECT_EQ(observer->count, 4);
  [[NSNotificationCenter defaultCenter] removeObserver:observer];
}

TEST_F(UserDefaultsTest, WhatIsNoPropertyListRaises) {
  EXPECT_EQ(raisedBy([this] { [suite_.get() setObject:[NSNull null] forKey:@"k"]; }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([] { [[NSUserDefaults standardUserDefaults] setObject:@[ [NSNull null] ] forKey:@"k"]; }),
            "NSInvalidArgumentException");
  EXPECT_EQ(stored(), nil);
}

TEST_F(UserDefaultsTest, AddressesAreKept) {
  NSURL *file = [NSURL fileURLWithPath:@"/a b"], *page = [NSURL URLWithString:@"https://example.com/"];
  [suite_.get() setURL:file forKey:@"f"];
  [suite_.get() setURL:page forKey:@"p"];
  EXPECT_OBJC_EQ([suite_.get() URLForKey:@"f"], file);
  EXPECT_OBJC_EQ([suite_.get() URLForKey:@"p"], page);
  EXPECT_OBJC_EQ([suite_.get() stringForKey:@"f"], @"/a b");
  [suite_.get() setURL:nil forKey:@"f"];
  EXPECT_EQ([suite_.get() URLForKey:@"f"], nil);
}

}  // namespace
