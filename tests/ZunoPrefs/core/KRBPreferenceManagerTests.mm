#import "core/KRBPreferenceManager.h"

#import <CoreFoundation/CoreFoundation.h>

#include <string_view>

#include "ZunoPrefs/support/BundleTest.h"

namespace {

class KRBPreferenceManagerTest : public BundleTest {
 protected:
  Class manager() { return classNamed("KRBPreferenceManager"); }
  /// Whether the number is of the type `int`, which a truth value is not, although 1 equals YES.
  static bool isInt(NSNumber *number) {
    return std::string_view([number objCType]) == @encode(int) && CFGetTypeID((CFTypeRef)number) == CFNumberGetTypeID();
  }
  id resolved(NSString *key) { return [manager() getPrefForKey:key]; }
};

TEST_F(KRBPreferenceManagerTest, DefaultTableHasElevenEntriesOfTheStatedTypes) {
  NSDictionary *defaults = [manager() defaultPrefs];
  EXPECT_EQ([defaults count], 11u);
  NSDictionary *integers = @{
    @"Enabled" : @1,
    @"NotificationBadges" : @1,
    @"OnActivationMode" : @1,
    @"QuickSwitcherEnabled" : @0,
    @"ShowSwitcherWithSnapshots" : @0,
    @"hideSnapshotsOnFavourites" : @0,
    @"pullToKillEnabled" : @0,
    @"quickSwitcherDefaultToFavourites" : @0,
  };
  for (NSString *key in integers) {
    EXPECT_OBJC_EQ([defaults objectForKey:key], [integers objectForKey:key]) << [key UTF8String];
    EXPECT_TRUE(isInt([defaults objectForKey:key])) << [key UTF8String];
  }
  EXPECT_OBJC_EQ([defaults objectForKey:@"defaultNowPlayingBundleIdentifier"], @[ @"com.apple.Music" ]);
  NSArray *widgets = @[ @"com.norvik.Zunowidgets.siri", @"KRBFavouritesView", @"KRBMusicView" ];
  EXPECT_OBJC_EQ([defaults objectForKey:@"EnabledWidgets"], widgets);
  NSNumber *width = [defaults objectForKey:@"quickSwitcherWidthModifier"];
  EXPECT_STREQ([width objCType], @encode(float));
  EXPECT_EQ([width floatValue], -20.0f);
}

TEST_F(KRBPreferenceManagerTest, VersionIsTheIntegerTwo) {
  EXPECT_OBJC_EQ([manager() kCurrentVersion], @2);
  EXPECT_TRUE(isInt([manager() kCurrentVersion]));
}

TEST_F(KRBPreferenceManagerTest, WithoutAFileEveryKeyHasItsDefault) {
  EXPECT_OBJC_EQ([manager() getPrefs], @{});
  EXPECT_EQ([resolved(@"quickSwitcherWidthModifier") floatValue], -20.0f);
  EXPECT_OBJC_EQ(resolved(@"EnabledWidgets"),
                 (@[ @"com.norvik.Zunowidgets.siri", @"KRBFavouritesView", @"KRBMusicView" ]));
  EXPECT_OBJC_EQ(resolved(@"FavouriteApplications"), nil);
  EXPECT_OBJC_EQ(resolved(@"ShownWelcome"), nil);
  EXPECT_OBJC_EQ(resolved(@"Enabled"), @1);
}

TEST_F(KRBPreferenceManagerTest, StoredValuesWinWhileTheMasterSwitchIsOn) {
  writePreferences(kMainFile, @{@"pullToKillEnabled" : @1, @"FavouriteApplications" : @[ @"a.b" ]});
  EXPECT_OBJC_EQ(resolved(@"pullToKillEnabled"), @1);
  EXPECT_OBJC_EQ(resolved(@"FavouriteApplications"), @[ @"a.b" ]);
  EXPECT_OBJC_EQ(resolved(@"NotificationBadges"), @1);
}

TEST_F(KRBPreferenceManagerTest, MasterSwitchOffGivesDefaultsButToTheExemptKeys) {
  writePreferences(
      kMainFile, @{
        @"Enabled" : @0,
        @"pullToKillEnabled" : @1,
        @"ShownWelcome" : @"yes",
        @"EnabledWidgets" : @[ @"KRBMusicView" ],
        @"FavouriteApplications" : @[ @"a.b" ],
      });
  EXPECT_OBJC_EQ(resolved(@"pullToKillEnabled"), @0);
  EXPECT_OBJC_EQ(resolved(@"ShownWelcome"), @"yes");
  EXPECT_OBJC_EQ(resolved(@"Enabled"), @0);
  EXPECT_TRUE([resolved(@"EnabledWidgets") containsObject:@"KRBFavouritesView"]);
  EXPECT_OBJC_EQ(resolved(@"FavouriteApplications"), nil);
}

TEST_F(KRBPreferenceManagerTest, TheMasterSwitchIsReadInBothFormsOfATruthValue) {
  for (NSNumber *off in @[ @0, @(NO) ]) {
    writePreferences(kMainFile, @{@"Enabled" : off, @"pullToKillEnabled" : @1});
    EXPECT_OBJC_EQ(resolved(@"pullToKillEnabled"), @0);
  }
  for (NSNumber *on in @[ @1, @(YES) ]) {
    writePreferences(kMainFile, @{@"Enabled" : on, @"pullToKillEnabled" : @1});
    EXPECT_OBJC_EQ(resolved(@"pullToKillEnabled"), @1);
  }
}

TEST_F(KRBPreferenceManagerTest, NothingIsCached) {
  writePreferences(kMainFile, @{@"pullToKillEnabled" : @1});
  EXPECT_OBJC_EQ(resolved(@"pullToKillEnabled"), @1);
  writePreferences(kMainFile, @{@"pullToKillEnabled" : @0});
  EXPECT_OBJC_EQ(resolved(@"pullToKillEnabled"), @0);
}

TEST_F(KRBPreferenceManagerTest, UnreadableFilesReadAsEmpty) {
  for (const char *content : {"", "<plist><dict><key>Enabled", "bplist00garbage", "\xff\xfe\x01", "[1,2]"}) {
    write(kMainFile, content);
    EXPECT_OBJC_EQ([manager() getPrefs], @{}) << content;
    EXPECT_OBJC_EQ(resolved(@"NotificationBadges"), @1) << content;
  }
  EXPECT_TRUE([@[ @"an array" ] writeToFile:path(kMainFile) atomically:YES]);
  EXPECT_OBJC_EQ([manager() getPrefs], @{});
}

TEST_F(KRBPreferenceManagerTest, AFolderInPlaceOfTheFileReadsAsEmpty) {
  makeFolder(kMainFile);
  EXPECT_OBJC_EQ([manager() getPrefs], @{});
  EXPECT_OBJC_EQ(resolved(@"OnActivationMode"), @1);
}

TEST_F(KRBPreferenceManagerTest, AMasterSwitchThatIsNoTruthValueCountsAsNotStored) {
  writePreferences(kMainFile, @{@"Enabled" : @[ @0 ], @"pullToKillEnabled" : @1});
  EXPECT_OBJC_EQ(resolved(@"pullToKillEnabled"), @1);
  writePreferences(kMainFile, @{@"Enabled" : @"0", @"pullToKillEnabled" : @1});
  EXPECT_OBJC_EQ(resolved(@"pullToKillEnabled"), @0);
}

/// A dictionary whose look-up raises stands in for a platform that raises while it reads.
TEST_F(KRBPreferenceManagerTest, AnExceptionWhileReadingGivesTheIntegerZero) {
  // A key that raises when it is hashed or compared, which the look-up does and the caller does not.
  id key = [[[NSClassFromString(@"RaisingKey") alloc] init] autorelease];
  writePreferences(kMainFile, @{@"a" : @1});
  EXPECT_OBJC_EQ([manager() getPrefForKey:key], @0);
}

}  // namespace

/// Answers the comparison that decides about the exempt keys, and raises when a dictionary looks it up.
@interface RaisingKey : NSObject
@end

@implementation RaisingKey
- (BOOL)isEqualToString:(NSString *)other {
  return [other isEqualToString:@"ShownWelcome"];
}
- (NSUInteger)hash {
  [NSException raise:NSGenericException format:@"no hash"];
  return 0;
}
@end
