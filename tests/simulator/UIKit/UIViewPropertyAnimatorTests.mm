// Animators and keyframes: what takes effect when, states, completions, reversal.
#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>
#import <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <string>
#include <utility>

namespace {

class UIViewPropertyAnimatorTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    window_ = objcxx::adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]);
    [window_.get() makeKeyAndVisible];
    view_ = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(10, 20, 30, 40)]);
    [window_.get() addSubview:view_.get()];
  }
  void TearDown() override {
    SIMDrainMainQueue();
    view_ = nullptr;
    window_ = nullptr;
    ObjCTest::TearDown();
  }

  /// Fades the view, and writes down that it did and where it ended.
  UIViewPropertyAnimator *animator() {
    UIView *view = view_.get();
    std::string *log = &log_;
    UIViewPropertyAnimator *made = [[[UIViewPropertyAnimator alloc] initWithDuration:2
                                                                               curve:UIViewAnimationCurveEaseIn
                                                                          animations:^{
                                                                            *log += "runs ";
                                                                            [view setAlpha:0.5];
                                                                          }] autorelease];
    __block UIViewPropertyAnimator *unowned = made;
    [made addCompletion:^(UIViewAnimatingPosition position) {
      *log += position == UIViewAnimatingPositionEnd     ? "end"
              : position == UIViewAnimatingPositionStart ? "start"
                                                         : "here";
      *log += [unowned state] == UIViewAnimatingStateInactive ? " " : "? ";
    }];
    return made;
  }
  std::string taken() { return std::exchange(log_, {}); }

  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UIView> view_;
  std::string log_;
};

TEST_F(UIViewPropertyAnimatorTests, ItTakesEffectAtOnceAndEndsLater) {
  UIViewPropertyAnimator *made = animator();
  EXPECT_EQ([made state], UIViewAnimatingStateInactive);
  EXPECT_FALSE([made isRunning]);
  EXPECT_EQ([made duration], 2);
  EXPECT_EQ(taken(), "");
  [made startAnimation];
  EXPECT_EQ(taken(), "runs ");
  EXPECT_EQ([view_.get() alpha], 0.5);
  EXPECT_EQ([made state], UIViewAnimatingStateActive);
  EXPECT_TRUE([made isRunning]);
  [made startAnimation];
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "end ");
  EXPECT_FALSE([made isRunning]);
  EXPECT_EQ([made fractionComplete], 1);
  [made startAnimation];
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "") << "what it did and whom it told is gone";
}

TEST_F(UIViewPropertyAnimatorTests, OneMayBeStartedAsItIsMade) {
  std::string *log = &log_;
  UIViewPropertyAnimator *made = [UIViewPropertyAnimator runningPropertyAnimatorWithDuration:1
      delay:3
      options:UIViewAnimationOptionCurveLinear
      animations:^{
        *log += "runs ";
      }
      completion:^(UIViewAnimatingPosition) {
        *log += "done ";
      }];
  EXPECT_EQ([made delay], 3);
  EXPECT_EQ([[[made timingParameters] cubicTimingParameters] animationCurve], UIViewAnimationCurveLinear);
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "runs done ");
}

TEST_F(UIViewPropertyAnimatorTests, AnimationsOfAnActiveOneRunAtOnce) {
  UIViewPropertyAnimator *made = animator();
  std::string *log = &log_;
  [made startAnimation];
  [made
      addAnimations:^{
        *log += "more ";
      }
        delayFactor:0.5];
  EXPECT_EQ(taken(), "runs more ");
}

TEST_F(UIViewPropertyAnimatorTests, APausedOneGoesOnWhenItIsStarted) {
  UIViewPropertyAnimator *made = animator();
  [made pauseAnimation];
  EXPECT_EQ(taken(), "runs ");
  EXPECT_EQ([made state], UIViewAnimatingStateActive);
  EXPECT_FALSE([made isRunning]);
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "");
  [made continueAnimationWithTimingParameters:nil durationFactor:0.5];
  EXPECT_TRUE([made isRunning]);
  [made pauseAnimation];
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "") << "it was paused again before its end";
  [made startAnimation];
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "end ");
}

TEST_F(UIViewPropertyAnimatorTests, AReversedOneEndsAtItsStart) {
  UIViewPropertyAnimator *made = animator();
  UIView *view = view_.get();
  [view setBackgroundColor:[UIColor redColor]];
  [made addAnimations:^{
    [view setFrame:CGRectMake(50, 60, 70, 80)];
    [view setTransform:CGAffineTransformMakeScale(2, 2)];
    [view setBackgroundColor:[UIColor blueColor]];
    [view setHidden:YES];
  }];
  [made startAnimation];
  EXPECT_TRUE([view isHidden]);
  [made setReversed:YES];
  EXPECT_TRUE([made isReversed]);
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "runs start ");
  EXPECT_EQ([view alpha], 1);
  EXPECT_TRUE(CGAffineTransformIsIdentity([view transform]));
  EXPECT_TRUE(CGRectEqualToRect([view frame], CGRectMake(10, 20, 30, 40)));
  EXPECT_OBJC_EQ([view backgroundColor], [UIColor redColor]);
  EXPECT_FALSE([view isHidden]);
  EXPECT_EQ([made fractionComplete], 0);
}

TEST_F(UIViewPropertyAnimatorTests, AStoppedOneIsFinished) {
  UIViewPropertyAnimator *made = animator();
  EXPECT_EQ(raisedBy([&] { [made finishAnimationAtPosition:UIViewAnimatingPositionEnd]; }),
            "NSInternalInconsistencyException");
  [made startAnimation];
  [made stopAnimation:NO];
  EXPECT_EQ([made state], UIViewAnimatingStateStopped);
  EXPECT_EQ(raisedBy([&] { [made startAnimation]; }), "NSInternalInconsistencyException");
  EXPECT_EQ(raisedBy([&] {
              [made addAnimations:^{
              }];
            }),
            "NSInternalInconsistencyException");
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "runs ");
  [made finishAnimationAtPosition:UIViewAnimatingPositionStart];
  EXPECT_EQ(taken(), "start ");
  EXPECT_EQ([view_.get() alpha], 1);
  EXPECT_EQ([made state], UIViewAnimatingStateInactive);
}

TEST_F(UIViewPropertyAnimatorTests, OneThatIsStoppedForGoodTellsNobody) {
  UIViewPropertyAnimator *made = animator();
  [made startAnimation];
  [made stopAnimation:YES];
  EXPECT_EQ([made state], UIViewAnimatingStateInactive);
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "runs ");
  EXPECT_EQ([view_.get() alpha], 0.5);
  [made startAnimation];
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "");
}

TEST_F(UIViewPropertyAnimatorTests, OneMayPauseAtItsEnd) {
  UIViewPropertyAnimator *made = animator();
  [made setPausesOnCompletion:YES];
  [made startAnimation];
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "runs ");
  EXPECT_EQ([made state], UIViewAnimatingStateActive);
  EXPECT_FALSE([made isRunning]);
  [made stopAnimation:NO];
  [made finishAnimationAtPosition:UIViewAnimatingPositionCurrent];
  EXPECT_EQ(taken(), "here ");
  EXPECT_EQ([view_.get() alpha], 0.5);
}

TEST_F(UIViewPropertyAnimatorTests, ACopyDoesTheSame) {
  UIViewPropertyAnimator *copy = [[animator() copy] autorelease];
  EXPECT_EQ([copy duration], 2);
  [copy startAnimation];
  EXPECT_EQ(taken(), "runs ");
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "end ") << "and tells the same";
}

TEST_F(UIViewPropertyAnimatorTests, CurvesSayWhatTheyAre) {
  const auto cubic = objcxx::adopt([[UICubicTimingParameters alloc] initWithControlPoint1:CGPointMake(0.1, 0.2)
                                                                            controlPoint2:CGPointMake(0.3, 0.4)]);
  EXPECT_EQ([cubic.get() timingCurveType], UITimingCurveTypeCubic);
  EXPECT_EQ([cubic.get() controlPoint2].y, 0.4);
  NSData *archive = [NSKeyedArchiver archivedDataWithRootObject:cubic.get()];
  UICubicTimingParameters *read = [NSKeyedUnarchiver unarchiveObjectWithData:archive];
  EXPECT_EQ([read timingCurveType], UITimingCurveTypeCubic);
  EXPECT_EQ([read controlPoint1].x, 0.1);
  EXPECT_EQ([read controlPoint2].y, 0.4);
  const auto plain = objcxx::adopt([[UICubicTimingParameters alloc] init]);
  EXPECT_EQ([plain.get() timingCurveType], UITimingCurveTypeBuiltin);
  EXPECT_EQ([plain.get() animationCurve], UIViewAnimationCurveEaseInOut);
  const auto spring = objcxx::adopt([[UISpringTimingParameters alloc] initWithDampingRatio:0.5
                                                                           initialVelocity:CGVectorMake(3, 4)]);
  EXPECT_EQ([spring.get() timingCurveType], UITimingCurveTypeSpring);
  EXPECT_EQ([spring.get() springTimingParameters], spring.get());
  UISpringTimingParameters *other =
      [NSKeyedUnarchiver unarchiveObjectWithData:[NSKeyedArchiver archivedDataWithRootObject:spring.get()]];
  EXPECT_EQ([other initialVelocity].dy, 4);
  const auto made = objcxx::adopt([[UIViewPropertyAnimator alloc] initWithDuration:1 timingParameters:spring.get()]);
  EXPECT_EQ([[[made.get() timingParameters] springTimingParameters] initialVelocity].dx, 3);
}

TEST_F(UIViewPropertyAnimatorTests, KeyframesRunAsTheyAreAdded) {
  std::string *log = &log_;
  [UIView animateKeyframesWithDuration:1
      delay:0
      options:UIViewKeyframeAnimationOptionCalculationModeCubic
      animations:^{
        [UIView addKeyframeWithRelativeStartTime:0.5
                                relativeDuration:0.5
                                      animations:^{
                                        *log += "second ";
                                      }];
        [UIView addKeyframeWithRelativeStartTime:0
                                relativeDuration:0.5
                                      animations:^{
                                        *log += "first ";
                                      }];
      }
      completion:^(BOOL finished) {
        *log += finished ? "done " : "wrong ";
      }];
  EXPECT_EQ(taken(), "second first ");
  SIMDrainMainQueue();
  EXPECT_EQ(taken(), "done ");
}

}  // namespace
