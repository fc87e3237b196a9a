// Entries of settings bundles, and the first page that lists them.
#import <UIKit/UITableView+Sim.h>

#import "Settings/PreferenceLoader.h"
#import "Settings/SettingsRootController.h"
#import <dispatch/MainQueue+Sim.h>

#include <unistd.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#import <Foundation/SIMLog.h>
#import <Preferences/Preferences.h>
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

namespace {

NSString *const kEntries = @"/var/jb/Library/PreferenceLoader/Preferences";
NSString *const kBundles = @"/var/jb/Library/PreferenceBundles";

class PreferenceLoaderTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    SIMSetLogHandler(
        [](NSString *line, void *context) {
          static_cast<std::vector<std::string> *>(context)->push_back([line UTF8String]);
        },
        &log_);
  }
  void TearDown() override {
    [window_.get() setHidden:YES];
    window_ = nullptr;
    navigation_ = nullptr;
    SIMDrainMainQueue();
    SIMSetLogHandler(nullptr, nullptr);
    DeviceTest::TearDown();
  }

  void writeEntry(NSString *name, NSDictionary *content) {
    NSString *file = [kEntries stringByAppendingPathComponent:name];
    makeFolder([file stringByDeletingLastPathComponent]);
    ASSERT_TRUE([content writeToFile:path(file) atomically:YES]);
  }
  /// An entry that names the bundle, and the bundle's folder.
  void installBundle(NSString *name, NSString *label, NSDictionary *more = @{}, NSDictionary *info = nil) {
    NSMutableDictionary *entry = [NSMutableDictionary dictionaryWithDictionary:more];
    [entry setObject:label forKey:@"label"];
    [entry setObject:name forKey:@"bundle"];
    [entry setObject:@"PSLinkCell" forKey:@"cell"];
    [entry setObject:@1 forKey:@"isController"];
    writeEntry([name stringByAppendingString:@".plist"], @{@"entry" : entry});
    NSString *folder = makeFolder(bundlePath(name));
    if (info) {
      ASSERT_TRUE([info writeToFile:[folder stringByAppendingPathComponent:@"Info.plist"] atomically:YES]);
    }
  }
  static NSString *bundlePath(NSString *name) {
    return [kBundles stringByAppendingPathComponent:[name stringByAppendingString:@".bundle"]];
  }
  /// A bundle whose code is the Preferences library itself, with one of its pages as the principal class.
  void installWorkingBundle(NSString *name, NSString *principalClass, NSDictionary *more = @{}) {
    NSMutableDictionary *info = [NSMutableDictionary dictionaryWithDictionary:@{
      @"CFBundleExecutable" : name,
      @"CFBundleIdentifier" : [@"com.example." stringByAppendingString:name]
    }];
    if (principalClass) [info setObject:principalClass forKey:@"NSPrincipalClass"];
    installBundle(name, name, more, info);
    NSString *executable = [path(bundlePath(name)) stringByAppendingPathComponent:name];
    ASSERT_EQ(symlink(BUILD_FOLDER "/simulator/libsim_preferences.so", [executable UTF8String]), 0);
  }

  std::string labels() {
    std::string result;
    for (PSSpecifier *specifier in sim::preferenceEntries(nil)) {
      result += (result.empty() ? "" : ",") + std::string([[specifier name] UTF8String]);
    }
    return result;
  }
  SettingsRootController *showRoot() {
    root_ = [[[SettingsRootController alloc] init] autorelease];
    window_ = objcxx::adopt([[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]]);
    navigation_ = objcxx::adopt([[UINavigationController alloc] initWithRootViewController:root_]);
    [window_.get() setRootViewController:navigation_.get()];
    [window_.get() makeKeyAndVisible];
    [[root_ table] sim_prepareForDescription];
    return root_;
  }
  UIViewController *tapRow(NSInteger row) {
    [[root_ table] sim_prepareForDescription];
    EXPECT_TRUE([[root_ table] sim_tapRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]]);
    SIMDrainMainQueue();
    return [navigation_.get() topViewController];
  }
  UINavigationController *navigation() { return navigation_.get(); }
  int logged(const std::string &part) const {
    int count = 0;
    for (const std::string &line : log_) count += line.find(part) != std::string::npos ? 1 : 0;
    return count;
  }

 private:
  std::vector<std::string> log_;
  SettingsRootController *root_ = nil;
  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UINavigationController> navigation_;
};

TEST_F(PreferenceLoaderTest, EntriesAreSortedByLabelWithoutRegardToCase) {
  installBundle(@"One", @"zebra");
  installBundle(@"Two", @"Alpha");
  writeEntry(@"deeper/folder/three.plist", @{@"entry" : @{@"label" : @"beta"}, @"items" : @[]});
  EXPECT_EQ(labels(), "Alpha,beta,zebra");
  EXPECT_EQ(logged("[Preferences]"), 0);
}

TEST_F(PreferenceLoaderTest, NoFolderOfEntriesGivesNone) { EXPECT_EQ(labels(), ""); }

TEST_F(PreferenceLoaderTest, BrokenEntriesAreDroppedAndHurtNothingElse) {
  installBundle(@"Good", @"Good");
  write([kEntries stringByAppendingPathComponent:@"garbage.plist"], "not a list <");
  write([kEntries stringByAppendingPathComponent:@"empty.plist"], "");
  write([kEntries stringByAppendingPathComponent:@"notes.txt"], "no entry");
  makeFolder([kEntries stringByAppendingPathComponent:@"folder.plist"]);
  writeEntry(@"none.plist", @{@"other" : @1});
  writeEntry(@"text.plist", @{@"entry" : @"text"});
  writeEntry(@"absent.plist", @{@"entry" : @{@"label" : @"Absent", @"bundle" : @"Absent"}});
  writeEntry(@"number.plist", @{@"entry" : @{@"label" : @"Number", @"bundle" : @7}});
  writeEntry(@"label.plist", @{@"entry" : @{@"label" : @7}, @"items" : @[]});
  writeEntry(@"bare.plist", @{@"entry" : @{@"label" : @"Bare"}});
  writeEntry(@"items.plist", @{@"entry" : @{@"label" : @"Items"}, @"items" : @"none"});
  EXPECT_EQ(labels(), "Good");
  EXPECT_EQ(logged("is left out"), 10);
}

TEST_F(PreferenceLoaderTest, EntriesForOtherVersionsAreDropped) {
  const auto entry = [&](NSString *name, NSArray *bounds) {
    writeEntry(
        [name stringByAppendingString:@".plist"],
        @{@"entry" : @{@"label" : name},
          @"items" : @[],
          @"pl_filter" : @{@"CoreFoundationVersion" : bounds}});
  };
  entry(@"From", @[ @1500 ]);
  entry(@"Within", @[ @1500, @2500 ]);
  entry(@"Old", @[ @1000, @1500 ]);
  entry(@"New", @[ @2500 ]);
  entry(@"Odd", @[ @[] ]);
  EXPECT_EQ(labels(), "From,Odd,Within");
}

TEST_F(PreferenceLoaderTest, AnEntryWithoutLabelIsNamedAfterItsFile) {
  writeEntry(@"My Tweak.plist", @{@"entry" : @{}, @"items" : @[]});
  EXPECT_EQ(labels(), "My Tweak");
}

TEST_F(PreferenceLoaderTest, TheRootListsTheEntries) {
  EXPECT_EQ([[showRoot() table] numberOfRowsInSection:0], 0);
  EXPECT_OBJC_EQ([[showRoot() table] sim_titleForFooterInSection:0], @"No settings bundle is installed.");
  installBundle(@"One", @"First");
  UITableView *table = [showRoot() table];
  ASSERT_EQ([table numberOfRowsInSection:0], 1);
  UITableViewCell *cell = [table cellForRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]];
  EXPECT_OBJC_EQ([[cell textLabel] text], @"First");
  EXPECT_EQ([cell accessoryType], UITableViewCellAccessoryDisclosureIndicator);
  EXPECT_OBJC_EQ([[navigation() topViewController] title], @"Settings");
}

TEST_F(PreferenceLoaderTest, ABundleIsLoadedWhenItsRowIsTapped) {
  installWorkingBundle(@"Works", @"PSListItemsController");
  showRoot();
  UIViewController *page = tapRow(0);
  EXPECT_TRUE([page isMemberOfClass:[PSListItemsController class]]);
  EXPECT_OBJC_EQ([page title], @"Works");
  EXPECT_OBJC_EQ([[(PSViewController *)page specifier] name], @"Works");
  [navigation() popViewControllerAnimated:NO];
  EXPECT_TRUE([tapRow(0) isMemberOfClass:[PSListItemsController class]]);
}

TEST_F(PreferenceLoaderTest, ThePrincipalClassBeatsTheDetail) {
  installWorkingBundle(@"A", @"PSListItemsController", @{@"detail" : @"PSListController"});
  installWorkingBundle(
      @"B", @"PSListItemsController",
      @{@"detail" : @"PSListController",
        @"overridePrincipalClass" : @1});
  installWorkingBundle(@"C", @"PSListItemsController", @{@"detail" : @"NoSuchClass", @"overridePrincipalClass" : @1});
  showRoot();
  EXPECT_TRUE([tapRow(0) isMemberOfClass:[PSListItemsController class]]);
  [navigation() popViewControllerAnimated:NO];
  EXPECT_TRUE([tapRow(1) isMemberOfClass:[PSListController class]]);
  [navigation() popViewControllerAnimated:NO];
  EXPECT_TRUE([tapRow(2) isMemberOfClass:[PSListItemsController class]]);
}

TEST_F(PreferenceLoaderTest, ABundleThatCannotBeLoadedSaysSo) {
  installBundle(@"No Code", @"A");
  installBundle(@"Broken", @"B", @{}, @{@"CFBundleExecutable" : @"Broken", @"NSPrincipalClass" : @"PSListController"});
  write([bundlePath(@"Broken") stringByAppendingPathComponent:@"Broken"], "no library");
  installWorkingBundle(@"C", @"NSString");
  showRoot();
  for (NSInteger row = 0; row < 3; ++row) {
    PSListController *page = (PSListController *)tapRow(row);
    ASSERT_NE(page, [[navigation() viewControllers] objectAtIndex:0]) << row;
    NSString *label = [NSString stringWithFormat:@"%c", 'A' + static_cast<int>(row)];
    NSString *message = [NSString stringWithFormat:@"There was an error loading the preference bundle for %@.", label];
    EXPECT_OBJC_EQ([[page specifierAtIndex:1] name], message);
    [[page table] sim_prepareForDescription];
    EXPECT_OBJC_EQ([[[[page table] cellForRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]] textLabel] text],
                   message);
    [navigation() popViewControllerAnimated:NO];
  }
  EXPECT_EQ(logged("could not be loaded") + logged("has no page"), 3);
}

TEST_F(PreferenceLoaderTest, AnEntryWithItemsIsAPageOfItsOwn) {
  writeEntry(
      @"list.plist", @{
        @"title" : @"The Page",
        @"entry" : @{@"cell" : @"PSLinkCell", @"label" : @"Row"},
        @"items" : @[
          @{@"cell" : @"PSGroupCell", @"label" : @"Head"},
          @{@"cell" : @"PSSwitchCell", @"label" : @"On", @"key" : @"on", @"defaults" : @"com.example.list"}
        ]
      });
  showRoot();
  PSListController *page = (PSListController *)tapRow(0);
  EXPECT_OBJC_EQ([page title], @"The Page");
  ASSERT_EQ([[page table] numberOfRowsInSection:0], 1);
  [page setPreferenceValue:@1 specifier:[page specifierForID:@"On"]];
  EXPECT_TRUE(exists(@"/var/mobile/Library/Preferences/com.example.list.plist"));
}

}  // namespace
