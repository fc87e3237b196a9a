#import <NorvikAppList/NorvikAppListTableViewController.h>

#import <UIKit/UITableView+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include "simulator/AppList/AppListTest.h"

/// Counts its own death.
@interface MortalAppPage : NorvikAppListTableViewController {
 @public
  int *_deaths;
}
@end
@implementation MortalAppPage
- (void)dealloc {
  ++*_deaths;
  [super dealloc];
}
@end

namespace {

NSString *const kFile = @"/var/jb/var/mobile/Library/Preferences/com.example.picker.plist";

class NorvikAppListPageTest : public AppListTest {
 protected:
  void SetUp() override {
    AppListTest::SetUp();
    installNamed(@"Alpha", @"com.example.alpha");
    installNamed(@"Beta", @"com.example.beta");
    installNamed(@"Gamma", @"com.example.gamma");
  }
  void store(NSDictionary *content) {
    makeFolder([kFile stringByDeletingLastPathComponent]);
    ASSERT_TRUE([content writeToFile:path(kFile) atomically:YES]);
  }
  NSDictionary *stored() { return [NSDictionary dictionaryWithContentsOfFile:path(kFile)]; }
  NSArray *chosen() { return [stored() objectForKey:@"apps"]; }

  void open(NSInteger maxEnabled = 0, NSString *identifier = @"com.example.picker") {
    page_ = [[[NorvikAppListTableViewController alloc] initWithIdentifier:identifier andKey:@"apps"] autorelease];
    [page_ setMaxEnabled:maxEnabled];
    show(page_);
  }
  bool tapRow(NSInteger row) {
    const bool taken = [[page_ tableView] sim_tapRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]];
    SIMDrainMainQueue();
    return taken;
  }
  UITableViewCell *row(NSInteger number) {
    [[page_ tableView] sim_prepareForDescription];
    return [[page_ tableView] cellForRowAtIndexPath:[NSIndexPath indexPathForRow:number inSection:0]];
  }
  /// Rows with a check mark, as letters.
  std::string checked() {
    std::string result;
    for (NSInteger number = 0; number < 3; ++number) {
      UITableViewCell *cell = row(number);
      if ([cell accessoryType] == UITableViewCellAccessoryCheckmark) result += text([[cell textLabel] text]).front();
    }
    return result;
  }
  NorvikAppListTableViewController *page_ = nil;
};

TEST_F(NorvikAppListPageTest, ShowsTheApplicationsWithTheirIcons) {
  write(@"/Applications/Beta.app/AppIcon60x60@3x.png", png(180));
  open();
  EXPECT_EQ([[page_ tableView] numberOfRowsInSection:0], 3);
  EXPECT_OBJC_EQ([[row(1) textLabel] text], @"Beta");
  EXPECT_EQ([[[row(1) imageView] image] size].width, 29);
  EXPECT_EQ(checked(), "");
  EXPECT_FALSE(exists(kFile));
}

TEST_F(NorvikAppListPageTest, ATapChoosesAndAnotherDrops) {
  store(@{@"other" : @"kept", @"apps" : @[ @"com.example.gamma" ]});
  open();
  EXPECT_EQ(checked(), "G");
  EXPECT_TRUE(tapRow(0));
  EXPECT_EQ(checked(), "AG");
  EXPECT_OBJC_EQ(stored(), (@{@"other" : @"kept", @"apps" : @[ @"com.example.gamma", @"com.example.alpha" ]}));
  tapRow(2);
  EXPECT_EQ(checked(), "A");
  EXPECT_OBJC_EQ(chosen(), @[ @"com.example.alpha" ]);
  EXPECT_OBJC_EQ([[page_ tableView] indexPathForSelectedRow], nil);
}

TEST_F(NorvikAppListPageTest, WithAMaximumOfOneTheNewChoiceReplacesTheOld) {
  open(1);
  tapRow(0);
  tapRow(1);
  EXPECT_EQ(checked(), "B");
  EXPECT_OBJC_EQ(chosen(), @[ @"com.example.beta" ]);
  tapRow(1);
  EXPECT_EQ(checked(), "");
  EXPECT_OBJC_EQ(chosen(), @[]);
}

TEST_F(NorvikAppListPageTest, AMaximumOfMoreRefusesAFurtherChoice) {
  open(2);
  tapRow(0);
  tapRow(1);
  tapRow(2);
  EXPECT_EQ(checked(), "AB");
  EXPECT_OBJC_EQ([[page_ tableView] sim_titleForFooterInSection:0], @"Choose up to 2 applications.");
  tapRow(0);
  tapRow(2);
  EXPECT_EQ(checked(), "BG");
}

TEST_F(NorvikAppListPageTest, ABareStringIsOneIdentifier) {
  store(@{@"apps" : @"com.example.beta"});
  open();
  EXPECT_EQ(checked(), "B");
  tapRow(0);
  EXPECT_OBJC_EQ(chosen(), (@[ @"com.example.beta", @"com.example.alpha" ]));
}

TEST_F(NorvikAppListPageTest, ApplicationsThatAreGoneStayStored) {
  store(@{@"apps" : @[ @"com.example.gone", @"com.example.beta" ]});
  open();
  EXPECT_EQ(checked(), "B");
  tapRow(0);
  EXPECT_OBJC_EQ(chosen(), (@[ @"com.example.gone", @"com.example.beta", @"com.example.alpha" ]));
}

TEST_F(NorvikAppListPageTest, ApplicationsThatAreGoneMakeRoom) {
  store(@{@"apps" : @[ @"com.example.gone", @"com.example.beta" ]});
  open(2);
  tapRow(0);
  EXPECT_OBJC_EQ(chosen(), (@[ @"com.example.beta", @"com.example.alpha" ]));
}

TEST_F(NorvikAppListPageTest, ThingsThatAreNoIdentifiersHurtNothing) {
  for (id value in (@[ @7, @{@"a" : @1}, [NSData data] ])) {
    store(@{@"apps" : value});
    open();
    EXPECT_EQ(checked(), "");
    tapRow(0);
    EXPECT_OBJC_EQ(chosen(), @[ @"com.example.alpha" ]);
  }
  store(@{@"apps" : @[ @7, @"com.example.beta", @{} ]});
  open();
  EXPECT_EQ(checked(), "B");
  tapRow(0);
  EXPECT_OBJC_EQ(chosen(), (@[ @7, @"com.example.beta", @{}, @"com.example.alpha" ]));
}

TEST_F(NorvikAppListPageTest, AFileThatIsNoDictionaryIsNotOverwritten) {
  for (const char *content : {"", "garbage <", "<plist version=\"1.0\"><array/></plist>"}) {
    log.clear();
    write(kFile, content);
    open();
    EXPECT_TRUE(tapRow(0));
    EXPECT_EQ(checked(), "");
    EXPECT_EQ(read(kFile), content);
    EXPECT_EQ(logged("was not stored"), 1);
  }
}

TEST_F(NorvikAppListPageTest, AnIdentifierThatIsNoFileNameStoresNothing) {
  open(0, @"../../escape");
  EXPECT_TRUE(tapRow(0));
  EXPECT_EQ(checked(), "");
  EXPECT_EQ(logged("is no preference domain"), 1);
  EXPECT_FALSE(exists(@"/var/jb/var/mobile/escape.plist"));
}

TEST_F(NorvikAppListPageTest, TheIdentifierOfATappedApplicationIsShown) {
  open();
  tapRow(1);
  EXPECT_OBJC_EQ([[row(1) detailTextLabel] text], nil);
  [page_ setShowBundleIdentifierOnTap:YES];
  tapRow(0);
  EXPECT_OBJC_EQ([[row(0) detailTextLabel] text], @"com.example.alpha");
  EXPECT_EQ(checked(), "AB");
  tapRow(2);
  EXPECT_OBJC_EQ([[row(0) detailTextLabel] text], nil);
  EXPECT_OBJC_EQ([[row(2) detailTextLabel] text], @"com.example.gamma");
}

TEST_F(NorvikAppListPageTest, ReadsTheChoiceAgainWhenItAppears) {
  open();
  UIViewController *above = [[[UIViewController alloc] init] autorelease];
  [navigation() pushViewController:above animated:NO];
  store(@{@"apps" : @[ @"com.example.gamma" ]});
  [navigation() popViewControllerAnimated:NO];
  EXPECT_EQ(checked(), "G");
}

TEST_F(NorvikAppListPageTest, ThePageIsFreed) {
  int deaths = 0;
  @autoreleasepool {
    MortalAppPage *page = [[MortalAppPage alloc] initWithIdentifier:@"com.example.picker" andKey:@"apps"];
    page->_deaths = &deaths;
    [page view];
    [page release];
    EXPECT_EQ(deaths, 0);  // The list to come keeps it.
    SIMDrainMainQueue();
  }
  EXPECT_EQ(deaths, 1);
}

TEST_F(NorvikAppListPageTest, TenThousandApplications) {
  for (int number = 0; number < 10000; ++number) {
    @autoreleasepool {
      NSString *file = [NSString stringWithFormat:@"/Applications/App %05d.app/Info.plist", number];
      write(file, "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>many." + std::to_string(number) +
                      "</string></dict></plist>");
    }
  }
  open();
  EXPECT_EQ([[page_ tableView] numberOfRowsInSection:0], 10003);
  EXPECT_TRUE(tapRow(5000));
  EXPECT_EQ([chosen() count], 1u);
}

}  // namespace
