// What a finger does with the content of a scroll view, who is told of it, and what code moves meanwhile.
#import <UIKit/UIKit.h>
#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UIScrollView+Sim.h>
#import <dispatch/MainQueue+Sim.h>
#include <objcxx/Retained.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

#include "TableSource.h"

#include <cmath>
#include <optional>
#include <string>

using objcxx::adopt;
using sim::ScrollPhase;

/// Writes down what it is told, and whether a finger drags then, or the content glides: "begin[td]".
@interface ScrollNotes : NSObject <UIScrollViewDelegate> {
 @public
  std::string notes;
  CGPoint velocity, target;
  std::optional<CGPoint> wanted;    ///< Where the content is to come to rest.
  std::optional<CGPoint> answered;  ///< Where code moves it to when it is told of a move.
  BOOL refusesTop, disables;
}
@end

@implementation ScrollNotes
- (void)note:(const char *)what of:(UIScrollView *)view {
  notes += std::string(notes.empty() ? "" : " ") + what;
  const std::string state =
      std::string([view isTracking] ? "t" : "") + ([view isDragging] ? "d" : "") + ([view isDecelerating] ? "g" : "");
  if (!state.empty()) notes += "[" + state + "]";
}
- (void)scrollViewDidScroll:(UIScrollView *)view {
  const CGPoint offset = [view contentOffset];
  [self note:(std::to_string(int(offset.x)) + "," + std::to_string(int(offset.y))).c_str() of:view];
  if (answered) [view setContentOffset:*answered];
}
- (void)scrollViewWillBeginDragging:(UIScrollView *)view {
  [self note:"begin" of:view];
}
- (void)scrollViewWillEndDragging:(UIScrollView *)view
                     withVelocity:(CGPoint)itsVelocity
              targetContentOffset:(inout CGPoint *)targetContentOffset {
  [self note:"willEnd" of:view];
  velocity = itsVelocity;
  target = *targetContentOffset;
  if (wanted) *targetContentOffset = *wanted;
  if (disables) [view setScrollEnabled:NO];
}
- (void)scrollViewDidEndDragging:(UIScrollView *)view willDecelerate:(BOOL)decelerate {
  [self note:decelerate ? "lift" : "stop" of:view];
}
- (void)scrollViewWillBeginDecelerating:(UIScrollView *)view {
  [self note:"glide" of:view];
}
- (void)scrollViewDidEndDecelerating:(UIScrollView *)view {
  [self note:"rest" of:view];
}
- (void)scrollViewDidEndScrollingAnimation:(UIScrollView *)view {
  [self note:"animated" of:view];
}
- (BOOL)scrollViewShouldScrollToTop:(UIScrollView *)view {
  [self note:"top?" of:view];
  return !refusesTop;
}
- (void)scrollViewDidScrollToTop:(UIScrollView *)view {
  [self note:"top" of:view];
}
@end

/// Hears of nothing that moves.
@interface DeafDelegate : NSObject <UITableViewDelegate>
@end
@implementation DeafDelegate
- (void)scrollViewDidEndScrollingAnimation:(UIScrollView *)view {
}
- (void)scrollViewDidScrollToTop:(UIScrollView *)view {
}
- (void)tableView:(UITableView *)table didSelectRowAtIndexPath:(NSIndexPath *)path {
}
@end

/// Never shows what lies above 50 points.
@interface StubbornScrollView : UIScrollView
@end
@implementation StubbornScrollView
- (void)setContentOffset:(CGPoint)offset {
  [super setContentOffset:CGPointMake(offset.x, std::max<CGFloat>(offset.y, 50))];
}
@end

/// Stays where it is, whatever anybody says.
@interface FrozenScrollView : UIScrollView
@end
@implementation FrozenScrollView
- (void)setContentOffset:(CGPoint)offset {
}
@end

@interface LaidOutScrollView : UIScrollView
@end
@implementation LaidOutScrollView
- (void)layoutSubviews {
  [super layoutSubviews];
}
@end

@interface OffsetObserver : NSObject {
 @public
  int changes;
}
@end
@implementation OffsetObserver
- (void)observeValueForKeyPath:(NSString *)path
                      ofObject:(id)object
                        change:(NSDictionary *)change
                       context:(void *)context {
  ++changes;
}
@end

namespace {

class ScrollingByFingerTest : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    show(adopt([[UIScrollView alloc] initWithFrame:CGRectMake(0, 0, 100, 200)]));
  }

  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    ObjCTest::TearDown();
  }

  void show(objcxx::Retained<UIScrollView> view) {
    view_ = view;
    [view_.get() setContentSize:CGSizeMake(100, 1000)];
    [view_.get() setDelegate:notes_.get()];
  }
  void scroll(CGFloat y, ScrollPhase phase, CGPoint velocity = CGPointZero) {
    [view_.get() sim_scrollTo:CGPointMake([view_.get() contentOffset].x, y) phase:phase velocity:velocity];
  }
  std::string notes() { return std::exchange(notes_.get()->notes, ""); }
  CGFloat y() { return [view_.get() contentOffset].y; }
  std::uint32_t number() { return [view_.get() sim_positionNumber]; }

  objcxx::Retained<ScrollNotes> notes_ = adopt([[ScrollNotes alloc] init]);
  objcxx::Retained<UIScrollView> view_;
};

}  // namespace

TEST_F(ScrollingByFingerTest, theDelegateIsToldOfADragInItsOrder) {
  scroll(10, ScrollPhase::kBegan);
  scroll(30, ScrollPhase::kMoved);
  EXPECT_EQ(notes(), "begin[td] 0,10[td] 0,30[td]");
  scroll(30, ScrollPhase::kEnded);
  EXPECT_EQ(notes(), "willEnd[td] stop");
  EXPECT_EQ(y(), 30);
}

TEST_F(ScrollingByFingerTest, contentGlidesOnWhenTheFingerIsLifted) {
  scroll(10, ScrollPhase::kBegan);
  scroll(20, ScrollPhase::kLifted, CGPointMake(0, 0.5));
  EXPECT_EQ(notes(), "begin[td] 0,10[td] 0,20[td] willEnd[td] lift glide[g]");
  EXPECT_EQ(notes_.get()->velocity.y, 0.5);
  EXPECT_DOUBLE_EQ(notes_.get()->target.y, 20 + 0.5 * 499);
  scroll(40, ScrollPhase::kMoved);
  scroll(50, ScrollPhase::kEnded);
  EXPECT_EQ(notes(), "0,40[g] 0,50[g] rest");
  EXPECT_FALSE([view_.get() isDecelerating]);
}

TEST_F(ScrollingByFingerTest, aDragInOneIsTheSame) {
  scroll(70, ScrollPhase::kWhole);
  EXPECT_EQ(notes(), "begin[td] 0,70[td] willEnd[td] stop");
}

TEST_F(ScrollingByFingerTest, whatWasLeftOutIsMadeUpFor) {
  scroll(10, ScrollPhase::kMoved);
  EXPECT_EQ(notes(), "begin[td] 0,10[td]");
  scroll(20, ScrollPhase::kBegan);
  EXPECT_EQ(notes(), "willEnd[td] stop begin[td] 0,20[td]") << "the end of the first drag";
  scroll(20, ScrollPhase::kEnded);
  (void)notes();
  scroll(40, ScrollPhase::kLifted);
  EXPECT_EQ(notes(), "begin[td] 0,40[td] willEnd[td] lift glide[g]");
  scroll(50, ScrollPhase::kLifted);
  EXPECT_EQ(notes(), "rest begin[td] 0,50[td] willEnd[td] lift glide[g]") << "another drag ended before";
  scroll(60, ScrollPhase::kBegan);
  EXPECT_EQ(notes(), "rest begin[td] 0,60[td]") << "a finger stops what glides";
  scroll(60, ScrollPhase::kEnded);
  (void)notes();
  scroll(80, ScrollPhase::kEnded);
  EXPECT_EQ(notes(), "begin[td] 0,80[td] willEnd[td] stop");
}

TEST_F(ScrollingByFingerTest, aJumpHasNoFinger) {
  scroll(90, ScrollPhase::kJumped);
  EXPECT_EQ(notes(), "0,90");
  scroll(100, ScrollPhase::kBegan);
  scroll(110, ScrollPhase::kJumped);
  EXPECT_EQ(notes(), "begin[td] 0,100[td] 0,110[td]") << "one that is there stays";
}

TEST_F(ScrollingByFingerTest, contentStaysBetweenItsEdges) {
  [view_.get() setContentInset:UIEdgeInsetsMake(20, 5, 30, 0)];
  EXPECT_EQ(y(), -20) << "at the top it stays there";
  EXPECT_EQ([view_.get() contentOffset].x, -5);
  scroll(-500, ScrollPhase::kWhole);
  EXPECT_EQ(y(), -20);
  scroll(5000, ScrollPhase::kWhole);
  EXPECT_EQ(y(), 1000 + 30 - 200);
  [view_.get() sim_scrollTo:CGPointMake(300, 0) phase:ScrollPhase::kWhole velocity:CGPointZero];
  EXPECT_EQ([view_.get() contentOffset].x, 0) << "100 points of content in a view of 100, 5 of which are kept free";
  [view_.get() setContentSize:CGSizeMake(100, 50)];
  EXPECT_EQ([view_.get() sim_greatestOffset].y, -20) << "content that is smaller than its view";
}

TEST_F(ScrollingByFingerTest, anInsetThatComesMovesOnlyWhatIsAtItsTop) {
  [view_.get() setContentOffset:CGPointMake(0, 40)];
  (void)notes();
  [view_.get() setContentInset:UIEdgeInsetsMake(20, 0, 0, 0)];
  EXPECT_EQ(y(), 40);
  EXPECT_EQ(notes(), "");
  [view_.get() setContentOffset:CGPointMake(0, -20)];
  const auto before = number();
  [view_.get() setContentInset:UIEdgeInsetsMake(60, 0, 0, 0)];
  EXPECT_EQ(y(), -60);
  EXPECT_EQ(number(), before) << "no code has set that";
}

TEST_F(ScrollingByFingerTest, contentThatShrinksGoesBackToItsEdge) {
  [view_.get() setContentOffset:CGPointMake(0, 700)];
  const auto before = number();
  [view_.get() setContentSize:CGSizeMake(100, 600)];
  EXPECT_EQ(y(), 400);
  EXPECT_EQ(number(), before);
  [view_.get() setContentOffset:CGPointMake(0, 900)];
  [view_.get() setContentSize:CGSizeMake(100, 700)];
  EXPECT_EQ(y(), 900) << "only what shrinks";
  [view_.get() setContentSize:CGSizeMake(400, 1100)];
  [view_.get() setContentOffset:CGPointMake(250, 900)];
  [view_.get() setContentSize:CGSizeMake(300, 1100)];
  EXPECT_EQ([view_.get() contentOffset].x, 200) << "sideways, too";
  [view_.get() setContentOffset:CGPointMake(0, 900)];
  scroll(350, ScrollPhase::kBegan);
  [view_.get() setContentSize:CGSizeMake(100, 300)];
  EXPECT_EQ(y(), 350) << "not under the finger";
}

TEST_F(ScrollingByFingerTest, onlyCodeCountsAsSettingThePosition) {
  const auto first = number();
  EXPECT_NE(first, 0u);
  scroll(30, ScrollPhase::kWhole);
  scroll(60, ScrollPhase::kJumped);
  [view_.get() sim_moveQuietlyTo:CGPointMake(0, 90)];
  EXPECT_EQ(number(), first);
  [view_.get() setContentOffset:CGPointMake(0, 90)];
  EXPECT_EQ(number(), first) << "where it is already";
  [view_.get() setContentOffset:CGPointMake(0, 100)];
  const auto second = number();
  EXPECT_NE(second, first);
  [view_.get() setContentOffset:CGPointMake(0, 90)];
  EXPECT_NE(number(), second) << "also where the system has moved it to before";
  [view_.get() scrollRectToVisible:CGRectMake(0, 900, 10, 10) animated:NO];
  EXPECT_NE(number(), second);
  const auto other = adopt([[UIScrollView alloc] initWithFrame:CGRectZero]);
  EXPECT_NE([other.get() sim_positionNumber], number());
}

TEST_F(ScrollingByFingerTest, codeHasTheLastWordWhileAFingerScrolls) {
  const auto before = number();
  notes_.get()->answered = CGPointMake(0, 5);
  scroll(30, ScrollPhase::kBegan);
  EXPECT_EQ(y(), 5);
  EXPECT_NE(number(), before);
  notes_.get()->answered = std::nullopt;
  const auto after = number();
  scroll(40, ScrollPhase::kMoved);
  EXPECT_EQ(y(), 40);
  EXPECT_EQ(number(), after);
}

TEST_F(ScrollingByFingerTest, aClassThatHasItsOwnIdeaOfThePositionHasItTold) {
  show(adopt<UIScrollView>([[StubbornScrollView alloc] initWithFrame:CGRectMake(0, 0, 100, 200)]));
  const auto before = number();
  scroll(60, ScrollPhase::kWhole);
  EXPECT_EQ(number(), before);
  scroll(10, ScrollPhase::kWhole);
  EXPECT_EQ(y(), 50);
  EXPECT_NE(number(), before);
}

TEST_F(ScrollingByFingerTest, aClassThatDoesNotMoveHasThatTold) {
  show(adopt<UIScrollView>([[FrozenScrollView alloc] initWithFrame:CGRectMake(0, 0, 100, 200)]));
  const auto before = number();
  scroll(60, ScrollPhase::kWhole);
  EXPECT_EQ(y(), 0);
  EXPECT_NE(number(), before);
}

TEST_F(ScrollingByFingerTest, contentCanBeMovedWhereThereIsMoreOfItThanRoom) {
  UIScrollView *view = view_.get();
  EXPECT_TRUE([view sim_isScrollable]) << "down";
  [view setContentSize:CGSizeMake(101, 200)];
  EXPECT_TRUE([view sim_isScrollable]) << "sideways";
  [view setContentSize:CGSizeMake(100, 200)];
  EXPECT_FALSE([view sim_isScrollable]);
  [view setContentInset:UIEdgeInsetsMake(0, 0, 1, 0)];
  EXPECT_TRUE([view sim_isScrollable]);
  [view setScrollEnabled:NO];
  EXPECT_FALSE([view sim_isScrollable]);
}

TEST_F(ScrollingByFingerTest, aViewThatBouncesSidewaysKeepsClearOfWhatCoversItsSides) {
  SIMSetMainScreen(CGSizeMake(844, 390), 3, UIEdgeInsetsMake(0, 47, 21, 47));
  const auto window = adopt([[UIWindow alloc] init]);
  const auto page = adopt([[UIViewController alloc] init]);
  [window.get() setRootViewController:page.get()];
  [window.get() makeKeyAndVisible];
  [view_.get() setFrame:[[page.get() view] bounds]];
  [view_.get() setContentSize:CGSizeMake(800, 300)];
  [[page.get() view] addSubview:view_.get()];
  [window.get() layoutIfNeeded];
  EXPECT_EQ([view_.get() adjustedContentInset].left, 0);
  [view_.get() setAlwaysBounceHorizontal:YES];
  EXPECT_EQ([view_.get() adjustedContentInset].left, 47);
}

TEST_F(ScrollingByFingerTest, theDelegateSaysWhereContentComesToRest) {
  const auto before = number();
  notes_.get()->wanted = CGPointMake(0, 300);
  scroll(250, ScrollPhase::kBegan);
  scroll(260, ScrollPhase::kLifted);
  EXPECT_EQ(y(), 300);
  EXPECT_NE(number(), before) << "the browser does not know it";
  scroll(300, ScrollPhase::kEnded);
  notes_.get()->wanted = CGPointMake(0, 9000);
  scroll(310, ScrollPhase::kWhole);
  EXPECT_EQ(y(), 800);
  notes_.get()->wanted = CGPointMake(0, std::nan(""));
  scroll(20, ScrollPhase::kWhole);
  EXPECT_EQ(y(), 20) << "what is no place is none";
  notes_.get()->wanted = CGPointMake(std::nan(""), 300);
  scroll(30, ScrollPhase::kWhole);
  EXPECT_EQ(y(), 30);
  EXPECT_EQ([view_.get() contentOffset].x, 0);
}

TEST_F(ScrollingByFingerTest, pagesComeToRestAtWholeOnes) {
  [view_.get() setPagingEnabled:YES];
  [view_.get() setContentSize:CGSizeMake(500, 200)];
  const auto targetFrom = [&](CGFloat x, CGFloat velocity) {
    [view_.get() sim_scrollTo:CGPointMake(x, 0) phase:ScrollPhase::kBegan velocity:CGPointZero];
    [view_.get() sim_scrollTo:CGPointMake(x, 0) phase:ScrollPhase::kLifted velocity:CGPointMake(velocity, 0)];
    return notes_.get()->target.x;
  };
  EXPECT_EQ(targetFrom(130, 0), 100);
  EXPECT_EQ(targetFrom(170, 0), 200);
  EXPECT_EQ(targetFrom(130, 0.3), 200);
  EXPECT_EQ(targetFrom(170, -0.3), 100);
  EXPECT_EQ(targetFrom(399, 2), 400) << "the last one";
  EXPECT_EQ(targetFrom(400, 2), 400);
}

TEST_F(ScrollingByFingerTest, nothingScrollsWhatIsDisabledUnderTheFinger) {
  scroll(10, ScrollPhase::kBegan);
  (void)notes();
  [view_.get() setScrollEnabled:NO];
  EXPECT_EQ(notes(), "willEnd[td] stop");
  EXPECT_FALSE([view_.get() isDragging]);
  [view_.get() setScrollEnabled:YES];
  notes_.get()->disables = YES;
  scroll(20, ScrollPhase::kWhole);
  EXPECT_EQ(notes(), "begin[td] 0,20[td] willEnd[td] stop") << "told once, also from within";
}

TEST_F(ScrollingByFingerTest, whatLeavesTheScreenMovesNoMore) {
  const auto window = adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 400, 800)]);
  [window.get() addSubview:view_.get()];
  scroll(10, ScrollPhase::kBegan);
  [view_.get() removeFromSuperview];
  EXPECT_FALSE([view_.get() isDragging]);
  EXPECT_FALSE([view_.get() isTracking]);
}

TEST_F(ScrollingByFingerTest, anAnimationOfThePositionEndsAtTheNextTurn) {
  [view_.get() setContentOffset:CGPointMake(0, 50) animated:YES];
  EXPECT_EQ(notes(), "0,50");
  SIMDrainMainQueue();
  EXPECT_EQ(notes(), "animated");
  [view_.get() setContentOffset:CGPointMake(0, 50) animated:YES];
  [view_.get() setContentOffset:CGPointMake(0, 60) animated:NO];
  SIMDrainMainQueue();
  EXPECT_EQ(notes(), "0,60");
}

TEST_F(ScrollingByFingerTest, aTapOnTheStatusBarBringsTheTopBack) {
  [view_.get() setContentInset:UIEdgeInsetsMake(20, 0, 0, 0)];
  scroll(400, ScrollPhase::kWhole);
  (void)notes();
  const auto before = number();
  EXPECT_TRUE([view_.get() sim_scrollToTop]);
  EXPECT_EQ(notes(), "top? 0,-20 top");
  EXPECT_NE(number(), before);
  scroll(400, ScrollPhase::kBegan);
  (void)notes();
  notes_.get()->refusesTop = YES;
  EXPECT_FALSE([view_.get() sim_scrollToTop]);
  EXPECT_EQ(notes(), "top?[td]");
  EXPECT_EQ(y(), 400);
  notes_.get()->refusesTop = NO;
  scroll(400, ScrollPhase::kLifted);
  (void)notes();
  EXPECT_TRUE([view_.get() sim_scrollToTop]);
  EXPECT_EQ(notes(), "top?[g] rest 0,-20 top") << "what glided comes to rest first";
}

TEST_F(ScrollingByFingerTest, isFollowedWhereSomebodyHears) {
  EXPECT_TRUE([view_.get() sim_isFollowed]);
  const auto deaf = adopt([[DeafDelegate alloc] init]);
  [view_.get() setDelegate:deaf.get()];
  EXPECT_FALSE([view_.get() sim_isFollowed]);
  [view_.get() setDelegate:nil];
  EXPECT_FALSE([view_.get() sim_isFollowed]);
  const auto table = adopt([[UITableView alloc] initWithFrame:CGRectZero]);
  EXPECT_FALSE([table.get() sim_isFollowed]);
  const auto text = adopt([[UITextView alloc] initWithFrame:CGRectZero]);
  EXPECT_FALSE([text.get() sim_isFollowed]);
  const auto stubborn = adopt([[StubbornScrollView alloc] initWithFrame:CGRectZero]);
  EXPECT_TRUE([stubborn.get() sim_isFollowed]);
  const auto laidOut = adopt([[LaidOutScrollView alloc] initWithFrame:CGRectZero]);
  EXPECT_TRUE([laidOut.get() sim_isFollowed]);
}

TEST_F(ScrollingByFingerTest, anObserverHearsOfTheFingerToo) {
  [view_.get() setDelegate:nil];
  const auto observer = adopt([[OffsetObserver alloc] init]);
  [view_.get() addObserver:observer.get() forKeyPath:@"contentOffset" options:0 context:nullptr];
  EXPECT_TRUE([view_.get() sim_isFollowed]);
  scroll(30, ScrollPhase::kMoved);
  EXPECT_EQ(observer.get()->changes, 1);
  [view_.get() setContentOffset:CGPointMake(0, 50) animated:YES];
  EXPECT_EQ(observer.get()->changes, 2);
  [view_.get() removeObserver:observer.get() forKeyPath:@"contentOffset"];
  SIMDrainMainQueue();
}

TEST_F(ScrollingByFingerTest, rowsAreThereWhenTheDelegateHearsOfTheEnd) {
  const auto source = adopt([[TableSource alloc] initWithCounts:{100}]);
  const auto table = adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 440) style:UITableViewStylePlain]);
  [table.get() setDataSource:source.get()];
  [table.get() layoutIfNeeded];
  [table.get() sim_scrollTo:CGPointMake(0, 880) phase:ScrollPhase::kWhole velocity:CGPointZero];
  EXPECT_EQ([[[table.get() indexPathsForVisibleRows] firstObject] row], 20);
}

TEST_F(ScrollingByFingerTest, whatCodeScrollsToIsClearOfWhatBarsCover) {
  SIMSetMainScreen(CGSizeMake(390, 844), 3, UIEdgeInsetsMake(47, 0, 34, 0));
  const auto source = adopt([[TableSource alloc] initWithCounts:{100}]);
  const auto page = adopt([[UITableViewController alloc] initWithStyle:UITableViewStylePlain]);
  [[page.get() tableView] setDataSource:source.get()];
  const auto stack = adopt([[UINavigationController alloc] initWithRootViewController:page.get()]);
  const auto window = adopt([[UIWindow alloc] init]);
  [window.get() setRootViewController:stack.get()];
  [window.get() makeKeyAndVisible];
  [window.get() layoutIfNeeded];
  UITableView *table = [page.get() tableView];
  const CGFloat top = [table adjustedContentInset].top;
  const CGFloat bottom = [table adjustedContentInset].bottom;
  EXPECT_GT(top, 47);
  EXPECT_EQ([table contentOffset].y, -top) << "it begins at its top";
  const auto offsetFor = [&](NSInteger row, UITableViewScrollPosition position) {
    [table scrollToRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0] atScrollPosition:position animated:NO];
    return [table contentOffset].y;
  };
  const CGFloat height = [table rectForRowAtIndexPath:[NSIndexPath indexPathForRow:50 inSection:0]].size.height;
  const CGFloat rowTop = [table rectForRowAtIndexPath:[NSIndexPath indexPathForRow:50 inSection:0]].origin.y;
  EXPECT_EQ(offsetFor(50, UITableViewScrollPositionTop), rowTop - top);
  EXPECT_EQ(offsetFor(51, UITableViewScrollPositionNone), rowTop - top) << "it is in sight";
  EXPECT_EQ(offsetFor(49, UITableViewScrollPositionNone), rowTop - height - top);
  EXPECT_EQ(offsetFor(50, UITableViewScrollPositionBottom), rowTop + height + bottom - 844);
  EXPECT_EQ(offsetFor(50, UITableViewScrollPositionMiddle), rowTop + height / 2 - (top + (844 - bottom)) / 2);
  EXPECT_EQ(offsetFor(0, UITableViewScrollPositionMiddle), -top);
  EXPECT_EQ(offsetFor(99, UITableViewScrollPositionTop), [table contentSize].height + bottom - 844);
  EXPECT_EQ(offsetFor(NSNotFound, UITableViewScrollPositionTop), -top);
}
