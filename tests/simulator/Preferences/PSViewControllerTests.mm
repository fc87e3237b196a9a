// Reading and writing of pages that keep no store of their own.
#include "simulator/Preferences/PreferencesTest.h"

namespace {

NSString *const kFile = @"/var/mobile/Library/Preferences/com.example.test.plist";

class PSViewControllerTest : public PreferencesTest {
 protected:
  void SetUp() override {
    PreferencesTest::SetUp();
    page_ = [[PSViewController alloc] init];
    row_ = [[PSSpecifier groupSpecifierWithName:@"Row"] retain];
    [row_ setProperty:@"level" forKey:PSKeyNameKey];
    [row_ setProperty:@"com.example.test" forKey:PSDefaultsKey];
  }
  void TearDown() override {
    [page_ release];
    [row_ release];
    PreferencesTest::TearDown();
  }
  NSDictionary *stored() { return [NSDictionary dictionaryWithContentsOfFile:path(kFile)]; }
  void store(NSDictionary *content) {
    makeFolder([kFile stringByDeletingLastPathComponent]);
    ASSERT_TRUE([content writeToFile:path(kFile) atomically:YES]);
  }

  PSViewController *page_ = nil;
  PSSpecifier *row_ = nil;
};

TEST_F(PSViewControllerTest, ReadsTheDomainThenTheDefault) {
  EXPECT_OBJC_EQ([page_ readPreferenceValue:row_], nil);
  [row_ setProperty:@3 forKey:PSDefaultValueKey];
  EXPECT_OBJC_EQ([page_ readPreferenceValue:row_], @3);
  EXPECT_FALSE(exists(kFile));
  store(@{@"level" : @5});
  EXPECT_OBJC_EQ([page_ readPreferenceValue:row_], @5);
  EXPECT_OBJC_EQ([row_ propertyForKey:PSValueKey], @5);
}

TEST_F(PSViewControllerTest, WritesOneKeyAndPosts) {
  store(@{@"level" : @1, @"other" : @"kept"});
  [row_ setProperty:@"com.example.test/changed" forKey:PSValueChangedNotificationKey];
  [page_ setPreferenceValue:@7 specifier:row_];
  EXPECT_OBJC_EQ(stored(), (@{@"level" : @7, @"other" : @"kept"}));
  EXPECT_EQ(posted, std::vector<std::string>{"com.example.test/changed"});
}

TEST_F(PSViewControllerTest, MakesTheFileAndItsFolder) {
  [page_ setPreferenceValue:@"text" specifier:row_];
  EXPECT_OBJC_EQ(stored(), @{@"level" : @"text"});
  EXPECT_TRUE(posted.empty());
}

TEST_F(PSViewControllerTest, IgnoresNothingAndWhatItHasAlready) {
  [row_ setProperty:@"changed" forKey:PSValueChangedNotificationKey];
  [page_ setPreferenceValue:nil specifier:row_];
  EXPECT_FALSE(exists(kFile));
  [page_ setPreferenceValue:@7 specifier:row_];
  [page_ setPreferenceValue:@7 specifier:row_];
  EXPECT_EQ(posted.size(), 1u);
}

TEST_F(PSViewControllerTest, NegatesBothWays) {
  [row_ setProperty:@1 forKey:PSNegateValueKey];
  [row_ setProperty:[NSNumber numberWithBool:YES] forKey:PSDefaultValueKey];
  EXPECT_FALSE([[page_ readPreferenceValue:row_] boolValue]);
  [row_ setProperty:@"YES" forKey:PSDefaultValueKey];
  EXPECT_OBJC_EQ([page_ readPreferenceValue:row_], [NSNumber numberWithBool:NO]) << "a text says it as well";
  [page_ setPreferenceValue:[NSNumber numberWithBool:YES] specifier:row_];
  EXPECT_FALSE([[stored() objectForKey:@"level"] boolValue]);
  EXPECT_TRUE([[page_ readPreferenceValue:row_] boolValue]);
}

TEST_F(PSViewControllerTest, WithoutKeyOrDomainNothingIsRead) {
  store(@{@"level" : @5});
  [row_ removePropertyForKey:PSDefaultsKey];
  EXPECT_OBJC_EQ([page_ readPreferenceValue:row_], nil);
  [page_ setPreferenceValue:@9 specifier:row_];
  [row_ setProperty:@"com.example.test" forKey:PSDefaultsKey];
  [row_ removePropertyForKey:PSKeyNameKey];
  EXPECT_OBJC_EQ([page_ readPreferenceValue:row_], nil);
  [page_ setPreferenceValue:@9 specifier:row_];
  EXPECT_OBJC_EQ(stored(), @{@"level" : @5});
}

TEST_F(PSViewControllerTest, AFileThatIsNoDictionaryIsNotOverwritten) {
  for (const char *content : {"", "garbage <", "<plist version=\"1.0\"><array><string>a</string></array></plist>"}) {
    log.clear();
    write(kFile, content);
    [row_ setProperty:@2 forKey:PSDefaultValueKey];
    EXPECT_OBJC_EQ([page_ readPreferenceValue:row_], @2);
    [page_ setPreferenceValue:@9 specifier:row_];
    EXPECT_EQ(read(kFile), content);
    EXPECT_EQ(logged("was not stored"), 1);
  }
  EXPECT_TRUE(posted.empty());
}

TEST_F(PSViewControllerTest, AFolderInPlaceOfTheFileIsLeftAlone) {
  makeFolder(kFile);
  EXPECT_OBJC_EQ([page_ readPreferenceValue:row_], nil);
  [page_ setPreferenceValue:@9 specifier:row_];
  EXPECT_EQ(logged("was not stored"), 1);
}

TEST_F(PSViewControllerTest, AValueThatCannotBeStoredIsLoggedAndNotPosted) {
  store(@{@"level" : @5});
  [row_ setProperty:@"changed" forKey:PSValueChangedNotificationKey];
  [page_ setPreferenceValue:[NSNull null] specifier:row_];
  EXPECT_OBJC_EQ(stored(), @{@"level" : @5});
  EXPECT_EQ(logged("could not be written"), 1);
  EXPECT_TRUE(posted.empty());
}

TEST_F(PSViewControllerTest, ADomainThatIsNoFileNameReachesNothing) {
  [row_ setProperty:@"../../../escape" forKey:PSDefaultsKey];
  [page_ setPreferenceValue:@9 specifier:row_];
  EXPECT_OBJC_EQ([page_ readPreferenceValue:row_], nil);
  EXPECT_EQ(logged("is no preference domain"), 2);
}

TEST_F(PSViewControllerTest, TheTitleIsTheRowsNameUnlessThereIsOne) {
  [page_ setSpecifier:row_];
  EXPECT_OBJC_EQ([page_ title], @"Row");
  [page_ setSpecifier:[PSSpecifier groupSpecifierWithName:@"Other"]];
  EXPECT_OBJC_EQ([page_ title], @"Row");
}

TEST_F(PSViewControllerTest, ParentsThatGoAreForgotten) {
  @autoreleasepool {
    PSViewController *parent = [[PSViewController alloc] init];
    [page_ setParentController:parent];
    [page_ setRootController:parent];
    [parent release];
  }
  EXPECT_EQ([page_ parentController], nil);
  EXPECT_EQ([page_ rootController], nil);
}

TEST_F(PSViewControllerTest, PushesOnItsNavigationController) {
  show(page_);
  UIViewController *next = [[[UIViewController alloc] init] autorelease];
  [page_ pushController:next];
  EXPECT_EQ(top(), next);
  UIViewController *third = [[[UIViewController alloc] init] autorelease];
  [page_ showController:third animate:NO];
  EXPECT_EQ(top(), third);
}

}  // namespace
