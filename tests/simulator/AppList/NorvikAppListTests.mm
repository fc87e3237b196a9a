#include "simulator/AppList/AppListTest.h"

namespace {

class NorvikAppListTest : public AppListTest {};

TEST_F(NorvikAppListTest, DeliversOnceLaterInAlphabeticalOrder) {
  installNamed(@"zebra", @"com.example.zebra");
  installNamed(@"Music", @"com.example.music");
  installNamed(@"apple", @"com.example.apple");
  install(@"/var/containers/Bundle/Application/8A1B/Éclair.app",
          @{@"CFBundleIdentifier" : @"com.example.eclair", @"CFBundleDisplayName" : @"Éclair"});
  EXPECT_EQ(names(apps()), "apple,Éclair,Music,zebra");
}

TEST_F(NorvikAppListTest, NoApplicationsAtAll) {
  NSArray *none = apps();
  EXPECT_TRUE(none != nil);
  EXPECT_EQ([none count], 0u);
}

TEST_F(NorvikAppListTest, AListWithoutACompletionDoesNothing) {
  [[[[NorvikAppList alloc] init] autorelease] getAppList:nil];
}

TEST_F(NorvikAppListTest, NamesFallBack) {
  install(@"/Applications/A.app", @{@"CFBundleIdentifier" : @"a", @"CFBundleName" : @"Named A"});
  install(@"/Applications/Folder B.app", @{@"CFBundleIdentifier" : @"b", @"CFBundleDisplayName" : @""});
  install(@"/Applications/C.app", @{@"CFBundleIdentifier" : @"c", @"CFBundleDisplayName" : @7, @"CFBundleName" : @[]});
  EXPECT_EQ(names(apps()), "C,Folder B,Named A");
}

TEST_F(NorvikAppListTest, BrokenApplicationsAreSkippedAndHurtNothingElse) {
  installNamed(@"Good", @"com.example.good");
  makeFolder(@"/Applications/NoInfo.app");
  write(@"/Applications/Garbage.app/Info.plist", "not a property list <");
  write(@"/Applications/Empty.app/Info.plist", "");
  write(@"/Applications/Array.app/Info.plist", "<plist version=\"1.0\"><array/></plist>");
  makeFolder(@"/Applications/Folder.app/Info.plist");
  install(@"/Applications/NoIdentifier.app", @{@"CFBundleDisplayName" : @"No identifier"});
  install(@"/Applications/NumberIdentifier.app", @{@"CFBundleIdentifier" : @7});
  install(@"/Applications/EmptyIdentifier.app", @{@"CFBundleIdentifier" : @""});
  write(@"/Applications/File.app", "a file");
  installNamed(@"not an app", @"com.example.other");
  NSString *plain = path(@"/Applications/Plain Folder");
  [[NSFileManager defaultManager] createDirectoryAtPath:plain
                            withIntermediateDirectories:YES
                                             attributes:nil
                                                  error:NULL];
  EXPECT_EQ(names(apps()), "Good,not an app");
  EXPECT_EQ(logged("it is left out"), 9);
  EXPECT_EQ(logged("Garbage.app"), 1);
}

TEST_F(NorvikAppListTest, TheFirstOfTwoWithOneIdentifierCounts) {
  installNamed(@"B second", @"com.example.same");
  installNamed(@"A first", @"com.example.same");
  install(@"/var/containers/Bundle/Application/1/0.app",
          @{@"CFBundleIdentifier" : @"com.example.same", @"CFBundleDisplayName" : @"0 third"});
  EXPECT_EQ(names(apps()), "A first");
}

TEST_F(NorvikAppListTest, IconsAreFoundAndLoadedLazily) {
  install(@"/Applications/Default.app", @{@"CFBundleIdentifier" : @"a"});
  NSString *file = write(@"/Applications/Default.app/AppIcon60x60@3x.png", png(180));
  install(@"/Applications/Listed.app", @{@"CFBundleIdentifier" : @"b", @"CFBundleIconFiles" : @[ @7, @"Icon.png" ]});
  write(@"/Applications/Listed.app/Icon@2x.png", png(120));
  install(
      @"/Applications/Primary.app", @{
        @"CFBundleIdentifier" : @"c",
        @"CFBundleIcons" : @{@"CFBundlePrimaryIcon" : @{@"CFBundleIconFiles" : @[ @"Main" ]}}
      });
  write(@"/Applications/Primary.app/Main.png", png(60));
  NSArray *all = apps();
  ASSERT_EQ([all count], 3u);
  for (NorvikAppRecord *app in all) {
    EXPECT_NEAR([[app icon] size].width, 29, 0.001) << text([app displayName]);
    EXPECT_NEAR([[app icon] size].height, 29, 0.001) << text([app displayName]);
  }
  NorvikAppRecord *first = [all objectAtIndex:0];
  UIImage *icon = [first icon];
  [[NSFileManager defaultManager] removeItemAtPath:file error:NULL];
  EXPECT_EQ([first icon], icon);
}

TEST_F(NorvikAppListTest, IconsHaveTheSystemsRoundCorners) {
  install(@"/Applications/A.app", @{@"CFBundleIdentifier" : @"a"});
  write(@"/Applications/A.app/AppIcon60x60@3x.png", png(180));
  NorvikAppRecord *app = [apps() objectAtIndex:0];
  const CFDataRef pixels = CGDataProviderCopyData(CGImageGetDataProvider([[app icon] CGImage]));
  ASSERT_EQ(CFDataGetLength(pixels), 180 * 180 * 4);
  const UInt8 *bytes = CFDataGetBytePtr(pixels);
  const auto alphaAt = [&](int x, int y) { return bytes[(y * 180 + x) * 4 + 3]; };
  EXPECT_EQ(alphaAt(0, 0), 0);
  EXPECT_EQ(alphaAt(179, 179), 0);
  EXPECT_EQ(alphaAt(90, 0), 255);
  EXPECT_EQ(alphaAt(90, 90), 255);
  CFRelease(pixels);
}

TEST_F(NorvikAppListTest, IconsThatCannotBeReadAreNil) {
  install(@"/Applications/A.app", @{@"CFBundleIdentifier" : @"a", @"CFBundleIcons" : @"text"});
  install(@"/Applications/B.app", @{@"CFBundleIdentifier" : @"b"});
  write(@"/Applications/B.app/AppIcon60x60@3x.png", "no picture");
  install(@"/Applications/C.app", @{@"CFBundleIdentifier" : @"c", @"CFBundleIconFiles" : @[ @"../B.app/Secret" ]});
  write(@"/Applications/B.app/Secret.png", png(10));
  for (NorvikAppRecord *app in apps()) EXPECT_EQ([app icon], nil) << text([app displayName]);
}

TEST_F(NorvikAppListTest, RecordsAreEqualByIdentifier) {
  installNamed(@"A", @"com.example.a");
  installNamed(@"B", @"com.example.b");
  NSArray *once = apps();
  NSArray *twice = apps();
  EXPECT_OBJC_EQ([once objectAtIndex:0], [twice objectAtIndex:0]);
  EXPECT_EQ([[once objectAtIndex:0] hash], [[twice objectAtIndex:0] hash]);
  EXPECT_OBJC_NE([once objectAtIndex:0], [once objectAtIndex:1]);
  EXPECT_EQ([once indexOfObject:[twice objectAtIndex:1]], 1u);
}

TEST_F(NorvikAppListTest, TheListAndItsRecordsAreFreed) {
  installNamed(@"A", @"com.example.a");
  int deaths = 0;
  @autoreleasepool {
    Lifetime *captured = [[[Lifetime alloc] initWithCounter:&deaths] autorelease];
    NorvikAppList *list = [[[NorvikAppList alloc] init] autorelease];
    [list getAppList:^(NSArray *) {
      [captured self];
    }];
    apps();
  }
  EXPECT_EQ(deaths, 1);
}

}  // namespace
