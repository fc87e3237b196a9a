#import <CoreFoundation/CFNotificationCenter+Sim.h>
#import <CoreFoundation/CoreFoundation.h>
#import <dispatch/MainQueue+Sim.h>
#import <notify.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <set>
#include <string>
#include <vector>

namespace {

TEST(CoreFoundationTest, StringsAndDataAreFoundationObjects) {
  @autoreleasepool {
    CFStringRef text = CFSTR("settings");
    EXPECT_OBJC_EQ((NSString *)text, @"settings");
    EXPECT_TRUE(CFEqual(text, (CFStringRef) @"settings"));
    EXPECT_FALSE(CFEqual(text, CFSTR("other")));

    CFDataRef data = CFDataCreate(nullptr, reinterpret_cast<const UInt8 *>("abc"), 3);
    EXPECT_EQ(CFDataGetLength(data), 3);
    EXPECT_EQ(CFDataGetBytePtr(data)[1], 'b');
    EXPECT_OBJC_EQ((NSData *)data, [NSData dataWithBytes:"abc" length:3]);
    CFRelease(data);
    EXPECT_EQ(CFDataCreate(nullptr, nullptr, -1), nullptr);
  }
}

TEST(CoreFoundationTest, RetainAndReleaseCount) {
  int deaths = 0;
  CFTypeRef object = (CFTypeRef)[[Lifetime alloc] initWithCounter:&deaths];
  EXPECT_EQ(CFRetain(object), object);
  CFRelease(object);
  EXPECT_EQ(deaths, 0);
  CFRelease(object);
  EXPECT_EQ(deaths, 1);
}

TEST(CoreFoundationTest, TruthValuesAreATypeOfTheirOwn) {
  @autoreleasepool {
    const auto type = [](id object) { return CFGetTypeID((CFTypeRef)object); };
    for (NSNumber *truth in @[ @(YES), @(NO), [NSNumber numberWithBool:YES], [NSNumber numberWithBool:NO] ]) {
      EXPECT_EQ(type(truth), CFBooleanGetTypeID());
    }
    for (NSNumber *number in @[
           @0, @1, @1.0, [NSNumber numberWithChar:1], [NSNumber numberWithUnsignedChar:1],
           [NSNumber numberWithUnsignedInt:0], [NSNumber numberWithLongLong:1], [NSNumber numberWithFloat:0]
         ]) {
      EXPECT_EQ(type(number), CFNumberGetTypeID()) << [number objCType];
    }
    EXPECT_NE(CFNumberGetTypeID(), CFBooleanGetTypeID());
  }
}

TEST(CoreFoundationTest, EveryBridgedTypeHasAnIdThatItSharesWithItsSubclasses) {
  @autoreleasepool {
    NSArray *samples = @[
      @(YES), @1, @"text", [NSData data], [NSDate date], @[], @{}, [NSURL URLWithString:@"a:b"],
      [[[NSObject alloc] init] autorelease]
    ];
    std::set<CFTypeID> types;
    for (id sample in samples) types.insert(CFGetTypeID((CFTypeRef)sample));
    EXPECT_EQ(types.size(), [samples count]);
    EXPECT_EQ(CFGetTypeID((CFTypeRef)[NSMutableArray array]), CFGetTypeID((CFTypeRef) @[ @1 ]));
    EXPECT_EQ(CFGetTypeID((CFTypeRef)[NSMutableString string]), CFGetTypeID(CFSTR("text")));
    EXPECT_EQ(CFGetTypeID((CFTypeRef)[NSNotificationCenter defaultCenter]),
              CFGetTypeID((CFTypeRef)[samples lastObject]));
  }
}

TEST(CoreFoundationDeathTest, ReleaseOfNullEndsTheProcess) { EXPECT_DEATH(CFRelease(nullptr), "CFRelease"); }

TEST(CoreFoundationDeathTest, NothingHasNoType) { EXPECT_DEATH(CFGetTypeID(nullptr), "CFGetTypeID"); }

struct Seen {
  std::vector<std::string> names;
  CFNotificationCallback alsoRemove = nullptr;
};

CFNotificationCenterRef darwin() { return CFNotificationCenterGetDarwinNotifyCenter(); }

void post(NSString *name) {
  NSDictionary *information = @{@"key" : @"value"};
  CFNotificationCenterPostNotification(darwin(), (CFStringRef)name, "object", (CFDictionaryRef)information, true);
}

void note(CFNotificationCenterRef center, void *observer, CFNotificationName name, const void *object,
          CFDictionaryRef userInfo) {
  EXPECT_EQ(center, darwin());
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(userInfo, nullptr);
  static_cast<Seen *>(observer)->names.push_back([(NSString *)name UTF8String]);
}

void noteOnce(CFNotificationCenterRef center, void *observer, CFNotificationName name, const void *, CFDictionaryRef) {
  static_cast<Seen *>(observer)->names.push_back([(NSString *)name UTF8String]);
  CFNotificationCenterRemoveEveryObserver(center, observer);
}

void collect(NSString *name, void *context) {
  static_cast<std::vector<std::string> *>(context)->push_back([name UTF8String]);
}

class DarwinCenterTest : public ObjCTest {
 protected:
  void TearDown() override {
    CFNotificationCenterRemoveEveryObserver(darwin(), &seen_);
    SIMSetDarwinPostHandler(nullptr, nullptr);
    SIMDrainMainQueue();
    ObjCTest::TearDown();
  }
  void observe(NSString *name, CFNotificationCallback callback = note) {
    CFNotificationCenterAddObserver(darwin(), &seen_, callback, (CFStringRef)name, nullptr,
                                    CFNotificationSuspensionBehaviorDeliverImmediately);
  }
  using Names = std::vector<std::string>;
  Seen seen_;
};

TEST_F(DarwinCenterTest, DeliversTheNameAloneFromTheRunLoop) {
  observe(@"a");
  post(@"a");
  post(@"b");
  EXPECT_EQ(seen_.names, Names{});
  SIMDrainMainQueue();
  EXPECT_EQ(seen_.names, Names{"a"});
}

TEST_F(DarwinCenterTest, CPostsByNameAlone) {
  std::vector<std::string> posted;
  SIMSetDarwinPostHandler(collect, &posted);
  observe(@"com.example/\u00e4");
  EXPECT_EQ(notify_post("com.example/\xc3\xa4"), uint32_t{NOTIFY_STATUS_OK});
  EXPECT_EQ(notify_post(nullptr), uint32_t{NOTIFY_STATUS_INVALID_NAME});
  EXPECT_EQ(notify_post("\xff"), uint32_t{NOTIFY_STATUS_INVALID_NAME});
  SIMDrainMainQueue();
  EXPECT_THAT(seen_.names, ::testing::ElementsAre("com.example/\xc3\xa4"));
  EXPECT_EQ(posted, seen_.names);
}

TEST_F(DarwinCenterTest, OneObserverMayObserveSeveralNames) {
  observe(@"a");
  observe(@"b");
  post(@"b");
  post(@"a");
  SIMDrainMainQueue();
  EXPECT_EQ(seen_.names, (Names{"b", "a"}));
}

TEST_F(DarwinCenterTest, RemovalEndsDeliveryEvenOfWhatIsOnItsWay) {
  observe(@"a");
  observe(@"b");
  post(@"a");
  post(@"b");
  CFNotificationCenterRemoveObserver(darwin(), &seen_, CFSTR("a"), nullptr);
  SIMDrainMainQueue();
  EXPECT_EQ(seen_.names, Names{"b"});
  CFNotificationCenterRemoveObserver(darwin(), &seen_, nullptr, nullptr);
  post(@"b");
  SIMDrainMainQueue();
  EXPECT_EQ(seen_.names, Names{"b"});
}

TEST_F(DarwinCenterTest, AnObserverMayRemoveItselfWhileItIsCalled) {
  observe(@"a", noteOnce);
  observe(@"a");
  post(@"a");
  post(@"a");
  SIMDrainMainQueue();
  EXPECT_EQ(seen_.names, Names{"a"});
}

TEST_F(DarwinCenterTest, AnObserverMissesWhatWasPostedBeforeIt) {
  post(@"a");
  observe(@"a");
  SIMDrainMainQueue();
  EXPECT_EQ(seen_.names, Names{});
}

TEST_F(DarwinCenterTest, TheHostHearsEveryPostAtOnce) {
  Names heard;
  SIMSetDarwinPostHandler(collect, &heard);
  post(@"a");
  post(@"a");
  post(@"");
  EXPECT_EQ(heard, (Names{"a", "a", ""}));
}

TEST_F(DarwinCenterTest, NoNameAndNoCenterAreIgnored) {
  Names heard;
  SIMSetDarwinPostHandler(collect, &heard);
  observe(@"a");
  post(nil);
  observe(nil);
  observe(@"a", nullptr);
  CFNotificationCenterPostNotification(nullptr, CFSTR("a"), nullptr, nullptr, true);
  CFNotificationCenterAddObserver(nullptr, &seen_, note, CFSTR("a"), nullptr, CFNotificationSuspensionBehaviorDrop);
  CFNotificationCenterRemoveEveryObserver(nullptr, &seen_);
  SIMDrainMainQueue();
  EXPECT_EQ(heard, Names{});
  EXPECT_EQ(seen_.names, Names{});
}

}  // namespace
