// A finger on the views of a page: what is said of them, and what it does.
#import <UIKit/TouchDispatch.h>
#import <UIKit/UIKit.h>

#include "simulator/Settings/SessionTest.h"

namespace {

std::string *touchNotes = nullptr;

void noteTouch(const std::string &what) {
  if (touchNotes) *touchNotes += (touchNotes->empty() ? "" : " ") + what;
}

}  // namespace

/// A list whose rows have a button, under a header; what recognisers and buttons tell it, it writes down.
@interface TouchPage : ListPage {
 @public
  BOOL hasButtons;
}
@end

@implementation TouchPage
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [super tableView:tableView cellForRowAtIndexPath:indexPath];
  if (!hasButtons || [[cell contentView] viewWithTag:7]) return cell;
  UIButton *button = [UIButton buttonWithType:UIButtonTypeCustom];
  [button setTag:7];
  [button setFrame:CGRectMake(200, 5, 60, 30)];
  [button addTarget:self action:@selector(pressed) forControlEvents:UIControlEventTouchUpInside];
  [[cell contentView] addSubview:button];
  return cell;
}
- (void)pressed {
  noteTouch("button");
}
- (void)tapped:(UIGestureRecognizer *)recognizer {
  const CGPoint place = [recognizer locationInView:[recognizer view]];
  noteTouch("tap" + std::to_string(int(place.x)) + "," + std::to_string(int(place.y)));
}
- (void)rowPressed:(UIGestureRecognizer *)recognizer {
  UITableView *table = [self tableView];
  NSIndexPath *path = [table indexPathForRowAtPoint:[recognizer locationInView:table]];
  noteTouch("press" + std::to_string([recognizer state]) + (path ? "@" + std::to_string([path row]) : "@none"));
}
- (void)dragged:(UIPanGestureRecognizer *)recognizer {
  noteTouch("pan" + std::to_string(int([recognizer translationInView:[recognizer view]].x)));
}
- (void)raises {
  [NSException raise:@"Touched" format:@"by the test"];
}
@end

namespace {

class TouchTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    touchNotes = &notes_;
    sim::TouchDispatch::shared().skip(10);
  }
  void TearDown() override {
    touchNotes = nullptr;
    header_ = nullptr;
    page_ = nullptr;
    SessionTest::TearDown();
  }

  /// A page of three rows under a header, 300 × 100.
  void startPage(BOOL hasButtons = NO) {
    page_ = objcxx::adopt([[TouchPage alloc] initWithTitle:@"Touched" sections:@[ @[ @"a", @"b", @"c" ] ]]);
    page_.get()->hasButtons = hasButtons;
    page_.get()->selectable = YES;
    header_ = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 300, 100)]);
    [[page_.get() tableView] setTableHeaderView:header_.get()];
    start(page_.get());
  }
  template <typename Kind>
  Kind *recognise(UIView *view, SEL action) {
    Kind *recognizer = [[[Kind alloc] initWithTarget:page_.get() action:action] autorelease];
    [view addGestureRecognizer:recognizer];
    session().refresh();
    return recognizer;
  }
  Json header() const { return page()["headerView"]; }
  Outcome gesture(const std::string &id, const std::string &kind, Json more = Json::object()) {
    more["type"] = "gesture";
    more["id"] = id;
    more["kind"] = kind;
    return send(more);
  }
  Outcome touch(const std::string &phase, Json at, const std::string &id, double time) {
    return send({{"type", "touch"}, {"phase", phase}, {"at", at}, {"id", id}, {"time", time}});
  }
  /// The rows that were tapped since it was asked.
  std::string taps() {
    const std::string all = calls(page_.get());
    [page_.get()->calls.get() removeAllObjects];
    return all;
  }
  std::string told() { return std::exchange(notes_, std::string()); }

  objcxx::Retained<TouchPage> page_;
  objcxx::Retained<UIView> header_;
  std::string notes_;
};

TEST_F(TouchTest, ViewsThatTakeTouchesAreNamed) {
  startPage();
  EXPECT_FALSE(header().contains("touchable"));
  EXPECT_EQ(row(0, 0)["touchable"], false);
  EXPECT_EQ(page()["touchId"], nullptr);
  UIView *inner = [[[UIView alloc] initWithFrame:CGRectMake(10, 10, 50, 50)] autorelease];
  [header_.get() addSubview:inner];
  recognise<UITapGestureRecognizer>(inner, @selector(tapped:));
  EXPECT_EQ(header()["touchable"], true);
  EXPECT_EQ(header()["dragged"], false);
  EXPECT_FALSE(header()["views"][0].contains("touchable")) << "a point of the header will do";
  EXPECT_EQ(row(0, 0)["touchable"], false);
  recognise<UIPanGestureRecognizer>(inner, @selector(dragged:));
  EXPECT_EQ(header()["dragged"], true);
  [inner setHidden:YES];
  session().refresh();
  EXPECT_FALSE(header().contains("touchable"));
  recognise<UITapGestureRecognizer>([page_.get() tableView], @selector(tapped:));
  EXPECT_EQ(header()["touchable"], true);
  EXPECT_EQ(row(0, 0)["touchable"], true);
  EXPECT_EQ(row(0, 0)["dragged"], false);
  EXPECT_TRUE(page()["touchId"].is_string());
}

TEST_F(TouchTest, AWholeGestureIsDoneInOneEvent) {
  startPage();
  UIGestureRecognizer *first = recognise<UITapGestureRecognizer>(header_.get(), @selector(tapped:));
  const std::string id = header()["id"];
  EXPECT_EQ(gesture(id, "tap"), Outcome::done);
  EXPECT_EQ(told(), "tap195,50");
  EXPECT_EQ(gesture(id, "tap", {{"at", {20, 30}}}), Outcome::done);
  EXPECT_EQ(told(), "tap20,30");
  EXPECT_EQ(tap(id), Outcome::done);
  EXPECT_EQ(told(), "tap195,50");
  UIGestureRecognizer *pan = recognise<UIPanGestureRecognizer>(header_.get(), @selector(dragged:));
  EXPECT_EQ(gesture(id, "pan", {{"by", {40, 0}}}), Outcome::done);
  EXPECT_EQ(told(), "pan12 pan16 pan20 pan24 pan28 pan32 pan36 pan40 pan40");
  UITapGestureRecognizer *twice = recognise<UITapGestureRecognizer>(header_.get(), @selector(tapped:));
  [twice setNumberOfTapsRequired:2];
  [first requireGestureRecognizerToFail:twice];
  EXPECT_EQ(gesture(id, "tap", {{"count", 2}, {"at", {1, 2}}}), Outcome::done);
  EXPECT_EQ(told(), "tap1,2");
  EXPECT_EQ(gesture(id, "tap", {{"at", {1, 2}}}), Outcome::done);
  EXPECT_EQ(told(), "tap1,2") << "the event ends when the tap is one for certain";
  UISwipeGestureRecognizer *swipe = recognise<UISwipeGestureRecognizer>(header_.get(), @selector(pressed));
  [swipe setDirection:UISwipeGestureRecognizerDirectionUp];
  [pan requireGestureRecognizerToFail:swipe];
  EXPECT_EQ(gesture(id, "swipe", {{"by", {0, -80}}}), Outcome::done);
  EXPECT_EQ(told(), "button");
}

TEST_F(TouchTest, AFingerIsToldOfAsItGoesOn) {
  startPage();
  recognise<UIPanGestureRecognizer>(header_.get(), @selector(dragged:));
  UITapGestureRecognizer *twice = recognise<UITapGestureRecognizer>(header_.get(), @selector(tapped:));
  [twice setNumberOfTapsRequired:2];
  const std::string id = header()["id"];
  EXPECT_EQ(touch("began", {10, 10}, id, 100), Outcome::done);
  // What moves with the finger is followed by the points of its beginning.
  [header_.get() setFrame:CGRectMake(30, 0, 300, 100)];
  EXPECT_EQ(touch("moved", {25, 10}, id, 100.02), Outcome::done);
  EXPECT_EQ(touch("ended", {40, 10}, id, 100.03), Outcome::done);
  EXPECT_EQ(told(), "pan15 pan30");
  // Between the taps lies what the events say, however long they are on their way.
  double time = 200;
  for (const char *phase : {"began", "ended", "began", "ended"}) {
    [NSThread sleepForTimeInterval:0.12];
    EXPECT_EQ(touch(phase, {10, 10}, id, time += 0.05), Outcome::done);
  }
  EXPECT_EQ(told(), "tap10,10");
  EXPECT_EQ(touch("moved", {1, 1}, id, 1), Outcome::refused);
  EXPECT_EQ(touch("ended", {1, 1}, id, 1), Outcome::refused);
  EXPECT_EQ(send({{"type", "touch"}, {"phase", "cancelled"}}), Outcome::refused);
  EXPECT_EQ(touch("began", {10, 10}, id, 300), Outcome::done);
  EXPECT_EQ(send({{"type", "touch"}, {"phase", "cancelled"}}), Outcome::done);
  EXPECT_EQ(told(), "");
}

TEST_F(TouchTest, TheClockOfTheEventsMayBeginAnywhere) {
  startPage();
  recognise<UILongPressGestureRecognizer>(header_.get(), @selector(rowPressed:));
  const std::string id = header()["id"];
  for (const double time : {1.5, 1e9, -3.0, 2.0}) {
    EXPECT_EQ(touch("began", {10, 10}, id, time), Outcome::done);
    sim::TouchDispatch::shared().ring();
    EXPECT_EQ(told(), "") << "the finger came down at " << time << ", which is now";
    EXPECT_EQ(touch("ended", {10, 10}, id, time + 0.01), Outcome::done);
    sim::TouchDispatch::shared().skip(10);
  }
}

TEST_F(TouchTest, EventsThatAreNoneAreRefused) {
  startPage();
  recognise<UITapGestureRecognizer>(header_.get(), @selector(tapped:));
  const std::string id = header()["id"];
  for (Json event : {Json{{"type", "touch"}}, Json{{"type", "touch"}, {"phase", "up"}, {"at", {1, 1}}},
                     Json{{"type", "touch"}, {"phase", "began"}, {"id", id}},
                     Json{{"type", "touch"}, {"phase", "began"}, {"at", {1, 1}}},
                     Json{{"type", "touch"}, {"phase", "began"}, {"id", id}, {"at", {1, "1"}}},
                     Json{{"type", "touch"}, {"phase", "began"}, {"id", id}, {"at", {1}}},
                     Json{{"type", "touch"}, {"phase", "began"}, {"id", id}, {"at", {1, 1}}, {"time", "now"}},
                     Json{{"type", "gesture"}, {"id", id}}, Json{{"type", "gesture"}, {"kind", "tap"}},
                     Json{{"type", "gesture"}, {"id", id}, {"kind", "pinch"}},
                     Json{{"type", "gesture"}, {"id", id}, {"kind", "pan"}},
                     Json{{"type", "gesture"}, {"id", id}, {"kind", "pan"}, {"by", 3}},
                     Json{{"type", "gesture"}, {"id", id}, {"kind", "tap"}, {"at", "here"}},
                     Json{{"type", "gesture"}, {"id", id}, {"kind", "tap"}, {"count", 1e9}},
                     Json{{"type", "gesture"}, {"id", id}, {"kind", "press"}, {"duration", -1}}}) {
    expectRefused(event, Outcome::malformed);
  }
  expectRefused({{"type", "gesture"}, {"id", "view999999"}, {"kind", "tap"}}, Outcome::unknown);
  expectRefused({{"type", "gesture"}, {"id", "row9.1"}, {"kind", "tap"}}, Outcome::unknown);
  expectRefused({{"type", "gesture"}, {"id", id}, {"kind", "tap"}, {"at", {500, 500}}}, Outcome::refused);
  [header_.get() setUserInteractionEnabled:NO];
  session().refresh();
  expectRefused({{"type", "gesture"}, {"id", id}, {"kind", "tap"}}, Outcome::refused);
  [header_.get() setUserInteractionEnabled:YES];
  [header_.get() setHidden:YES];
  session().refresh();
  expectRefused({{"type", "gesture"}, {"id", id}, {"kind", "tap"}}, Outcome::unknown);
  [header_.get() setHidden:NO];
  present(page_.get(), [UIAlertController alertControllerWithTitle:@"Over"
                                                           message:nullptr
                                                    preferredStyle:UIAlertControllerStyleAlert]);
  expectRefused({{"type", "gesture"}, {"id", id}, {"kind", "tap"}}, Outcome::unknown);
  EXPECT_EQ(told(), "");
}

TEST_F(TouchTest, ATapOfTheTableTakesTheRowsUnlessItLetsThem) {
  startPage();
  UITapGestureRecognizer *recognizer = recognise<UITapGestureRecognizer>([page_.get() tableView], @selector(pressed));
  EXPECT_EQ(tap(rowId(0, 1)), Outcome::done);
  EXPECT_EQ(told(), "button");
  EXPECT_EQ(taps(), "");
  [recognizer setCancelsTouchesInView:NO];
  EXPECT_EQ(tap(rowId(0, 1)), Outcome::done);
  EXPECT_EQ(told(), "button");
  EXPECT_EQ(taps(), "tap 0.1");
  EXPECT_EQ(gesture(rowId(0, 2), "tap", {{"at", {20, 20}}}), Outcome::done);
  EXPECT_EQ(taps(), "tap 0.2");
  EXPECT_EQ(gesture(rowId(0, 0), "pan", {{"by", {0, 30}}}), Outcome::done);
  EXPECT_EQ(taps(), "") << "a finger that moves taps no row";
  told();
  [[page_.get() tableView] removeGestureRecognizer:recognizer];
  session().refresh();
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
  EXPECT_EQ(taps(), "tap 0.0");
}

TEST_F(TouchTest, APressOnARowIsOfThatRow) {
  startPage();
  recognise<UILongPressGestureRecognizer>([page_.get() tableView], @selector(rowPressed:));
  EXPECT_EQ(gesture(rowId(0, 2), "press"), Outcome::done);
  EXPECT_EQ(told(), "press1@2 press3@2");
  EXPECT_EQ(taps(), "");
  EXPECT_EQ(gesture(rowId(0, 0), "press", {{"duration", 0.3}}), Outcome::done);
  EXPECT_EQ(told(), "");
  EXPECT_EQ(taps(), "tap 0.0");
  EXPECT_EQ(gesture(rowId(0, 0), "press", {{"by", {0, 44}}}), Outcome::done);
  EXPECT_EQ(told().substr(0, 8), "press1@0");
  EXPECT_EQ(gesture(page()["touchId"].get<std::string>(), "press", {{"at", {5, 700}}}), Outcome::done);
  EXPECT_EQ(told(), "press1@none press3@none");
}

TEST_F(TouchTest, AButtonInARowTakesTheTouchOnIt) {
  startPage(YES);
  EXPECT_EQ(row(0, 1)["touchable"], true);
  EXPECT_EQ(gesture(rowId(0, 1), "tap", {{"at", {230, 20}}}), Outcome::done);
  EXPECT_EQ(told(), "button");
  EXPECT_EQ(taps(), "");
  EXPECT_EQ(gesture(rowId(0, 1), "tap", {{"at", {20, 20}}}), Outcome::done);
  EXPECT_EQ(told(), "");
  EXPECT_EQ(taps(), "tap 0.1");
  EXPECT_EQ(tap(rowId(0, 1)), Outcome::done);
  EXPECT_EQ(taps(), "tap 0.1") << "a tap on the row is one beside what is in it";
}

TEST_F(TouchTest, ATouchClosesARowThatStandsOpen) {
  startPage();
  recognise<UILongPressGestureRecognizer>([page_.get() tableView], @selector(rowPressed:));
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 0)}}), Outcome::done);
  EXPECT_EQ(gesture(rowId(0, 1), "tap"), Outcome::done);
  EXPECT_EQ(taps(), "");
  EXPECT_EQ(row(0, 0)["swipeOpen"], false);
}

TEST_F(TouchTest, AControlInAHeaderIsWorked) {
  startPage();
  UIButton *button = [UIButton buttonWithType:UIButtonTypeCustom];
  [button setFrame:CGRectMake(0, 0, 100, 40)];
  [button addTarget:page_.get() action:@selector(pressed) forControlEvents:UIControlEventTouchUpInside];
  [header_.get() addSubview:button];
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectMake(0, 50, 0, 0)] autorelease];
  [header_.get() addSubview:control];
  session().refresh();
  EXPECT_EQ(tap(header()["views"][0]["id"]), Outcome::done);
  EXPECT_EQ(told(), "button");
  EXPECT_EQ(set(header()["views"][1]["id"], true), Outcome::done);
  EXPECT_TRUE([control isOn]);
  EXPECT_FALSE(header().contains("touchable")) << "they are worked by themselves";
  UILongPressGestureRecognizer *press = recognise<UILongPressGestureRecognizer>(button, @selector(pressed));
  EXPECT_EQ(header()["views"][0]["touchable"], true);
  EXPECT_EQ(gesture(header()["views"][0]["id"], "press"), Outcome::done);
  EXPECT_EQ(told(), "button button") << "began and ended, and the button is not pressed";
  [button removeGestureRecognizer:press];
}

TEST_F(TouchTest, WhatAnActionRaisesIsALineInTheLog) {
  startPage();
  recognise<UITapGestureRecognizer>(header_.get(), @selector(raises));
  EXPECT_EQ(gesture(header()["id"], "tap"), Outcome::done);
  EXPECT_TRUE(logged("Uncaught exception"));
  UIGestureRecognizer *recognizer = [[header_.get() gestureRecognizers] lastObject];
  [recognizer removeTarget:nil action:NULL];
  [recognizer addTarget:page_.get() action:@selector(tapped:)];
  EXPECT_EQ(gesture(header()["id"], "tap"), Outcome::done);
  EXPECT_EQ(told(), "tap195,50");
}

}  // namespace
