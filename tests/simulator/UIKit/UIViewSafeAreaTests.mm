#import <UIKit/UIKit.h>
#import <UIKit/UIScreen+Sim.h>

#import "TableSource.h"

#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;
using testing_support::at;

namespace {

constexpr UIEdgeInsets kUpright{47, 0, 34, 0};
constexpr UIEdgeInsets kOnItsSide{0, 47, 21, 47};

class SafeAreaTest : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    SIMSetMainScreen(CGSizeMake(390, 844), 3, kUpright);
    window_ = adopt([[UIWindow alloc] init]);
  }
  void TearDown() override {
    window_ = nullptr;
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    ObjCTest::TearDown();
  }

  void turnTo(CGSize size, UIEdgeInsets safeArea) {
    SIMSetMainScreen(size, 3, safeArea);
    [window_.get() setFrame:[[UIScreen mainScreen] bounds]];
    [window_.get() layoutIfNeeded];
  }
  void lay() { turnTo(CGSizeMake(844, 390), kOnItsSide); }
  void stand() { turnTo(CGSizeMake(390, 844), kUpright); }

  objcxx::Retained<UIViewController> pageInStack() {
    auto page = adopt([[UIViewController alloc] init]);
    stack_ = adopt([[UINavigationController alloc] initWithRootViewController:page.get()]);
    [window_.get() setRootViewController:stack_.get()];
    [window_.get() makeKeyAndVisible];
    [window_.get() layoutIfNeeded];
    return page;
  }

  /// A table view that fills the page of a stack, with one section of a title and two rows.
  objcxx::Retained<UITableView> tableOf(UITableViewStyle style) {
    source_ = adopt([[TableSource alloc] initWithCounts:{2}]);
    const auto page = pageInStack();
    auto table = adopt([[UITableView alloc] initWithFrame:[[page.get() view] bounds] style:style]);
    [table.get() setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
    [table.get() setDataSource:source_.get()];
    [[page.get() view] addSubview:table.get()];
    [window_.get() layoutIfNeeded];
    return table;
  }

  static void expectInsets(UIView *view, UIEdgeInsets expected) {
    EXPECT_OBJC_EQ(NSStringFromUIEdgeInsets([view safeAreaInsets]), NSStringFromUIEdgeInsets(expected));
  }

  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UINavigationController> stack_;
  objcxx::Retained<TableSource> source_;
};

TEST_F(SafeAreaTest, ReachesIntoAViewAsFarAsTheViewLiesThere) {
  expectInsets(window_.get(), kUpright);
  const auto inside = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 40, 390, 780)]);
  expectInsets(inside.get(), UIEdgeInsetsZero);
  [window_.get() addSubview:inside.get()];
  expectInsets(inside.get(), UIEdgeInsetsMake(7, 0, 10, 0));
  const auto low = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 775, 390, 5)]);
  [inside.get() addSubview:low.get()];
  expectInsets(low.get(), UIEdgeInsetsMake(0, 0, 5, 0));
  [inside.get() removeFromSuperview];
  expectInsets(low.get(), UIEdgeInsetsZero);
}

TEST_F(SafeAreaTest, TheNavigationBarIsPartOfIt) {
  const auto page = pageInStack();
  expectInsets([page.get() view], UIEdgeInsetsMake(47 + 44, 0, 34, 0));
  EXPECT_TRUE(CGRectEqualToRect([[stack_.get() navigationBar] frame], CGRectMake(0, 47, 390, 44)));
  lay();
  expectInsets([page.get() view], UIEdgeInsetsMake(32, 47, 21, 47));
  EXPECT_TRUE(CGRectEqualToRect([[stack_.get() navigationBar] frame], CGRectMake(0, 0, 844, 32)));
  [stack_.get() setNavigationBarHidden:YES];
  expectInsets([page.get() view], kOnItsSide);
  SIMSetMainScreen(CGSizeMake(1180, 820), 2, UIEdgeInsetsMake(24, 0, 20, 0));
  [stack_.get() setNavigationBarHidden:NO];
  [window_.get() setFrame:[[UIScreen mainScreen] bounds]];
  [window_.get() layoutIfNeeded];
  expectInsets([page.get() view], UIEdgeInsetsMake(24 + 50, 0, 20, 0));
}

TEST_F(SafeAreaTest, AScrollViewKeepsItsContentClearOfTopAndBottom) {
  const auto table = tableOf(UITableViewStylePlain);
  UIView *cell = [table.get() cellForRowAtIndexPath:at(0, 0)];
  expectInsets(cell, UIEdgeInsetsZero);
  lay();
  expectInsets(cell, UIEdgeInsetsMake(0, 47, 0, 47));
  expectInsets([[table.get() cellForRowAtIndexPath:at(0, 0)] contentView], UIEdgeInsetsZero);
}

TEST_F(SafeAreaTest, RowsOfAPlainTableReachTheEdgesAndTheirContentDoesNot) {
  const auto table = tableOf(UITableViewStylePlain);
  UITableViewCell *cell = [table.get() cellForRowAtIndexPath:at(0, 1)];
  for (int turn = 0; turn < 2; ++turn) {
    stand();
    EXPECT_TRUE(CGRectEqualToRect([cell frame], CGRectMake(0, 44, 390, 44)));
    EXPECT_TRUE(CGRectEqualToRect([[cell contentView] frame], CGRectMake(0, 0, 390, 44)));
    EXPECT_TRUE(CGRectEqualToRect([[cell textLabel] frame], CGRectMake(16, 0, 390 - 32, 44)));
    lay();
    EXPECT_TRUE(CGRectEqualToRect([cell frame], CGRectMake(0, 44, 844, 44)));
    EXPECT_TRUE(CGRectEqualToRect([[cell contentView] frame], CGRectMake(47, 0, 844 - 94, 44)));
    EXPECT_TRUE(CGRectEqualToRect([[cell textLabel] frame], CGRectMake(20, 0, 844 - 94 - 40, 44)));
  }
}

TEST_F(SafeAreaTest, RowsOfAnInsetTableLieBetweenTheSides) {
  const auto table = tableOf(UITableViewStyleInsetGrouped);
  UITableViewCell *cell = [table.get() cellForRowAtIndexPath:at(0, 0)];
  EXPECT_EQ([cell frame].origin.x, 16);
  EXPECT_EQ([cell frame].size.width, 390 - 32);
  lay();
  EXPECT_EQ([table.get() cellForRowAtIndexPath:at(0, 0)], cell) << "a turn needs no other cell";
  EXPECT_EQ([cell frame].origin.x, 47 + 20);
  EXPECT_EQ([cell frame].size.width, 844 - 2 * 67);
  EXPECT_EQ([[cell textLabel] frame].origin.x, 20);
  EXPECT_EQ([[cell contentView] frame].size.width, 844 - 2 * 67);
  stand();
  EXPECT_EQ([cell frame].origin.x, 16);
  EXPECT_EQ([[cell textLabel] frame].origin.x, 16);
}

TEST_F(SafeAreaTest, ATableThatWasLaidOutBeforeItCameToTheScreenFollows) {
  lay();
  source_ = adopt([[TableSource alloc] initWithCounts:{1}]);
  const auto table = adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 844, 390) style:UITableViewStylePlain]);
  [table.get() setDataSource:source_.get()];
  [table.get() layoutIfNeeded];
  UITableViewCell *cell = [table.get() cellForRowAtIndexPath:at(0, 0)];
  EXPECT_EQ([[cell contentView] frame].origin.x, 0);
  [window_.get() addSubview:table.get()];
  [window_.get() layoutIfNeeded];
  EXPECT_EQ([table.get() cellForRowAtIndexPath:at(0, 0)], cell);
  EXPECT_EQ([[cell contentView] frame].origin.x, 47);
}

TEST_F(SafeAreaTest, SidesMayDiffer) {
  const auto table = tableOf(UITableViewStyleInsetGrouped);
  turnTo(CGSizeMake(844, 390), UIEdgeInsetsMake(0, 47, 21, 0));
  const CGRect frame = [[table.get() cellForRowAtIndexPath:at(0, 0)] frame];
  EXPECT_EQ(frame.origin.x, 67);
  EXPECT_EQ(frame.size.width, 844 - 67 - 20);
}

}  // namespace
