#import <UIKit/UIKit.h>
#import <UIKit/UIScrollView+Sim.h>
#include <objcxx/Retained.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

@interface ScrollCounter : NSObject <UIScrollViewDelegate> {
 @public
  int scrolls;
}
@end

@implementation ScrollCounter
- (void)scrollViewDidScroll:(UIScrollView *)scrollView {
  ++scrolls;
}
@end

namespace {

class UIScrollViewTest : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    [view_.get() setDelegate:counter_.get()];
    [view_.get() setContentSize:CGSizeMake(100, 1000)];
  }
  objcxx::Retained<ScrollCounter> counter_ = objcxx::adopt([[ScrollCounter alloc] init]);
  objcxx::Retained<UIScrollView> view_ = objcxx::adopt([[UIScrollView alloc] initWithFrame:CGRectMake(0, 0, 100, 200)]);
};

}  // namespace

TEST_F(UIScrollViewTest, TheOffsetIsTheOriginOfTheBounds) {
  [view_.get() setContentOffset:CGPointMake(0, 30)];
  EXPECT_EQ([view_.get() bounds].origin.y, 30);
  EXPECT_TRUE(CGRectEqualToRect([view_.get() frame], CGRectMake(0, 0, 100, 200)));
  EXPECT_EQ(counter_.get()->scrolls, 1);
  [view_.get() setContentOffset:CGPointMake(0, 30) animated:YES];
  EXPECT_EQ(counter_.get()->scrolls, 1);
}

TEST_F(UIScrollViewTest, ADelegateThatIsFreedIsToldNoMore) {
  @autoreleasepool {
    EXPECT_TRUE([view_.get() sim_isFollowed]);
    EXPECT_EQ([view_.get() delegate], counter_.get());
    counter_ = nullptr;
  }
  EXPECT_FALSE([view_.get() delegate]);
  EXPECT_FALSE([view_.get() sim_isFollowed]);
  [view_.get() setContentOffset:CGPointMake(0, 30) animated:YES];
  [view_.get() setContentInset:UIEdgeInsetsMake(10, 0, 0, 0)];
  [view_.get() sim_scrollTo:CGPointMake(0, 50) phase:sim::ScrollPhase::kWhole velocity:CGPointZero];
  EXPECT_TRUE([view_.get() sim_scrollToTop]);
  EXPECT_EQ([view_.get() contentOffset].y, -10);
}

TEST_F(UIScrollViewTest, ScrollsNoFurtherThanNeeded) {
  const auto offsetFor = [this](CGFloat y, CGFloat height) {
    [view_.get() scrollRectToVisible:CGRectMake(0, y, 10, height) animated:NO];
    return [view_.get() contentOffset].y;
  };
  EXPECT_EQ(offsetFor(100, 50), 0);
  EXPECT_EQ(offsetFor(300, 50), 150);
  EXPECT_EQ(offsetFor(160, 10), 150);
  EXPECT_EQ(offsetFor(140, 20), 140);
  EXPECT_EQ(offsetFor(500, 400), 500);
}

TEST_F(UIScrollViewTest, KeepsItsSettings) {
  UIScrollView *view = view_.get();
  EXPECT_TRUE([view isScrollEnabled]);
  EXPECT_TRUE([view bounces]);
  EXPECT_TRUE([view showsVerticalScrollIndicator]);
  EXPECT_TRUE([view clipsToBounds]);
  [view setScrollEnabled:NO];
  [view setContentInset:UIEdgeInsetsMake(1, 2, 3, 4)];
  [view setKeyboardDismissMode:UIScrollViewKeyboardDismissModeOnDrag];
  EXPECT_FALSE([view isScrollEnabled]);
  EXPECT_TRUE(UIEdgeInsetsEqualToEdgeInsets([view contentInset], UIEdgeInsetsMake(1, 2, 3, 4)));
  EXPECT_EQ([view keyboardDismissMode], UIScrollViewKeyboardDismissModeOnDrag);
  EXPECT_EQ([view contentSize].height, 1000);
}
