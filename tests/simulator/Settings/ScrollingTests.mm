// Scrolling by a finger: what is said of what scrolls, and what "scrolled" events do.
#import <UIKit/UIKit.h>
#import <UIKit/UIScrollView+Sim.h>
#import <UIKit/UIView+Sim.h>

#include "simulator/Settings/SessionTest.h"

#include <algorithm>

using objcxx::adopt;

/// A list whose title fades in as it is scrolled, and which notes what it is told of.
@interface FadingPage : ListPage {
 @public
  std::string notes;
  BOOL failsToFollow, goesBack;
}
@end

@implementation FadingPage
- (void)viewDidLoad {
  [super viewDidLoad];
  UILabel *title = [[UILabel alloc] initWithFrame:CGRectMake(0, 0, 80, 20)];
  [title setText:@"Faded"];
  [[self navigationItem] setTitleView:title];
  [title release];
}
- (void)scrollViewWillBeginDragging:(UIScrollView *)view {
  notes += "b";
}
- (void)scrollViewDidScroll:(UIScrollView *)view {
  const CGFloat scrolled = [view contentOffset].y + [view adjustedContentInset].top;
  [[[self navigationItem] titleView] setAlpha:std::min<CGFloat>(scrolled / 100, 1)];
  notes += "s";
  if (failsToFollow) [NSException raise:@"Scrolled" format:@"by the test"];
  if (goesBack && [view isDragging]) [view setContentOffset:CGPointMake(0, -[view adjustedContentInset].top)];
}
- (void)scrollViewDidEndDragging:(UIScrollView *)view willDecelerate:(BOOL)decelerate {
  notes += decelerate ? "l" : "e";
}
- (void)scrollViewDidEndDecelerating:(UIScrollView *)view {
  notes += "r";
}
- (void)scrollViewDidScrollToTop:(UIScrollView *)view {
  notes += "t";
}
@end

namespace {

class ScrollingTest : public SessionTest {
 protected:
  void TearDown() override {
    page_ = nullptr;
    SessionTest::TearDown();
  }

  static NSArray *rows(NSUInteger count) {
    NSMutableArray *all = [NSMutableArray array];
    for (NSUInteger row = 0; row < count; ++row) [all addObject:[NSString stringWithFormat:@"row %lu", row]];
    return @[ all ];
  }
  FadingPage *startFading(NSUInteger count = 100) {
    page_ = adopt([[FadingPage alloc] initWithTitle:@"Fading" sections:rows(count)]);
    start(page_.get());
    page_.get()->notes.clear();
    return page_.get();
  }
  /// A page with a scroll view, 100 by 50, of a content of 300 by 400, and nothing else.
  UIScrollView *startScroll() {
    const auto page = adopt([[PlainPage alloc] init]);
    const auto scroll = adopt([[UIScrollView alloc] initWithFrame:CGRectMake(10, 100, 100, 50)]);
    [scroll.get() setContentSize:CGSizeMake(300, 400)];
    [[page.get() view] addSubview:scroll.get()];
    start(page.get());
    return scroll.get();
  }
  Json describedScroll() const {
    const Json views = page()["view"]["views"];
    for (const Json &view : views) {
      if (view["type"] == "scroll") return view;
    }
    return nullptr;
  }
  double y() const { return screen()["contentOffset"][1]; }
  static double alphaOf(FadingPage *page) { return [[[page navigationItem] titleView] alpha]; }

  objcxx::Retained<FadingPage> page_;
};

TEST_F(ScrollingTest, theScreenSaysWhereItsTableStandsAndWhoFollows) {
  startFading();
  const Json scrolling = page()["scrolling"];
  EXPECT_EQ(scrolling["followed"], true);
  EXPECT_EQ(scrolling["start"][0], 0);
  EXPECT_LT(scrolling["start"][1], -40) << "the top lies below the bar";
  EXPECT_EQ(screen()["contentOffset"], scrolling["start"]);
  startList(rows(3));
  EXPECT_FALSE(page()["scrolling"].contains("followed"));
  start(adopt([[PlainPage alloc] init]).get());
  EXPECT_TRUE(page()["scrolling"].is_null());
  EXPECT_TRUE(screen()["contentOffset"].is_null());
}

TEST_F(ScrollingTest, aFingerScrollsTheTableAndThePageFollows) {
  FadingPage *page = startFading();
  const double top = y();
  const std::string id = this->page()["scrolling"]["id"];
  EXPECT_EQ(send({{"type", "scrolled"}, {"id", id}, {"y", top + 20}, {"phase", "began"}}), Outcome::done);
  EXPECT_EQ(y(), top + 20);
  EXPECT_DOUBLE_EQ(this->page()["titleView"]["alpha"].get<double>(), 0.2);
  EXPECT_EQ(reply["page"]["titleView"]["alpha"], this->page()["titleView"]["alpha"]) << "it is the answer";
  EXPECT_EQ(send({{"type", "scrolled"}, {"id", id}, {"y", top + 50}, {"phase", "moved"}}), Outcome::done);
  EXPECT_EQ(send({{"type", "scrolled"}, {"id", id}, {"y", top + 60}, {"phase", "lifted"}}), Outcome::done);
  EXPECT_EQ(send({{"type", "scrolled"}, {"id", id}, {"y", top + 70}, {"phase", "ended"}}), Outcome::done);
  EXPECT_EQ(page->notes, "bssslsr");
  EXPECT_DOUBLE_EQ(alphaOf(page), 0.7);
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", top}, {"phase", "jumped"}}), Outcome::done);
  EXPECT_EQ(page->notes, "bssslsrs");
}

TEST_F(ScrollingTest, theTableIsMeantWhereNoIdStandsAndADragIsWholeWithoutAPhase) {
  FadingPage *page = startFading();
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 30}}), Outcome::done);
  EXPECT_EQ(y(), 30);
  EXPECT_EQ(page->notes, "bse");
}

TEST_F(ScrollingTest, theOffsetIsClippedAsContentBouncesBack) {
  startFading();
  const double top = y();
  UITableView *table = [page_.get() tableView];
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", -1e12}}), Outcome::done);
  EXPECT_EQ(y(), top);
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 1e12}, {"x", 500}}), Outcome::done);
  EXPECT_EQ(y(), [table sim_greatestOffset].y);
  EXPECT_EQ(screen()["contentOffset"][0], 0);
  EXPECT_GT(y(), 3000);
}

TEST_F(ScrollingTest, aPositionIsNoOtherScreenUnlessCodeSetsIt) {
  startList(rows(100));
  const auto revision = session().revision();
  const Json number = page()["scrolling"]["number"];
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 300}}), Outcome::done);
  EXPECT_EQ(session().revision(), revision);
  EXPECT_EQ(reply["contentOffset"][1], 300) << "told all the same";
  EXPECT_EQ(page()["scrolling"]["number"], number);
}

TEST_F(ScrollingTest, aPositionThatCodeSetsIsTold) {
  FadingPage *page = startFading();
  const double top = y();
  const Json number = this->page()["scrolling"]["number"];
  page->goesBack = YES;
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 300}, {"phase", "moved"}}), Outcome::done);
  EXPECT_EQ(y(), top);
  EXPECT_NE(this->page()["scrolling"]["number"], number);
  page->goesBack = NO;
  const auto revision = session().revision();
  [[page tableView] setContentOffset:CGPointMake(0, 40)];
  EXPECT_TRUE(session().refresh());
  EXPECT_GT(session().revision(), revision);
  EXPECT_EQ(y(), 40);
}

TEST_F(ScrollingTest, whatTheHostScrollsIsSetByNobody) {
  ListPage *page = startList(rows(100));
  const Json number = this->page()["scrolling"]["number"];
  page->selectable = YES;
  EXPECT_EQ(tap(rowId(0, 80)), Outcome::done);
  EXPECT_GT(y(), 0);
  EXPECT_EQ(send({{"type", "scroll"}, {"to", {0, 40}}}), Outcome::done);
  EXPECT_EQ(this->page()["scrolling"]["number"], number);
}

TEST_F(ScrollingTest, scrollingClosesARowThatStandsOpen) {
  startList(rows(100));
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 1)}}), Outcome::done);
  ASSERT_EQ(row(0, 1)["swipeOpen"], true);
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 10}, {"phase", "jumped"}}), Outcome::done);
  EXPECT_EQ(row(0, 1)["swipeOpen"], true) << "that was no finger";
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 20}}), Outcome::done);
  EXPECT_EQ(row(0, 1)["swipeOpen"], false);
}

TEST_F(ScrollingTest, aScrollViewOnAPageIsScrolledByItsId) {
  UIScrollView *scroll = startScroll();
  const Json described = describedScroll();
  const std::string id = described["scrolling"]["id"];
  EXPECT_EQ(described["contentOffset"], Json({0, 0}));
  EXPECT_EQ(described["scrolling"]["start"], Json({0, 0}));
  EXPECT_EQ(send({{"type", "scrolled"}, {"id", id}, {"x", 70}, {"y", 90}}), Outcome::done);
  EXPECT_EQ(describedScroll()["contentOffset"], Json({70, 90}));
  EXPECT_EQ(send({{"type", "scrolled"}, {"id", id}, {"x", 20}}), Outcome::done);
  EXPECT_TRUE(CGPointEqualToPoint([scroll contentOffset], CGPointMake(20, 90))) << "what is missing stays";
  EXPECT_EQ(send({{"type", "scrolled"}, {"id", id}, {"x", 900}, {"y", 900}}), Outcome::done);
  EXPECT_EQ(describedScroll()["contentOffset"], Json({200, 350}));
  EXPECT_FALSE(describedScroll().contains("paging"));
  [scroll setPagingEnabled:YES];
  session().refresh();
  EXPECT_EQ(describedScroll()["paging"], true);
  [scroll setContentSize:CGSizeMake(100, 50)];
  session().refresh();
  EXPECT_FALSE(describedScroll().contains("scrolling")) << "there is nothing to move";
}

TEST_F(ScrollingTest, whatNoFingerCanScrollIsRefused) {
  UIScrollView *scroll = startScroll();
  const Json event{{"type", "scrolled"}, {"id", describedScroll()["scrolling"]["id"]}, {"y", 5}};
  [scroll setScrollEnabled:NO];
  session().refresh();
  expectRefused(event, Outcome::refused);
  Json jump = event;
  jump["phase"] = "jumped";
  EXPECT_EQ(send(jump), Outcome::done) << "that is no finger";
  EXPECT_EQ([scroll contentOffset].y, 5);
  [scroll setScrollEnabled:YES];
  [scroll setUserInteractionEnabled:NO];
  session().refresh();
  expectRefused(event, Outcome::refused);
  const auto label = adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 10, 10)]);
  [[scroll superview] addSubview:label.get()];
  session().refresh();
  const std::string id = "view" + std::to_string([label.get() sim_number]);
  expectRefused({{"type", "scrolled"}, {"id", id}, {"y", 5}}, Outcome::refused);
}

TEST_F(ScrollingTest, whatIsNotOnTheScreenIsUnknown) {
  UIScrollView *scroll = startScroll();
  const std::string id = describedScroll()["scrolling"]["id"];
  expectRefused({{"type", "scrolled"}, {"y", 5}}, Outcome::unknown);
  expectRefused({{"type", "scrolled"}, {"id", "view999999"}, {"y", 5}}, Outcome::unknown);
  expectRefused({{"type", "scrolled"}, {"id", "row1.1"}, {"y", 5}}, Outcome::unknown);
  expectRefused({{"type", "scrolled"}, {"id", "nothing"}, {"y", 5}}, Outcome::unknown);
  [scroll setHidden:YES];
  session().refresh();
  expectRefused({{"type", "scrolled"}, {"id", id}, {"y", 5}}, Outcome::unknown);
}

TEST_F(ScrollingTest, nothingBehindAnAlertIsScrolled) {
  FadingPage *page = startFading();
  const std::string table = this->page()["scrolling"]["id"];
  present(page, [UIAlertController alertControllerWithTitle:@"Over"
                                                    message:nil
                                             preferredStyle:UIAlertControllerStyleAlert]);
  session().refresh();
  expectRefused({{"type", "scrolled"}, {"y", 5}}, Outcome::unknown);
  expectRefused({{"type", "scrolled"}, {"id", table}, {"y", 5}}, Outcome::unknown);
  expectRefused({{"type", "scrollToTop"}}, Outcome::refused);
}

TEST_F(ScrollingTest, whatIsNoPositionIsMalformed) {
  startFading();
  for (const char *text : {
           R"({"type":"scrolled"})",
           R"({"type":"scrolled","y":"5"})",
           R"({"type":"scrolled","y":null})",
           R"({"type":"scrolled","y":5,"x":[1]})",
           R"({"type":"scrolled","y":1e999})",
           R"({"type":"scrolled","y":NaN})",
           R"({"type":"scrolled","y":5,"id":3})",
           R"({"type":"scrolled","y":5,"id":null})",
           R"({"type":"scrolled","y":5,"phase":"over"})",
           R"({"type":"scrolled","y":5,"phase":""})",
           R"({"type":"scrolled","y":5,"phase":null})",
           R"({"type":"scrolled","y":5,"velocity":3})",
           R"({"type":"scrolled","y":5,"velocity":[1]})",
       }) {
    expectRefused(Json::parse(text, nullptr, false), Outcome::malformed);
  }
}

TEST_F(ScrollingTest, anExceptionOfTheDelegateIsLoggedAndTheTableStaysInUse) {
  FadingPage *page = startFading();
  page->failsToFollow = YES;
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 30}, {"phase", "moved"}}), Outcome::done);
  EXPECT_TRUE(logged("Scrolled"));
  page->failsToFollow = NO;
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 60}, {"phase", "ended"}}), Outcome::done);
  EXPECT_EQ(y(), 60);
  const Json number = this->page()["scrolling"]["number"];
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 70}}), Outcome::done);
  EXPECT_EQ(this->page()["scrolling"]["number"], number);
}

TEST_F(ScrollingTest, aTapOnTheStatusBarBringsTheTopBack) {
  FadingPage *page = startFading();
  const double top = y();
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 900}}), Outcome::done);
  const Json number = this->page()["scrolling"]["number"];
  EXPECT_EQ(send({{"type", "scrollToTop"}}), Outcome::done);
  EXPECT_EQ(y(), top);
  EXPECT_EQ(page->notes, "bsest");
  EXPECT_NE(this->page()["scrolling"]["number"], number);
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 900}}), Outcome::done);
  [[page tableView] setScrollsToTop:NO];
  EXPECT_EQ(send({{"type", "scrollToTop"}}), Outcome::done);
  EXPECT_EQ(y(), 900);
}

TEST_F(ScrollingTest, severalThatWouldGoToTheTopAllStay) {
  UIScrollView *first = startScroll();
  const auto second = adopt([[UIScrollView alloc] initWithFrame:CGRectMake(10, 300, 100, 50)]);
  [second.get() setContentSize:CGSizeMake(300, 400)];
  [first setContentOffset:CGPointMake(0, 30)];
  [[first superview] addSubview:second.get()];
  EXPECT_EQ(send({{"type", "scrollToTop"}}), Outcome::done);
  EXPECT_EQ([first contentOffset].y, 30);
  [second.get() setContentSize:CGSizeMake(300, 40)];
  EXPECT_EQ(send({{"type", "scrollToTop"}}), Outcome::done);
  EXPECT_EQ([first contentOffset].y, 0) << "the other one cannot go up";
  [second.get() setContentSize:CGSizeMake(300, 400)];
  [first setContentOffset:CGPointMake(0, 30)];
  [second.get() setScrollEnabled:NO];
  EXPECT_EQ(send({{"type", "scrollToTop"}}), Outcome::done);
  EXPECT_EQ([first contentOffset].y, 0) << "no finger moves the other one";
  [first setContentOffset:CGPointMake(0, 30)];
  [second.get() setScrollEnabled:YES];
  [second.get() setHidden:YES];
  EXPECT_EQ(send({{"type", "scrollToTop"}}), Outcome::done);
  EXPECT_EQ([first contentOffset].y, 0) << "nobody sees the other one";
}

TEST_F(ScrollingTest, rowsOfALongTableAreDescribedWhereTheFingerIs) {
  startFading(20000);
  EXPECT_TRUE(row(0, 15000).contains("outline"));
  const double height =
      [[page_.get() tableView] rectForRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]].size.height;
  EXPECT_EQ(send({{"type", "scrolled"}, {"y", 15000 * height}}), Outcome::done);
  EXPECT_FALSE(row(0, 15000).contains("outline"));
}

}  // namespace
