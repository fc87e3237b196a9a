#import <UIKit/UIKit.h>
#import <UIKit/UIScreen+Sim.h>

#include <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

using objcxx::adopt;

/// Counts what it is told of its insets.
@interface InsetView : UIScrollView <UIScrollViewDelegate> {
 @public
  int changes;
  int told;
}
@end

@implementation InsetView
- (void)adjustedContentInsetDidChange {
  [super adjustedContentInsetDidChange];
  ++changes;
}
- (void)scrollViewDidChangeAdjustedContentInset:(UIScrollView *)view {
  (void)view;
  ++told;
}
@end

namespace {

constexpr CGFloat kStatus = 47, kBar = 44, kHome = 34;

/// A page in a navigation controller on an upright phone.
class ExtendedLayoutTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    SIMSetMainScreen(CGSizeMake(390, 844), 3, {kStatus, 0, kHome, 0});
    window_ = adopt([[UIWindow alloc] init]);
    page_ = adopt([[UIViewController alloc] init]);
    stack_ = adopt([[UINavigationController alloc] initWithRootViewController:page_.get()]);
    scroll_ = adopt([[InsetView alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]);
    [scroll_.get() setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
    [scroll_.get() setDelegate:scroll_.get()];
    [[page_.get() view] addSubview:scroll_.get()];
    [window_.get() setRootViewController:stack_.get()];
    [window_.get() makeKeyAndVisible];
    [window_.get() layoutIfNeeded];
  }
  void TearDown() override {
    window_ = nullptr;
    stack_ = nullptr;
    page_ = nullptr;
    scroll_ = nullptr;
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    ObjCTest::TearDown();
  }

  UIViewController *page() { return page_.get(); }
  UINavigationController *stack() { return stack_.get(); }
  InsetView *scroll() { return scroll_.get(); }
  CGRect frame() {
    [window_.get() layoutIfNeeded];
    return [[page() view] frame];
  }
  UIEdgeInsets inset() {
    [window_.get() layoutIfNeeded];
    return [scroll() adjustedContentInset];
  }

  const CGRect whole_ = CGRectMake(0, 0, 390, 844);
  const CGRect below_ = CGRectMake(0, kStatus + kBar, 390, 844 - kStatus - kBar);

 private:
  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UIViewController> page_;
  objcxx::Retained<UINavigationController> stack_;
  objcxx::Retained<InsetView> scroll_;
};

TEST_F(ExtendedLayoutTests, APageReachesUnderATranslucentBar) {
  EXPECT_EQ([page() edgesForExtendedLayout], UIRectEdgeAll);
  EXPECT_FALSE([page() extendedLayoutIncludesOpaqueBars]);
  EXPECT_TRUE(CGRectEqualToRect(frame(), whole_));
  EXPECT_EQ([[page() view] safeAreaInsets].top, kStatus + kBar);
}

TEST_F(ExtendedLayoutTests, APageBeginsBelowAnOpaqueBar) {
  [[stack() navigationBar] setTranslucent:NO];
  EXPECT_TRUE(CGRectEqualToRect(frame(), below_));
  EXPECT_EQ([[page() view] safeAreaInsets].top, 0);
  EXPECT_EQ([[page() view] safeAreaInsets].bottom, kHome);
  EXPECT_EQ([scroll() frame].size.height, below_.size.height);

  [page() setExtendedLayoutIncludesOpaqueBars:YES];
  EXPECT_TRUE(CGRectEqualToRect(frame(), whole_));
  EXPECT_EQ([[page() view] safeAreaInsets].top, kStatus + kBar);
}

TEST_F(ExtendedLayoutTests, APageMayLeaveTheTopEdgeToTheBar) {
  [page() setEdgesForExtendedLayout:UIRectEdgeNone];
  EXPECT_TRUE(CGRectEqualToRect(frame(), below_));
  [page() setEdgesForExtendedLayout:UIRectEdgeBottom];
  EXPECT_TRUE(CGRectEqualToRect(frame(), below_));
  [page() setExtendedLayoutIncludesOpaqueBars:YES];
  EXPECT_TRUE(CGRectEqualToRect(frame(), below_));
  [page() setEdgesForExtendedLayout:UIRectEdgeTop];
  EXPECT_TRUE(CGRectEqualToRect(frame(), whole_));
}

TEST_F(ExtendedLayoutTests, UnderAHiddenBarAPageHasTheWholeScreen) {
  [page() setEdgesForExtendedLayout:UIRectEdgeNone];
  EXPECT_TRUE(CGRectEqualToRect(frame(), below_));
  [stack() setNavigationBarHidden:YES];
  EXPECT_TRUE(CGRectEqualToRect(frame(), whole_));
  EXPECT_EQ([[page() view] safeAreaInsets].top, kStatus);
  [stack() setNavigationBarHidden:NO];
  EXPECT_TRUE(CGRectEqualToRect(frame(), below_));
}

TEST_F(ExtendedLayoutTests, ThePageThatIsPushedBeginsWhereItWants) {
  const auto next = adopt([[UIViewController alloc] init]);
  [next.get() setEdgesForExtendedLayout:UIRectEdgeNone];
  [stack() pushViewController:next.get() animated:NO];
  EXPECT_TRUE(CGRectEqualToRect([[next.get() view] frame], below_));
  [stack() popViewControllerAnimated:NO];
  EXPECT_TRUE(CGRectEqualToRect(frame(), whole_));
}

TEST_F(ExtendedLayoutTests, TheScrollViewOfAPageKeepsClearOfTheBars) {
  EXPECT_EQ(inset().top, kStatus + kBar);
  EXPECT_EQ(inset().bottom, kHome);
  [scroll() setContentInset:UIEdgeInsetsMake(5, 6, 7, 8)];
  EXPECT_EQ(inset().top, kStatus + kBar + 5);
  EXPECT_EQ(inset().left, 6);
  EXPECT_EQ(inset().bottom, kHome + 7);
  EXPECT_TRUE(UIEdgeInsetsEqualToEdgeInsets([scroll() contentInset], UIEdgeInsetsMake(5, 6, 7, 8)));

  [scroll() setContentInsetAdjustmentBehavior:UIScrollViewContentInsetAdjustmentNever];
  EXPECT_TRUE(UIEdgeInsetsEqualToEdgeInsets(inset(), UIEdgeInsetsMake(5, 6, 7, 8)));
}

TEST_F(ExtendedLayoutTests, ScrollableAxesAreThoseWithMoreContentThanRoom) {
  [scroll() setContentInsetAdjustmentBehavior:UIScrollViewContentInsetAdjustmentScrollableAxes];
  EXPECT_EQ(inset().top, 0);
  [scroll() setContentSize:CGSizeMake(390, 2000)];
  EXPECT_EQ(inset().top, kStatus + kBar);
  [scroll() setContentSize:CGSizeZero];
  [scroll() setAlwaysBounceVertical:YES];
  EXPECT_EQ(inset().top, kStatus + kBar);
  [scroll() setAlwaysBounceVertical:NO];
  [scroll() setContentInsetAdjustmentBehavior:UIScrollViewContentInsetAdjustmentAlways];
  EXPECT_EQ(inset().top, kStatus + kBar);
}

TEST_F(ExtendedLayoutTests, APageMayLeaveInsetsAlone) {
  [page() setAutomaticallyAdjustsScrollViewInsets:NO];
  EXPECT_EQ(inset().top, 0);
  [scroll() setContentInsetAdjustmentBehavior:UIScrollViewContentInsetAdjustmentAlways];
  EXPECT_EQ(inset().top, kStatus + kBar);
}

TEST_F(ExtendedLayoutTests, AScrollViewIsToldOfOtherInsets) {
  scroll()->changes = scroll()->told = 0;
  [scroll() setContentInset:UIEdgeInsetsMake(5, 0, 0, 0)];
  EXPECT_EQ(scroll()->changes, 1);
  EXPECT_EQ(scroll()->told, 1);
  [scroll() setContentInset:UIEdgeInsetsMake(5, 0, 0, 0)];
  EXPECT_EQ(scroll()->changes, 1);
  [stack() setNavigationBarHidden:YES];
  EXPECT_EQ(inset().top, kStatus + 5);
  EXPECT_EQ(scroll()->changes, 2);
  EXPECT_EQ(scroll()->told, 2);
  [scroll() setContentInsetAdjustmentBehavior:UIScrollViewContentInsetAdjustmentNever];
  EXPECT_EQ(scroll()->told, 3) << "at once";
}

TEST_F(ExtendedLayoutTests, AScrollViewIsToldWhenItsPageNoLongerAdjustsIt) {
  (void)inset();
  scroll()->told = 0;
  [page() setAutomaticallyAdjustsScrollViewInsets:NO];
  EXPECT_EQ(inset().top, 0);
  EXPECT_EQ(scroll()->told, 1);
}

TEST_F(ExtendedLayoutTests, AScrollViewThatIsThePagesViewIsToldToo) {
  const auto own = adopt([[InsetView alloc] initWithFrame:whole_]);
  const auto next = adopt([[UIViewController alloc] init]);
  [next.get() setView:own.get()];
  [stack() pushViewController:next.get() animated:NO];
  [[stack() view] layoutIfNeeded];
  EXPECT_EQ([own.get() adjustedContentInset].top, kStatus + kBar);
  own.get()->changes = 0;
  [next.get() setAutomaticallyAdjustsScrollViewInsets:NO];
  [[stack() view] layoutIfNeeded];
  EXPECT_EQ(own.get()->changes, 1);
}

TEST_F(ExtendedLayoutTests, AWideScrollViewKeepsClearOfWhatCoversItsSides) {
  SIMSetMainScreen(CGSizeMake(844, 390), 3, {0, kStatus, 21, kStatus});
  (void)frame();
  EXPECT_EQ(inset().left, 0);
  [scroll() setContentInsetAdjustmentBehavior:UIScrollViewContentInsetAdjustmentAlways];
  EXPECT_EQ(inset().left, kStatus);
  [scroll() setContentInsetAdjustmentBehavior:UIScrollViewContentInsetAdjustmentScrollableAxes];
  [scroll() setContentSize:CGSizeMake(2000, 100)];
  EXPECT_EQ(inset().left, kStatus);
  EXPECT_EQ(inset().right, kStatus);
  EXPECT_EQ(inset().top, 0);
}

}  // namespace
