// What can be started, paused and reversed.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIKitDefines.h>

typedef NS_ENUM(NSInteger, UIViewAnimatingState) {
  UIViewAnimatingStateInactive,
  UIViewAnimatingStateActive,
  UIViewAnimatingStateStopped,
};

typedef NS_ENUM(NSInteger, UIViewAnimatingPosition) {
  UIViewAnimatingPositionEnd,
  UIViewAnimatingPositionStart,
  UIViewAnimatingPositionCurrent,
};

@protocol UITimingCurveProvider;

@protocol UIViewAnimating <NSObject>
@property(nonatomic, readonly) UIViewAnimatingState state;
@property(nonatomic, readonly, getter=isRunning) BOOL running;
@property(nonatomic, getter=isReversed) BOOL reversed;
/// From 0 to 1.
@property(nonatomic) CGFloat fractionComplete;
- (void)startAnimation;
/// `delay` in seconds.
- (void)startAnimationAfterDelay:(NSTimeInterval)delay;
- (void)pauseAnimation;
/// NO leaves it stopped, to be finished.
- (void)stopAnimation:(BOOL)withoutFinishing;
- (void)finishAnimationAtPosition:(UIViewAnimatingPosition)finalPosition;
@end

@protocol UIViewImplicitlyAnimating <UIViewAnimating>
@optional
- (void)addAnimations:(void (^)(void))animation delayFactor:(CGFloat)delayFactor;
- (void)addAnimations:(void (^)(void))animation;
- (void)addCompletion:(void (^)(UIViewAnimatingPosition finalPosition))completion;
- (void)continueAnimationWithTimingParameters:(id<UITimingCurveProvider>)parameters
                               durationFactor:(CGFloat)durationFactor;
@end
