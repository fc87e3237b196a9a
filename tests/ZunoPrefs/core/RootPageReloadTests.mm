// When the root page rebuilds its rows, and in which order with what the framework does itself.
#import <Preferences/PSListController.h>
#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>

#import "core/ZunoprefsRootListController.h"

#include "ZunoPrefs/core/RootPageTest.h"
#include "ZunoPrefs/theme/PresetsTest.h"
#include "support/objc/MethodSpy.h"

namespace {

class RootPageReloadTest : public RootPageTest {
 protected:
  /// What the page does during `body`, in order: "will" and "did" with the flag when the superclass hears of an
  /// appearance, "reload"; each with "!" behind it when `shouldReload` is set at that moment.
  static std::string during(ZunoprefsRootListController *page, const std::function<void()> &body) {
    std::string events;
    const auto note = [&](id receiver, const std::string &event) {
      if (receiver == page) events += (events.empty() ? "" : ",") + event + (shouldReload(page) ? "!" : "");
    };
    const auto flagged = [](const char *name, BOOL flag) { return std::string(name) + (flag ? " yes" : " no"); };
    Class superclass = class_getSuperclass([page class]);
    MethodSpy<BOOL> will(superclass, @selector(viewWillAppear:),
                         [&](id receiver, BOOL animated) { note(receiver, flagged("will", animated)); });
    MethodSpy<BOOL> did(superclass, @selector(viewDidAppear:),
                        [&](id receiver, BOOL animated) { note(receiver, flagged("did", animated)); });
    MethodSpy<> reload(superclass, @selector(reloadSpecifiers), [&](id receiver) { note(receiver, "reload"); });
    body();
    return events;
  }
  static void forget(ZunoprefsRootListController *page) { [page setValue:@(NO) forKey:@"shouldReload"]; }
};

TEST_F(RootPageReloadTest, ThePageThatAppearsTellsItsSuperclassAndThenRebuildsItsRows) {
  ZunoprefsRootListController *page = newPage();
  (void)show(page);
  for (const BOOL animated : {NO, YES}) {
    forget(page);
    EXPECT_EQ(during(page, [&] { [page viewWillAppear:animated]; }), animated ? "will yes,reload!" : "will no,reload!");
  }
}

TEST_F(RootPageReloadTest, ThePageThatHasAppearedRebuildsItsRowsOnlyOnRequest) {
  ZunoprefsRootListController *page = newPage();
  (void)show(page);
  for (const BOOL animated : {NO, YES}) {
    const std::string told = animated ? "did yes" : "did no";
    forget(page);
    EXPECT_EQ(during(page, [&] { [page viewDidAppear:animated]; }), told);
    EXPECT_FALSE(shouldReload(page));
    pendingRootReload() = YES;
    EXPECT_EQ(during(page, [&] { [page viewDidAppear:animated]; }), told + ",reload!");
    EXPECT_FALSE(pendingRootReload());
  }
}

/// The whole way: the theme page and the presets screen are opened by their rows, a preset is applied, and the user
/// comes back.
class AppliedPresetTest : public PresetsTest {
 protected:
  void SetUp() override {
    PresetsTest::SetUp();
    page_ = objcxx::adopt((PSListController *)[[classNamed("ZunoprefsRootListController") alloc] init]);
    navigation_ = show(page_.get());
  }
  void TearDown() override {
    page_ = nullptr;
    PresetsTest::TearDown();
  }

  /// Taps the row of the page in front whose label is `label`.
  void tapRow(NSString *label) {
    auto *front = (PSListController *)[navigation_ topViewController];
    for (PSSpecifier *row in [front specifiers]) {
      if (![[row propertyForKey:@"label"] isEqual:label] || [row cellType] == PSGroupCell) continue;
      [front tableView:[front table] didSelectRowAtIndexPath:[front indexPathForSpecifier:row]];
      SIMDrainMainQueue();
      return;
    }
    ADD_FAILURE() << "no row " << [label UTF8String];
  }
  /// Opens the presets screen, taps the only preset and answers the question with `answer`.
  void choosePreset(const char *answer) {
    tapRow(@"Customise");
    tapRow(@"Presets");
    auto *presets = (UITableViewController *)[navigation_ topViewController];
    ASSERT_TRUE([presets isKindOfClass:classNamed("ZunoPresets")]);
    [presets tableView:[presets tableView] didSelectRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]];
    tapAction(presets, answer);
  }
  /// Goes back to the root page, one page at a time, and counts how often that rebuilds its rows.
  int rebuildsOnTheWayBack() {
    int rebuilds = 0;
    MethodSpy<> reload([PSListController class], @selector(reloadSpecifiers),
                       [&](id receiver) { rebuilds += receiver == page_.get(); });
    while ([[navigation_ viewControllers] count] > 1) {
      [navigation_ popViewControllerAnimated:YES];
      SIMDrainMainQueue();
    }
    return rebuilds;
  }

 private:
  objcxx::Retained<PSListController> page_;
  UINavigationController *navigation_ = nil;
};

TEST_F(AppliedPresetTest, TheRootPageRebuildsItsRowsOnceMoreAfterAnAppliedPreset) {
  writePreset(@"look", @{@"spacing" : @3, @"ZunoPresetVersion" : @1});
  choosePreset("Cancel");
  EXPECT_EQ(rebuildsOnTheWayBack(), 1) << "as it does each time it appears";
  choosePreset("Confirm");
  EXPECT_OBJC_EQ([preferences(kThemeFile) objectForKey:@"spacing"], @3);
  EXPECT_TRUE(pendingRootReload());
  EXPECT_EQ(rebuildsOnTheWayBack(), 2) << "and again, because it was asked to";
  EXPECT_FALSE(pendingRootReload());
  tapRow(@"Customise");
  EXPECT_EQ(rebuildsOnTheWayBack(), 1) << "the request holds for one appearance";
}

}  // namespace
