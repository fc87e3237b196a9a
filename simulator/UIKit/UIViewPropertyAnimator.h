// An animation as an object. Main thread only.
#pragma once

#import <UIKit/UITimingParameters.h>
#import <UIKit/UIView.h>
#import <UIKit/UIViewAnimating.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(PropertyAnimatorState);

/// What is animated takes effect at once when the animator starts, or is paused; it runs until the next turn of the
/// main queue, at which its completions are called. Reversed, or finished at its start, what it changed of views in the
/// windows is as it was before: their geometry, transform, opacity, background colour and whether they are hidden.
@interface UIViewPropertyAnimator : NSObject <UIViewImplicitlyAnimating, NSCopying> {
 @private
  SIM_STATE(PropertyAnimatorState, _animatorState);
}
@property(nonatomic, copy, readonly) id<UITimingCurveProvider> timingParameters;
/// Seconds.
@property(nonatomic, readonly) NSTimeInterval duration;
@property(nonatomic, readonly) NSTimeInterval delay;
/// NO at first. YES: at its end the animator is paused, and nobody is told.
@property(nonatomic) BOOL pausesOnCompletion;

- (instancetype)initWithDuration:(NSTimeInterval)duration timingParameters:(id<UITimingCurveProvider>)parameters;
- (instancetype)initWithDuration:(NSTimeInterval)duration
                           curve:(UIViewAnimationCurve)curve
                      animations:(void (^)(void))animations;
- (instancetype)initWithDuration:(NSTimeInterval)duration
                   controlPoint1:(CGPoint)point1
                   controlPoint2:(CGPoint)point2
                      animations:(void (^)(void))animations;
- (instancetype)initWithDuration:(NSTimeInterval)duration
                    dampingRatio:(CGFloat)ratio
                      animations:(void (^)(void))animations;
/// Started.
+ (instancetype)runningPropertyAnimatorWithDuration:(NSTimeInterval)duration
                                              delay:(NSTimeInterval)delay
                                            options:(UIViewAnimationOptions)options
                                         animations:(void (^)(void))animations
                                         completion:(void (^)(UIViewAnimatingPosition finalPosition))completion;
/// While the animator is active they take effect at once. Of a stopped one NSInternalInconsistencyException is raised.
- (void)addAnimations:(void (^)(void))animation delayFactor:(CGFloat)delayFactor;
- (void)addAnimations:(void (^)(void))animation;
- (void)addCompletion:(void (^)(UIViewAnimatingPosition finalPosition))completion;
- (void)continueAnimationWithTimingParameters:(id<UITimingCurveProvider>)parameters
                               durationFactor:(CGFloat)durationFactor;
/// Raises NSInternalInconsistencyException unless the animator is stopped.
- (void)finishAnimationAtPosition:(UIViewAnimatingPosition)finalPosition;
@end
