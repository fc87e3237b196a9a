// Curves of animations. They are kept: animations are over at once.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UITimingCurveProvider.h>
#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(CubicTimingState);
SIM_STATE_TYPE(SpringTimingState);

/// Immutable.
@interface UICubicTimingParameters : NSObject <UITimingCurveProvider> {
 @private
  SIM_STATE(CubicTimingState, _timingState);
}
@property(nonatomic, readonly) UIViewAnimationCurve animationCurve;
@property(nonatomic, readonly) CGPoint controlPoint1;
@property(nonatomic, readonly) CGPoint controlPoint2;
/// The system's own curve.
- (instancetype)init;
- (instancetype)initWithAnimationCurve:(UIViewAnimationCurve)curve;
- (instancetype)initWithControlPoint1:(CGPoint)point1 controlPoint2:(CGPoint)point2;
@end

/// Immutable.
@interface UISpringTimingParameters : NSObject <UITimingCurveProvider> {
 @private
  SIM_STATE(SpringTimingState, _timingState);
}
/// In distances of the animation a second.
@property(nonatomic, readonly) CGVector initialVelocity;
- (instancetype)init;
- (instancetype)initWithDampingRatio:(CGFloat)ratio;
- (instancetype)initWithDampingRatio:(CGFloat)ratio initialVelocity:(CGVector)velocity;
- (instancetype)initWithMass:(CGFloat)mass
                   stiffness:(CGFloat)stiffness
                     damping:(CGFloat)damping
             initialVelocity:(CGVector)velocity;
@end
