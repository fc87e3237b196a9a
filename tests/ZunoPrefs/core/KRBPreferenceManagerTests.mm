#import "core/KRBPreferenceManager.h"

#include <sys/stat.h>

#include "ZunoPrefs/support/BundleTest.h"

namespace {

class KRBPreferenceManagerTest : public BundleTest {
 protected:
  Class manager() { return classNamed("KRBPreferenceManager"); }
  id resolved(NSString *key) { return [manager() getPrefForKey:key]; }
};

TEST_F(KRBPreferenceManagerTest, DefaultTableHasElevenEntriesOfTheStatedTypes) {
  NSDictionary *defaults = [manager() defaultPrefs];
  EXPECT_EQ([defaults count], 11u);
  EXPECT_OBJC_EQ([defaults objectForKey:@"Enabled"], @1);
  EXPECT_OBJC_EQ([defaults objectForKey:@"NotificationBadges"], @1);
  EXPECT_OBJC_EQ([defaults objectForKey:@"OnActivationMode"], @1);
  for (NSString *key in @[
         @"QuickSwitcherEnabled", @"ShowSwitcherWithSnapshots", @"hideSnapshotsOnFavourites", @"pullToKillEnabled",
         @"quickSwitcherDefaultToFavourites"
       ]) {
    EXPECT_OBJC_EQ([defaults objectForKey:key], @0) << [key UTF8String];
    EXPECT_STREQ([[defaults objectForKey:key] objCType], @encode(int)) << [key UTF8String];
  }
  EXPECT_OBJC_EQ([defaults objectForKey:@"defaultNowPlayingBundleIdentifier"], @[ @"com.apple.Music" ]);
  NSArray *widgets = @[ @"com.norvik.Zunowidgets.siri", @"KRBFavouritesView", @"KRBMusicView" ];
  EXPECT_OBJC_EQ([defaults objectForKey:@"EnabledWidgets"], widgets);
  NSNumber *width = [defaults objectForKey:@"quickSwitcherWidthModifier"];
  EXPECT_STREQ([width objCType], @encode(float));
  EXPECT_EQ([width floatValue], -20.0f);
}

TEST_F(KRBPreferenceManagerTest, VersionIsTwo) { EXPECT_OBJC_EQ([manager() kCurrentVersion], @2); }

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
  writePreferences(kMainFile, @{
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
