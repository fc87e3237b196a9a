// Writing preference files through the rows of the root page: what is kept, what is set aside, what is refused.
#import <CoreFoundation/CFNotificationCenter+Sim.h>
#import <Preferences/PSSpecifier.h>

#import "core/ZunoprefsRootListController.h"

#include "ZunoPrefs/support/BundleTest.h"

namespace {

class RowWriteTest : public BundleTest {
 protected:
  void SetUp() override {
    BundleTest::SetUp();
    page_ = objcxx::adopt((PSListController *)[[classNamed("ZunoprefsRootListController") alloc] init]);
  }
  void TearDown() override {
    page_ = nullptr;
    BundleTest::TearDown();
  }

  PSSpecifier *row(NSDictionary *properties) { return rowNamed(@"Row", PSSwitchCell, properties, page_.get()); }
  using DeviceTest::read;
  id read(NSDictionary *properties) { return [page_.get() readPreferenceValue:row(properties)]; }
  void set(id value, NSDictionary *properties) { [page_.get() setPreferenceValue:value specifier:row(properties)]; }

 private:
  objcxx::Retained<PSListController> page_;
};

TEST_F(RowWriteTest, ReadsTheStoredValueElseTheRowsOwnDefault) {
  EXPECT_OBJC_EQ(read(@{@"key" : @"pullToKillEnabled", @"default" : @5}), @5);
  EXPECT_OBJC_EQ(read(@{@"key" : @"pullToKillEnabled"}), nil);
  writePreferences(kMainFile, @{@"Enabled" : @0, @"pullToKillEnabled" : @1});
  EXPECT_OBJC_EQ(read(@{@"key" : @"pullToKillEnabled", @"default" : @5}), @1) << "the master switch plays no part";
  EXPECT_OBJC_EQ(read(@{@"default" : @7}), @7) << "a row without a key shows its default";
}

TEST_F(RowWriteTest, TheUserAgentJoinsDeviceAndVersion) {
  NSDictionary *agent = @{@"key" : @"presetUserAgent", @"default" : @"unused"};
  EXPECT_OBJC_EQ(read(agent), @"(null)/(null)");
  writePreferences(kMainFile, @{@"device" : @"iPhone15,2", @"iosVersion" : @"16.5"});
  EXPECT_OBJC_EQ(read(agent), @"iPhone15,2/16.5");
}

TEST_F(RowWriteTest, WritingKeepsEveryOtherKeyAndPostsTheRowsNotification) {
  NSDictionary *before = @{@"Enabled" : @1, @"FavouriteApplications" : @[ @"a.b", @"c.d" ], @"note" : @"😀 & <b>"};
  writePreferences(kMainFile, before);
  set(@(YES), @{@"key" : @"pullToKillEnabled", @"PostNotification" : @"com.norvik.Zuno.switcher"});
  NSMutableDictionary *after = [[before mutableCopy] autorelease];
  [after setObject:@1 forKey:@"pullToKillEnabled"];
  EXPECT_OBJC_EQ(preferences(kMainFile), after);
  EXPECT_EQ(notifications, std::vector<std::string>{"com.norvik.Zuno.switcher"});
}

/// YES equals 1, so the types in the file have to be looked at.
TEST_F(RowWriteTest, ATruthValueIsStoredAsAnIntegerAndEveryOtherValueAsItIs) {
  const auto stored = [&](id value) {
    set(value, @{@"key" : @"a"});
    const std::string text = read(kMainFile);
    const std::size_t from = text.find("<key>a</key>") + 12;
    std::string element = text.substr(from, text.rfind("</dict>") - from);
    std::erase_if(element, [](char c) { return c == '\n' || c == '\t'; });
    return element;
  };
  EXPECT_EQ(stored(@(YES)), "<integer>1</integer>");
  EXPECT_EQ(stored(@(NO)), "<integer>0</integer>");
  EXPECT_EQ(stored(@1), "<integer>1</integer>");
  EXPECT_EQ(stored(@7), "<integer>7</integer>");
  EXPECT_EQ(stored([NSNumber numberWithChar:-1]), "<integer>-1</integer>");
  EXPECT_EQ(stored(@0.5), "<real>0.5</real>");
  EXPECT_EQ(stored(@1.0).substr(0, 6), "<real>");
  EXPECT_EQ(stored(@"YES"), "<string>YES</string>");
  EXPECT_EQ(stored(@[ @(YES) ]), "<array><true/></array>");
}

TEST_F(RowWriteTest, TheNotificationIsPostedWhenTheNewValueIsInTheFile) {
  struct Listener {
    NSString *file;
    std::vector<std::string> values;
  } listener{path(kMainFile), {}};
  const auto listen = [](NSString *, void *context) {
    auto *heard = static_cast<Listener *>(context);
    NSDictionary *contents = [NSDictionary dictionaryWithContentsOfFile:heard->file];
    heard->values.push_back([[[contents objectForKey:@"a"] description] UTF8String] ?: "none");
  };
  SIMSetDarwinPostHandler(listen, &listener);
  set(@"first", @{@"key" : @"a", @"PostNotification" : @"com.norvik.Zuno.switcher"});
  set(@"second", @{@"key" : @"a", @"PostNotification" : @"com.norvik.Zuno.switcher"});
  EXPECT_EQ(listener.values, (std::vector<std::string>{"first", "second"}));
}

TEST_F(RowWriteTest, ARowWithoutANotificationPostsNothing) {
  set(@1, @{@"key" : @"a"});
  set(@2, @{@"key" : @"b", @"PostNotification" : @[ @"no name" ]});
  set(@3, @{@"key" : @"c", @"PostNotification" : @""});
  EXPECT_OBJC_EQ(preferences(kMainFile), (@{@"a" : @1, @"b" : @2, @"c" : @3}));
  EXPECT_TRUE(notifications.empty());
}

TEST_F(RowWriteTest, ANotificationIsPostedEvenWhenTheWriteFails) {
  makeFolder(kMainFile);
  set(@1, @{@"key" : @"a", @"PostNotification" : @"com.norvik.Zuno.switcher"});
  EXPECT_EQ(notifications.size(), 1u);
  EXPECT_OBJC_EQ(preferences(kMainFile), nil);
  EXPECT_EQ(listing(@"/var/jb/var/mobile/Library/Preferences"), "com.norvik.Zunoprefs.plist");
}

TEST_F(RowWriteTest, ADamagedFileIsKeptBesideTheNewOne) {
  const std::string damaged = "<plist><dict><key>precious</key><string>value</str";
  write(kMainFile, damaged);
  set(@1, @{@"key" : @"a"});
  EXPECT_OBJC_EQ(preferences(kMainFile), @{@"a" : @1});
  EXPECT_EQ(read([kMainFile stringByAppendingString:@".damaged"]), damaged);
  const std::string said = std::string("[Zuno] ") + [path(kMainFile) UTF8String] +
                           " is no preference file; its content is kept as com.norvik.Zunoprefs.plist.damaged";
  EXPECT_EQ(log, std::vector<std::string>{said});

  write(kMainFile, "second");
  set(@2, @{@"key" : @"b"});
  write(kMainFile, "third");
  set(@3, @{@"key" : @"c"});
  EXPECT_EQ(read([kMainFile stringByAppendingString:@".damaged"]), damaged);
  EXPECT_EQ(read([kMainFile stringByAppendingString:@".damaged-2"]), "second");
  EXPECT_EQ(read([kMainFile stringByAppendingString:@".damaged-3"]), "third");
  EXPECT_EQ(log, (std::vector<std::string>{said, said + "-2", said + "-3"}));
}

TEST_F(RowWriteTest, AnEmptyFileHoldsNothingToKeep) {
  write(kMainFile, "");
  set(@1, @{@"key" : @"a"});
  EXPECT_OBJC_EQ(preferences(kMainFile), @{@"a" : @1});
  EXPECT_EQ(listing(@"/var/jb/var/mobile/Library/Preferences"), "com.norvik.Zunoprefs.plist");
}

TEST_F(RowWriteTest, AValueThatNoPropertyListHoldsLeavesTheFileAsItWas) {
  writePreferences(kMainFile, @{@"a" : @1});
  set([NSNull null], @{@"key" : @"b"});
  EXPECT_OBJC_EQ(preferences(kMainFile), @{@"a" : @1});
  write(kMainFile, "damaged");
  set([NSNull null], @{@"key" : @"b"});
  EXPECT_EQ(listing(@"/var/jb/var/mobile/Library/Preferences"), "com.norvik.Zunoprefs.plist");
  EXPECT_EQ(read(kMainFile), "damaged");
}

TEST_F(RowWriteTest, ARowWithoutAKeyOrAValueChangesNothing) {
  writePreferences(kMainFile, @{@"a" : @1});
  set(@2, @{});
  set(nil, @{@"key" : @"a"});
  EXPECT_OBJC_EQ(preferences(kMainFile), @{@"a" : @1});
  const std::string said =
      std::string("[Zuno] Nothing written to ") + [path(kMainFile) UTF8String] + ": a row without a key or a value";
  EXPECT_EQ(log, (std::vector<std::string>{said, said}));
}

}  // namespace
