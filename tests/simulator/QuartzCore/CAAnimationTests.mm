#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>
#import <objcxx/Retained.h>

#import <QuartzCore/CALayer+Sim.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

/// Notes what animations tell their delegate.
@interface AnimationWitness : NSObject <CAAnimationDelegate> {
 @public
  objcxx::Retained<NSMutableArray> calls;
}
@end

@implementation AnimationWitness

- (instancetype)init {
  if (!(self = [super init])) return nil;
  calls = objcxx::adopt([[NSMutableArray alloc] init]);
  return self;
}

- (void)animationDidStart:(CAAnimation *)anim {
  (void)anim;
  [calls.get() addObject:@"start"];
}

- (void)animationDidStop:(CAAnimation *)anim finished:(BOOL)flag {
  (void)anim;
  [calls.get() addObject:flag ? @"finished" : @"stopped"];
}

@end

namespace {

class CAAnimationTests : public ObjCTest {
 protected:
  CABasicAnimation *fade() {
    CABasicAnimation *animation = [CABasicAnimation animationWithKeyPath:@"opacity"];
    [animation setFromValue:[NSNumber numberWithInt:1]];
    [animation setToValue:[NSNumber numberWithDouble:0.25]];
    [animation setDelegate:witness_.get()];
    return animation;
  }

  NSString *calls() { return [witness_.get()->calls.get() componentsJoinedByString:@" "]; }

  const objcxx::Retained<AnimationWitness> witness_ = objcxx::adopt([[AnimationWitness alloc] init]);
  const objcxx::Retained<CALayer> layer_ = objcxx::adopt([[CALayer alloc] init]);
};

TEST_F(CAAnimationTests, AChangeCountsFromWhereItBeginsAndAnAdditiveOneFromTheModel) {
  CABasicAnimation *animation = [CABasicAnimation animationWithKeyPath:@"cornerRadius"];
  [animation setFromValue:[NSNumber numberWithInt:10]];
  [animation setByValue:[NSNumber numberWithInt:5]];
  [animation setRemovedOnCompletion:NO];
  [animation setFillMode:kCAFillModeForwards];
  [layer_.get() setCornerRadius:2];
  [layer_.get() addAnimation:animation forKey:@"radius"];
  EXPECT_EQ([[layer_.get() presentationLayer] cornerRadius], 15);
  [animation setAdditive:YES];
  [layer_.get() addAnimation:animation forKey:@"radius"];
  EXPECT_EQ([[layer_.get() presentationLayer] cornerRadius], 17);
}

TEST_F(CAAnimationTests, ALayerHasOneTransitionWhateverItsKey) {
  CATransition *transition = [CATransition animation];
  [transition setDelegate:witness_.get()];
  [layer_.get() addAnimation:transition forKey:@"own"];
  EXPECT_OBJC_EQ([layer_.get() animationKeys], [NSArray arrayWithObject:kCATransition]);
  [layer_.get() addAnimation:transition forKey:nil];
  EXPECT_EQ([[layer_.get() animationKeys] count], 1u);
  EXPECT_OBJC_EQ(calls(), @"stopped");
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ(calls(), @"stopped start finished");
}

TEST_F(CAAnimationTests, AnAnimationEndsAtOnceAndLeavesTheModel) {
  [layer_.get() addAnimation:fade() forKey:@"fade"];
  EXPECT_OBJC_EQ(calls(), @"");
  EXPECT_OBJC_EQ([layer_.get() animationKeys], [NSArray arrayWithObject:@"fade"]);
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ(calls(), @"start finished");
  EXPECT_OBJC_EQ([layer_.get() animationForKey:@"fade"], nil);
  EXPECT_EQ([layer_.get() opacity], 1);
  EXPECT_EQ([[layer_.get() sim_shown] opacity], 1);
}

TEST_F(CAAnimationTests, OneThatStaysShowsItsEnd) {
  CABasicAnimation *animation = fade();
  [animation setFillMode:kCAFillModeForwards];
  [layer_.get() addAnimation:animation forKey:@"fade"];
  SIMDrainMainQueue();
  EXPECT_EQ([[layer_.get() sim_shown] opacity], 1) << "it was removed";
  [animation setRemovedOnCompletion:NO];
  [layer_.get() addAnimation:animation forKey:@"fade"];
  SIMDrainMainQueue();
  EXPECT_EQ([layer_.get() opacity], 1);
  EXPECT_EQ([[layer_.get() sim_shown] opacity], 0.25f);
  EXPECT_EQ([[layer_.get() presentationLayer] opacity], 0.25f);
  [layer_.get() removeAnimationForKey:@"fade"];
  EXPECT_EQ([[layer_.get() sim_shown] opacity], 1);
  EXPECT_OBJC_EQ(calls(), @"start finished start finished");
}

TEST_F(CAAnimationTests, OneWithoutEndIsStoppedByItsRemoval) {
  CABasicAnimation *animation = fade();
  [animation setRepeatCount:HUGE_VALF];
  [layer_.get() addAnimation:animation forKey:@"fade"];
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ(calls(), @"start");
  EXPECT_EQ([[layer_.get() sim_shown] opacity], 1);
  [layer_.get() removeAllAnimations];
  EXPECT_OBJC_EQ(calls(), @"start stopped");
}

TEST_F(CAAnimationTests, EndsOfOtherKindsAreShown) {
  const auto shownAfter = [&](CAAnimation *animation) {
    [animation setFillMode:kCAFillModeBoth];
    [animation setRemovedOnCompletion:NO];
    [layer_.get() removeAllAnimations];
    [layer_.get() addAnimation:animation forKey:nil];
    SIMDrainMainQueue();
    return [layer_.get() sim_shown];
  };
  CAKeyframeAnimation *frames = [CAKeyframeAnimation animationWithKeyPath:@"position"];
  [frames setValues:[NSArray arrayWithObjects:[NSValue valueWithCGPoint:CGPointMake(1, 1)],
                                              [NSValue valueWithCGPoint:CGPointMake(5, 6)], nil]];
  EXPECT_OBJC_EQ(NSStringFromCGPoint([shownAfter(frames) position]), NSStringFromCGPoint(CGPointMake(5, 6)));
  const CGPathRef path = CGPathCreateWithRect(CGRectMake(7, 8, 1, 1), nullptr);
  [frames setPath:path];
  CGPathRelease(path);
  EXPECT_OBJC_EQ(NSStringFromCGPoint([shownAfter(frames) position]), NSStringFromCGPoint(CGPointMake(7, 8)));
  CASpringAnimation *spring = [CASpringAnimation animationWithKeyPath:@"transform.scale"];
  [spring setByValue:[NSNumber numberWithInt:2]];
  EXPECT_NEAR([shownAfter(spring) affineTransform].a, 3, 1e-9);
  EXPECT_GT([spring settlingDuration], 1);
  CAAnimationGroup *group = [CAAnimationGroup animation];
  [group setAnimations:[NSArray arrayWithObjects:frames, fade(), nil]];
  CALayer *shown = shownAfter(group);
  EXPECT_EQ([shown opacity], 0.25f);
  EXPECT_OBJC_EQ(NSStringFromCGPoint([shown position]), NSStringFromCGPoint(CGPointMake(7, 8)));
  CABasicAnimation *there = fade();
  [there setAutoreverses:YES];
  EXPECT_EQ([shownAfter(there) opacity], 1);
}

TEST_F(CAAnimationTests, ATransactionTellsOfItsEnd) {
  __block int ended = 0;
  [CATransaction begin];
  [CATransaction setAnimationDuration:2];
  [CATransaction setCompletionBlock:^{
    ++ended;
  }];
  [CATransaction begin];
  EXPECT_EQ([CATransaction animationDuration], 2);
  [CATransaction setDisableActions:YES];
  [CATransaction commit];
  EXPECT_FALSE([CATransaction disableActions]);
  SIMDrainMainQueue();
  EXPECT_EQ(ended, 0);
  [CATransaction commit];
  EXPECT_EQ(ended, 0);
  SIMDrainMainQueue();
  EXPECT_EQ(ended, 1);
  [CATransaction setCompletionBlock:^{
    ++ended;
  }];
  [CATransaction commit];
  SIMDrainMainQueue();
  EXPECT_EQ(ended, 2);
  EXPECT_EQ([CATransaction animationDuration], 0.25);
}

TEST_F(CAAnimationTests, TimingFunctionsAreKnownByName) {
  float point[2];
  [[CAMediaTimingFunction functionWithName:kCAMediaTimingFunctionEaseIn] getControlPointAtIndex:1 values:point];
  EXPECT_EQ(point[0], 0.42f);
  [[CAMediaTimingFunction functionWithName:kCAMediaTimingFunctionEaseOut] getControlPointAtIndex:2 values:point];
  EXPECT_EQ(point[0], 0.58f);
  EXPECT_OBJC_EQ([CAMediaTimingFunction functionWithName:@"unknown"], nil);
}

}  // namespace
