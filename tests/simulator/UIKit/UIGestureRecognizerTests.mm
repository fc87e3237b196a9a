#import <UIKit/TouchDispatch.h>
#import <UIKit/UIGestureRecognizerSubclass.h>
#import <UIKit/UIKit.h>
#import <UIKit/UIView+Sim.h>
#import <objcxx/Retained.h>

#include <string>
#include <utility>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

namespace {

std::string *touchLog = nullptr;

void note(const std::string &what) {
  if (touchLog) *touchLog += (touchLog->empty() ? "" : " ") + what;
}

const char *nameOf(UIGestureRecognizerState state) {
  switch (state) {
    case UIGestureRecognizerStatePossible: return "possible";
    case UIGestureRecognizerStateBegan: return "began";
    case UIGestureRecognizerStateChanged: return "changed";
    case UIGestureRecognizerStateEnded: return "ended";
    case UIGestureRecognizerStateCancelled: return "cancelled";
    case UIGestureRecognizerStateFailed: return "failed";
  }
  return "?";
}

}  // namespace

/// Writes down the touches that it is told of, and passes them on when it is to.
@interface TouchedView : UIView {
 @public
  BOOL passesOn;
  BOOL refusesGestures;
}
@end

@implementation TouchedView
- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  note("down" + std::to_string([[touches anyObject] tapCount]));
  if (passesOn) [super touchesBegan:touches withEvent:event];
}
- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)event;
  note([[touches anyObject] phase] == UITouchPhaseMoved ? "move" : "wrong-phase");
}
- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  note([[touches anyObject] phase] == UITouchPhaseEnded ? "up" : "wrong-phase");
  if (passesOn) [super touchesEnded:touches withEvent:event];
}
- (void)touchesCancelled:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)event;
  note([[touches anyObject] phase] == UITouchPhaseCancelled ? "lost" : "wrong-phase");
}
- (BOOL)gestureRecognizerShouldBegin:(UIGestureRecognizer *)recognizer {
  return !refusesGestures && [super gestureRecognizerShouldBegin:recognizer];
}
@end

/// The target and the delegate of recognisers, which it calls by their names.
@interface GestureListener : NSObject <UIGestureRecognizerDelegate> {
 @public
  BOOL refuses;
  BOOL refusesTouches;
  BOOL letsBoth;
  objcxx::Retained<UIGestureRecognizer> first;
  objcxx::Retained<UIGestureRecognizer> waitedFor;
  objcxx::Retained<UIGestureRecognizer> disables;
}
@end

@implementation GestureListener
- (void)heard:(UIGestureRecognizer *)recognizer {
  note(std::string([[recognizer name] UTF8String] ?: "it") + ":" + nameOf([recognizer state]));
  if (disables.get() == recognizer) [recognizer setEnabled:NO];
}
- (void)raise:(UIGestureRecognizer *)recognizer {
  (void)recognizer;
  [NSException raise:@"Gesture" format:@"of the test"];
}
- (void)plain {
  note("plain");
}
- (BOOL)gestureRecognizerShouldBegin:(UIGestureRecognizer *)recognizer {
  note(std::string("may-") + nameOf([recognizer state]));
  return !refuses;
}
- (BOOL)gestureRecognizer:(UIGestureRecognizer *)recognizer shouldReceiveTouch:(UITouch *)touch {
  (void)recognizer;
  (void)touch;
  return !refusesTouches;
}
- (BOOL)gestureRecognizer:(UIGestureRecognizer *)recognizer
    shouldRecognizeSimultaneouslyWithGestureRecognizer:(UIGestureRecognizer *)other {
  (void)recognizer;
  (void)other;
  return letsBoth;
}
- (BOOL)gestureRecognizer:(UIGestureRecognizer *)recognizer
    shouldRequireFailureOfGestureRecognizer:(UIGestureRecognizer *)other {
  (void)recognizer;
  return first && first.get() == other;
}
- (BOOL)gestureRecognizer:(UIGestureRecognizer *)recognizer
    shouldBeRequiredToFailByGestureRecognizer:(UIGestureRecognizer *)other {
  (void)other;
  return waitedFor && waitedFor.get() == recognizer;
}
@end

/// A maker's own gesture: the finger crosses x = 50.
@interface CrossingGesture : UIGestureRecognizer {
 @public
  BOOL ignores;
  BOOL stays;
}
@end

@implementation CrossingGesture
- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  if (ignores) [self ignoreTouch:[touches anyObject] forEvent:event];
}
- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)event;
  note("own");
  if ([[touches anyObject] locationInView:[self view]].x > 50) [self setState:UIGestureRecognizerStateRecognized];
}
- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)touches;
  (void)event;
  if (!stays) [self setState:UIGestureRecognizerStateFailed];
}
- (void)reset {
  [super reset];
  note("reset");
}
@end

@interface ControlListener : NSObject
@end

@implementation ControlListener
- (void)down {
  note("touch-down");
}
- (void)inside:(id)sender event:(UIEvent *)event {
  (void)sender;
  note([[event allTouches] count] == 1 ? "up-inside" : "no-event");
}
- (void)outside {
  note("up-outside");
}
- (void)dragged {
  note("dragged");
}
- (void)left {
  note("left");
}
- (void)entered {
  note("entered");
}
- (void)cancelled {
  note("touch-cancel");
}
- (void)changed {
  note("changed");
}
@end

namespace {

class GestureTest : public testing_support::ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    touchLog = &log_;
    window_ = objcxx::adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]);
    view_ = objcxx::adopt([[TouchedView alloc] initWithFrame:CGRectMake(100, 200, 100, 100)]);
    listener_ = objcxx::adopt([[GestureListener alloc] init]);
    [window_.get() setHidden:NO];
    [window_.get() addSubview:view_.get()];
    // Far from the taps of another test.
    sim::TouchDispatch::shared().skip(10);
  }
  void TearDown() override {
    sim::TouchDispatch::shared().cancel(now());
    sim::TouchDispatch::shared().wait();
    [window_.get() setHidden:YES];
    touchLog = nullptr;
    view_ = nullptr;
    window_ = nullptr;
    listener_ = nullptr;
    ObjCTest::TearDown();
  }

  static NSTimeInterval now() { return sim::TouchDispatch::shared().now(); }
  static void pass(double seconds) {
    sim::TouchDispatch::shared().skip(seconds);
    sim::TouchDispatch::shared().ring();
  }
  /// Points of the view.
  CGPoint inWindow(CGFloat x, CGFloat y) const { return CGPointMake(100 + x, 200 + y); }
  void down(CGFloat x = 50, CGFloat y = 50) {
    UIView *hit = [window_.get() hitTest:inWindow(x, y) withEvent:nil];
    place_ = inWindow(x, y);
    sim::TouchDispatch::shared().begin(hit, place_, now());
  }
  void to(CGFloat x, CGFloat y, double seconds = 0.02) {
    pass(seconds);
    place_ = inWindow(x, y);
    sim::TouchDispatch::shared().move(place_, now());
  }
  void up(double seconds = 0.05) {
    pass(seconds);
    sim::TouchDispatch::shared().end(place_, now());
  }
  void tap() {
    down();
    up();
  }
  template <typename Kind>
  Kind *add(Kind *recognizer, NSString *name, UIView *view = nil) {
    [recognizer autorelease];
    [recognizer setName:name];
    [recognizer addTarget:listener_.get() action:@selector(heard:)];
    [view ?: view_.get() addGestureRecognizer:recognizer];
    return recognizer;
  }
  UITapGestureRecognizer *addTaps(NSUInteger count, NSString *name, UIView *view = nil) {
    UITapGestureRecognizer *tap = add([[UITapGestureRecognizer alloc] init], name, view);
    [tap setNumberOfTapsRequired:count];
    return tap;
  }
  UIPanGestureRecognizer *addPan(NSString *name, UIView *view = nil) {
    return add([[UIPanGestureRecognizer alloc] init], name, view);
  }
  UILongPressGestureRecognizer *addPress(NSString *name) {
    return add([[UILongPressGestureRecognizer alloc] init], name);
  }
  UISwipeGestureRecognizer *addSwipe(UISwipeGestureRecognizerDirection direction) {
    UISwipeGestureRecognizer *swipe = add([[UISwipeGestureRecognizer alloc] init], @"swipe");
    [swipe setDirection:direction];
    return swipe;
  }
  std::string told() { return std::exchange(log_, std::string()); }

  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<TouchedView> view_;
  objcxx::Retained<GestureListener> listener_;
  CGPoint place_ = CGPointZero;
  std::string log_;
};

TEST_F(GestureTest, TheDeepestViewThatLetsTouchesThroughIsHit) {
  UIView *child = [[[UIView alloc] initWithFrame:CGRectMake(10, 10, 20, 20)] autorelease];
  [view_.get() addSubview:child];
  const auto hit = [&](CGFloat x, CGFloat y) { return [window_.get() hitTest:inWindow(x, y) withEvent:nil]; };
  EXPECT_EQ(hit(15, 15), child);
  EXPECT_EQ(hit(50, 50), view_.get());
  EXPECT_EQ(hit(-1, 50), window_.get());
  EXPECT_EQ(hit(10, 10), child);
  EXPECT_EQ(hit(30, 30), view_.get()) << "the far edge is outside";
  [child setHidden:YES];
  EXPECT_EQ(hit(15, 15), view_.get());
  [child setHidden:NO];
  [child setAlpha:0.005];
  EXPECT_EQ(hit(15, 15), view_.get());
  [child setAlpha:0.02];
  EXPECT_EQ(hit(15, 15), child);
  [child setUserInteractionEnabled:NO];
  EXPECT_EQ(hit(15, 15), view_.get());
  [child setUserInteractionEnabled:YES];
  UIView *front = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 100, 100)] autorelease];
  [view_.get() addSubview:front];
  EXPECT_EQ(hit(15, 15), front);
  EXPECT_EQ([window_.get() hitTest:CGPointMake(500, 10) withEvent:nil], nil);
  [view_.get() setBounds:CGRectMake(0, 40, 100, 100)];
  [front removeFromSuperview];
  [child setFrame:CGRectMake(10, 50, 20, 20)];
  EXPECT_EQ(hit(15, 15), child) << "the bounds' origin counts";
}

TEST_F(GestureTest, TheTouchedViewIsToldAndPassesItOn) {
  TouchedView *child = [[[TouchedView alloc] initWithFrame:CGRectMake(0, 0, 100, 100)] autorelease];
  [view_.get() addSubview:child];
  down();
  to(60, 60);
  up();
  EXPECT_EQ(told(), "down1 move up");
  child->passesOn = YES;
  tap();
  EXPECT_EQ(told(), "down2 down2 up up");
  [child removeFromSuperview];
  UIView *plain = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 100, 100)] autorelease];
  [view_.get() addSubview:plain];
  tap();
  EXPECT_EQ(told(), "down1 up") << "a view without methods of its own hands it to what lies around";
}

TEST_F(GestureTest, TapsAreCountedInQuickSuccession) {
  tap();
  pass(0.1);
  tap();
  pass(0.4);
  tap();
  EXPECT_EQ(told(), "down1 up down2 up down1 up");
}

TEST_F(GestureTest, ATapIsTakenFromTheView) {
  UITapGestureRecognizer *recognizer = addTaps(1, @"tap");
  EXPECT_EQ([recognizer view], view_.get());
  EXPECT_EQ([recognizer state], UIGestureRecognizerStatePossible);
  down(20, 30);
  EXPECT_EQ([recognizer numberOfTouches], 1u);
  EXPECT_EQ([recognizer locationInView:view_.get()].x, 20);
  EXPECT_EQ([recognizer locationInView:nil].y, 230);
  EXPECT_EQ([recognizer locationOfTouch:0 inView:view_.get()].y, 30);
  EXPECT_EQ(raisedBy([&] { (void)[recognizer locationOfTouch:1 inView:nil]; }), "NSRangeException");
  up();
  EXPECT_EQ(told(), "down1 lost tap:ended");
  EXPECT_EQ([recognizer state], UIGestureRecognizerStatePossible);
  EXPECT_EQ([recognizer numberOfTouches], 0u);

  [recognizer setCancelsTouchesInView:NO];
  pass(1);
  tap();
  EXPECT_EQ(told(), "down1 tap:ended up");
  [recognizer setEnabled:NO];
  pass(1);
  tap();
  EXPECT_EQ(told(), "down1 up");
}

TEST_F(GestureTest, ATapFailsByMovingByStayingAndByTakingTwoFingers) {
  UITapGestureRecognizer *recognizer = addTaps(1, @"tap");
  down();
  to(50, 94);
  up();
  EXPECT_EQ(told(), "down1 move lost tap:ended") << "a finger shakes";
  pass(1);
  down();
  to(50, 97);
  up();
  EXPECT_EQ(told(), "down1 move up");
  pass(1);
  down();
  up(0.8);
  EXPECT_EQ(told(), "down1 up");
  pass(1);
  [recognizer setNumberOfTouchesRequired:2];
  tap();
  EXPECT_EQ(told(), "down1 up");
}

TEST_F(GestureTest, ASingleTapWaitsForADoubleTapToFail) {
  UITapGestureRecognizer *twice = addTaps(2, @"double");
  UITapGestureRecognizer *once = addTaps(1, @"single");
  [once requireGestureRecognizerToFail:twice];
  [once setDelegate:listener_.get()];
  tap();
  EXPECT_EQ(told(), "down1") << "the end is held back, too";
  EXPECT_EQ([once state], UIGestureRecognizerStatePossible);
  pass(0.36);
  EXPECT_EQ(told(), "may-possible lost single:ended");
  pass(1);
  tap();
  pass(0.1);
  tap();
  EXPECT_EQ(told(), "down1 down2 lost lost double:ended");
  pass(1);
  EXPECT_EQ(told(), "");
}

TEST_F(GestureTest, WithoutThatTheSingleTapComesFirstAndTheDoubleTapAfterIt) {
  addTaps(1, @"single");
  addTaps(2, @"double");
  tap();
  pass(0.1);
  tap();
  EXPECT_EQ(told(), "down1 lost single:ended down2 lost double:ended");
}

TEST_F(GestureTest, AnEndIsHeldBackUntilTheRecogniserHasFailed) {
  UITapGestureRecognizer *twice = addTaps(2, @"double");
  tap();
  EXPECT_EQ(told(), "down1");
  pass(0.36);
  EXPECT_EQ(told(), "up");
  [twice setDelaysTouchesEnded:NO];
  pass(1);
  tap();
  EXPECT_EQ(told(), "down1 up");
  pass(1);
  [twice setDelaysTouchesBegan:YES];
  tap();
  EXPECT_EQ(told(), "");
  pass(0.36);
  EXPECT_EQ(told(), "down1 up");
}

TEST_F(GestureTest, APressBeginsWhenTheFingerHasStayed) {
  UILongPressGestureRecognizer *press = addPress(@"press");
  EXPECT_EQ([press minimumPressDuration], 0.5);
  EXPECT_EQ([press allowableMovement], 10);
  down();
  to(55, 55, 0.4);
  EXPECT_EQ(told(), "down1 move");
  pass(0.11);
  EXPECT_EQ(told(), "lost press:began");
  to(90, 90);
  EXPECT_EQ([press locationInView:view_.get()].x, 90);
  up();
  EXPECT_EQ(told(), "press:changed press:ended");

  pass(1);
  down();
  to(61, 50, 0.1);
  pass(1);
  EXPECT_EQ(told(), "down1 move") << "moved too far";
  up();
  EXPECT_EQ(told(), "up");
  pass(1);
  down();
  up(0.45);
  EXPECT_EQ(told(), "down1 up");
  pass(1);
  [press setAllowableMovement:20];
  [press setMinimumPressDuration:0.2];
  down();
  to(61, 50, 0.1);
  pass(0.11);
  EXPECT_EQ(told(), "down1 move lost press:began");
  sim::TouchDispatch::shared().cancel(now());
  EXPECT_EQ(told(), "press:cancelled");
}

TEST_F(GestureTest, APressAfterATap) {
  UILongPressGestureRecognizer *press = addPress(@"press");
  [press setNumberOfTapsRequired:1];
  down();
  pass(1);
  up();
  EXPECT_EQ(told(), "down1 up") << "no tap before";
  pass(1);
  tap();
  pass(0.1);
  down();
  pass(0.5);
  EXPECT_EQ(told(), "down1 down2 lost lost press:began");
}

TEST_F(GestureTest, TheAlarmRingsInTheRunLoop) {
  UILongPressGestureRecognizer *press = addPress(@"press");
  [press setMinimumPressDuration:0.03];
  down();
  told();
  NSDate *limit = [NSDate dateWithTimeIntervalSinceNow:10];
  while (log_.empty() && [limit timeIntervalSinceNow] > 0) {
    [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
  }
  EXPECT_EQ(told(), "lost press:began");
}

TEST_F(GestureTest, ADragIsFollowedFromTheMomentWhereItIsOne) {
  UIPanGestureRecognizer *pan = addPan(@"pan");
  down(50, 50);
  to(57, 50);
  EXPECT_EQ(told(), "down1 move");
  to(62, 50);
  EXPECT_EQ(told(), "lost pan:began");
  EXPECT_EQ([pan translationInView:view_.get()].x, 12);
  to(80, 40);
  EXPECT_EQ(told(), "pan:changed");
  EXPECT_EQ([pan translationInView:view_.get()].x, 30);
  EXPECT_EQ([pan translationInView:view_.get()].y, -10);
  [pan setTranslation:CGPointMake(5, 0) inView:view_.get()];
  to(85, 40);
  EXPECT_EQ([pan translationInView:window_.get()].x, 10);
  EXPECT_EQ([pan translationInView:nil].y, 0);
  up();
  EXPECT_EQ(told(), "pan:changed pan:ended");
  pass(1);
  down();
  up();
  EXPECT_EQ(told(), "down1 up");
  [pan setMinimumNumberOfTouches:2];
  pass(1);
  down();
  to(90, 90);
  up();
  EXPECT_EQ(told(), "down1 move up");
}

TEST_F(GestureTest, AVelocityIsThatOfTheLastMoment) {
  UIPanGestureRecognizer *pan = addPan(@"pan");
  down(0, 0);
  for (int step = 1; step <= 20; ++step) to(2 * step, step, 0.01);
  EXPECT_NEAR([pan velocityInView:nil].x, 200, 20);
  EXPECT_NEAR([pan velocityInView:view_.get()].y, 100, 10);
  pass(0.3);
  sim::TouchDispatch::shared().end(place_, now());
  EXPECT_EQ([pan velocityInView:nil].x, 0) << "it stood still before it was lifted";
}

TEST_F(GestureTest, ASwipeIsQuickAndStraight) {
  UISwipeGestureRecognizer *swipe = addSwipe(UISwipeGestureRecognizerDirectionLeft);
  const auto stroke = [&](CGFloat x, CGFloat y, double seconds) {
    pass(1);
    down(0, 0);
    to(x / 2, y / 2, seconds / 2);
    to(x, y, seconds / 2);
    up(0);
    return told();
  };
  EXPECT_EQ(stroke(-60, 10, 0.1), "down1 move lost swipe:ended");
  EXPECT_EQ(stroke(60, 10, 0.1), "down1 move move up");
  EXPECT_EQ(stroke(-45, 0, 0.1), "down1 move move up");
  EXPECT_EQ(stroke(-60, 60, 0.1), "down1 move move up");
  EXPECT_EQ(stroke(-60, 0, 0.7), "down1 move move up");
  [swipe setDirection:UISwipeGestureRecognizerDirectionUp | UISwipeGestureRecognizerDirectionDown];
  EXPECT_EQ(stroke(0, -60, 0.1), "down1 move lost swipe:ended");
  EXPECT_EQ(stroke(0, 60, 0.1), "down1 move lost swipe:ended");
  EXPECT_EQ(stroke(60, 0, 0.1), "down1 move move up");
  [swipe setNumberOfTouchesRequired:2];
  EXPECT_EQ(stroke(0, 60, 0.1), "down1 move move up");
}

TEST_F(GestureTest, ADragFromTheEdgeBeginsThere) {
  UIScreenEdgePanGestureRecognizer *edge = add([[UIScreenEdgePanGestureRecognizer alloc] init], @"edge", window_.get());
  [edge setEdges:UIRectEdgeLeft];
  down(-95, 0);
  to(0, 0);
  up();
  EXPECT_EQ(told(), "edge:began edge:ended");
  down(-50, 0);
  to(0, 0);
  up();
  EXPECT_EQ(told(), "");
  [edge setEdges:UIRectEdgeRight];
  down(-95, 0);
  to(0, 0);
  up();
  EXPECT_EQ(told(), "");
  down(285, 0);
  to(250, 0);
  up();
  EXPECT_EQ(told(), "edge:began edge:ended");
}

TEST_F(GestureTest, TheDelegateAndTheViewsAreAsked) {
  UIPanGestureRecognizer *pan = addPan(@"pan");
  [pan setDelegate:listener_.get()];
  listener_.get()->refuses = YES;
  down();
  to(80, 50);
  to(90, 50);
  EXPECT_EQ(told(), "down1 may-possible move move");
  EXPECT_EQ([pan state], UIGestureRecognizerStateFailed);
  up();
  EXPECT_EQ(told(), "up");
  EXPECT_EQ([pan state], UIGestureRecognizerStatePossible);
  listener_.get()->refuses = NO;
  listener_.get()->refusesTouches = YES;
  down();
  EXPECT_EQ([pan numberOfTouches], 0u);
  to(80, 50);
  up();
  EXPECT_EQ(told(), "down2 move up");
  listener_.get()->refusesTouches = NO;
  view_.get()->refusesGestures = YES;
  pass(1);
  down();
  to(80, 50);
  up();
  EXPECT_EQ(told(), "down1 may-possible move up");
  [pan setCancelsTouchesInView:NO];
  pass(1);
  down();
  to(80, 50);
  EXPECT_EQ(told(), "down1 may-possible pan:began move") << "nothing is taken from the view";
}

TEST_F(GestureTest, OneGestureAtATimeUnlessADelegateLetsBoth) {
  TouchedView *child = [[[TouchedView alloc] initWithFrame:CGRectMake(0, 0, 100, 100)] autorelease];
  [view_.get() addSubview:child];
  UIPanGestureRecognizer *outer = addPan(@"outer");
  addPan(@"inner", child);
  down();
  to(80, 50);
  EXPECT_EQ(told(), "down1 lost inner:began");
  EXPECT_EQ([outer state], UIGestureRecognizerStateFailed);
  up();
  EXPECT_EQ(told(), "inner:ended");
  [outer setDelegate:listener_.get()];
  listener_.get()->letsBoth = YES;
  pass(1);
  down();
  to(80, 50);
  up();
  EXPECT_EQ(told(), "down1 lost inner:began may-possible outer:began inner:ended outer:ended");
}

TEST_F(GestureTest, ADelegateCanHaveOneWaitForTheOther) {
  UIPanGestureRecognizer *pan = addPan(@"pan");
  UISwipeGestureRecognizer *swipe = addSwipe(UISwipeGestureRecognizerDirectionRight);
  [pan setDelegate:listener_.get()];
  listener_.get()->first = objcxx::share((UIGestureRecognizer *)swipe);
  down(0, 0);
  to(20, 0);
  to(60, 0);
  up();
  EXPECT_EQ(told(), "down1 move lost swipe:ended");
  pass(1);
  down(0, 0);
  to(20, 0);
  EXPECT_EQ([pan state], UIGestureRecognizerStatePossible);
  to(30, 0);
  EXPECT_EQ(told(), "down1 move move");
  pass(0.5);
  EXPECT_EQ(told(), "may-possible lost pan:began") << "the swipe took too long";
  up();
  EXPECT_EQ(told(), "pan:ended");
}

TEST_F(GestureTest, ADelegateCanHaveOthersWaitForItsOwn) {
  addTaps(1, @"one");
  UITapGestureRecognizer *two = addTaps(2, @"two");
  [two setDelegate:listener_.get()];
  listener_.get()->waitedFor = objcxx::share((UIGestureRecognizer *)two);
  tap();
  EXPECT_EQ(told().find("one"), std::string::npos) << "the second tap may come yet";
  pass(1);
  EXPECT_NE(told().find("one:ended"), std::string::npos);
  pass(1);
  tap();
  tap();
  const std::string both = told();
  EXPECT_NE(both.find("two:ended"), std::string::npos);
  EXPECT_EQ(both.find("one"), std::string::npos);
}

TEST_F(GestureTest, ARecogniserThatIsDisabledOrTakenAwayIsCancelled) {
  UIPanGestureRecognizer *pan = addPan(@"pan");
  down();
  to(80, 50);
  told();
  [pan setEnabled:NO];
  EXPECT_EQ(told(), "pan:cancelled");
  to(90, 50);
  up();
  EXPECT_EQ(told(), "");
  [pan setEnabled:YES];
  pass(1);
  down();
  to(80, 50);
  told();
  [view_.get() removeGestureRecognizer:pan];
  EXPECT_EQ(told(), "pan:cancelled");
  EXPECT_EQ([pan view], nil);
  EXPECT_EQ([view_.get() gestureRecognizers], nil);
  up();
  [view_.get() addGestureRecognizer:pan];
  listener_.get()->disables = objcxx::share((UIGestureRecognizer *)pan);
  pass(1);
  down();
  to(80, 50);
  to(90, 50);
  up();
  EXPECT_EQ(told(), "down1 lost pan:began pan:cancelled") << "by its own action";
}

TEST_F(GestureTest, AViewOwnsItsRecognisersAndARecogniserHasOneView) {
  UIView *other = [[[UIView alloc] init] autorelease];
  UITapGestureRecognizer *recognizer = [[UITapGestureRecognizer alloc] initWithTarget:nil action:NULL];
  [view_.get() addGestureRecognizer:recognizer];
  [view_.get() addGestureRecognizer:recognizer];
  EXPECT_EQ([[view_.get() gestureRecognizers] count], 1u);
  [other addGestureRecognizer:recognizer];
  EXPECT_EQ([recognizer view], other);
  EXPECT_EQ([[view_.get() gestureRecognizers] count], 0u);
  [other setGestureRecognizers:[NSArray array]];
  EXPECT_EQ([recognizer view], nil);
  [other setGestureRecognizers:@[ recognizer ]];
  EXPECT_EQ([[other gestureRecognizers] lastObject], recognizer);
  UIView *brief = [[UIView alloc] init];
  [brief addGestureRecognizer:recognizer];
  [brief release];
  EXPECT_EQ([recognizer view], nil) << "the view is gone";
  [recognizer release];
}

TEST_F(GestureTest, TargetsAreAddedOnceAndRemoved) {
  UITapGestureRecognizer *recognizer = addTaps(1, @"tap");
  [recognizer addTarget:listener_.get() action:@selector(heard:)];
  [recognizer addTarget:listener_.get() action:@selector(plain)];
  tap();
  EXPECT_EQ(told(), "down1 lost tap:ended plain");
  [recognizer removeTarget:nil action:@selector(heard:)];
  pass(1);
  tap();
  EXPECT_EQ(told(), "down1 lost plain");
  [recognizer removeTarget:listener_.get() action:NULL];
  pass(1);
  tap();
  EXPECT_EQ(told(), "down1 lost");
}

TEST_F(GestureTest, AMakersOwnGestureIsRecognisedForgottenAndCanIgnoreATouch) {
  CrossingGesture *crossing = add([[CrossingGesture alloc] init], @"crossing");
  down(10, 10);
  to(40, 10);
  to(60, 10);
  EXPECT_EQ(told(), "down1 own move own lost crossing:ended");
  to(70, 10);
  up();
  EXPECT_EQ(told(), "reset");
  EXPECT_EQ([crossing state], UIGestureRecognizerStatePossible);
  pass(1);
  tap();
  EXPECT_EQ(told(), "down1 up reset");
  crossing->ignores = YES;
  pass(1);
  down(10, 10);
  to(60, 10);
  up();
  EXPECT_EQ(told(), "down1 move up");
  crossing->ignores = NO;
  crossing->stays = YES;
  pass(1);
  down(10, 10);
  to(20, 10);
  up();
  EXPECT_EQ(told(), "down1 own move up") << "one that never says that it has failed holds nothing back";
}

TEST_F(GestureTest, AnExceptionEndsTheGestureAndNothingElse) {
  UITapGestureRecognizer *recognizer = addTaps(1, @"tap");
  [recognizer addTarget:listener_.get() action:@selector(raise:)];
  down();
  pass(0.05);
  EXPECT_EQ(raisedBy([&] { sim::TouchDispatch::shared().end(place_, now()); }), "Gesture");
  EXPECT_FALSE(sim::TouchDispatch::shared().isTouching());
  EXPECT_EQ([recognizer state], UIGestureRecognizerStatePossible);
  [recognizer removeTarget:listener_.get() action:@selector(raise:)];
  told();
  pass(1);
  tap();
  EXPECT_EQ(told(), "down1 lost tap:ended");
}

TEST_F(GestureTest, AControlFollowsTheFinger) {
  const auto listener = objcxx::adopt([[ControlListener alloc] init]);
  UIControl *control = [[[UIControl alloc] initWithFrame:CGRectMake(0, 0, 100, 100)] autorelease];
  [control addTarget:listener.get() action:@selector(down) forControlEvents:UIControlEventTouchDown];
  [control addTarget:listener.get() action:@selector(inside:event:) forControlEvents:UIControlEventTouchUpInside];
  [control addTarget:listener.get() action:@selector(outside) forControlEvents:UIControlEventTouchUpOutside];
  [control addTarget:listener.get() action:@selector(dragged) forControlEvents:UIControlEventTouchDragInside];
  [control addTarget:listener.get() action:@selector(left) forControlEvents:UIControlEventTouchDragExit];
  [control addTarget:listener.get() action:@selector(entered) forControlEvents:UIControlEventTouchDragEnter];
  [control addTarget:listener.get() action:@selector(cancelled) forControlEvents:UIControlEventTouchCancel];
  [view_.get() addSubview:control];
  down();
  EXPECT_TRUE([control isHighlighted] && [control isTracking] && [control isTouchInside]);
  up();
  EXPECT_EQ(told(), "touch-down up-inside");
  EXPECT_FALSE([control isHighlighted] || [control isTracking]);
  down();
  to(150, 50);
  to(180, 50);
  EXPECT_FALSE([control isHighlighted] || [control isTouchInside]);
  to(160, 50);
  EXPECT_TRUE([control isHighlighted]);
  to(180, 50);
  up();
  EXPECT_EQ(told(), "touch-down dragged left dragged entered left up-outside");
  down();
  sim::TouchDispatch::shared().cancel(now());
  EXPECT_EQ(told(), "touch-down touch-cancel");
  [control setEnabled:NO];
  tap();
  EXPECT_EQ(told(), "");
}

TEST_F(GestureTest, ATapOnAButtonIsTheButtonsOwn) {
  const auto listener = objcxx::adopt([[ControlListener alloc] init]);
  addTaps(1, @"tap");
  UIButton *button = [UIButton buttonWithType:UIButtonTypeCustom];
  [button setFrame:CGRectMake(0, 0, 100, 100)];
  [button addTarget:listener.get() action:@selector(inside:event:) forControlEvents:UIControlEventTouchUpInside];
  [view_.get() addSubview:button];
  tap();
  EXPECT_EQ(told(), "up-inside");
  addTaps(1, @"own", button);
  pass(1);
  tap();
  EXPECT_EQ(told(), "own:ended");
  [button removeFromSuperview];
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectMake(30, 30, 0, 0)] autorelease];
  [control addTarget:listener.get() action:@selector(changed) forControlEvents:UIControlEventValueChanged];
  [view_.get() addSubview:control];
  pass(1);
  tap();
  EXPECT_EQ(told(), "changed");
  EXPECT_TRUE([control isOn]);
  [control removeFromSuperview];
  UIControl *plain = [[[UIControl alloc] initWithFrame:CGRectMake(0, 0, 100, 100)] autorelease];
  [plain addTarget:listener.get() action:@selector(cancelled) forControlEvents:UIControlEventTouchCancel];
  [view_.get() addSubview:plain];
  pass(1);
  tap();
  EXPECT_EQ(told(), "touch-cancel tap:ended") << "of another control a recogniser above takes it";
}

}  // namespace
