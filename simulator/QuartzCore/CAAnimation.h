// Animations of layers, which are over at once. Main thread only.
#pragma once

#import <QuartzCore/CALayer.h>
#import <QuartzCore/CAMediaTiming.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(CAAnimationState);

@class CAAnimation;

@protocol CAAnimationDelegate <NSObject>
@optional
- (void)animationDidStart:(CAAnimation *)anim;
/// NO when it was taken from its layer before its end.
- (void)animationDidStop:(CAAnimation *)anim finished:(BOOL)flag;
@end

@interface CAAnimation : NSObject <NSCopying, CAMediaTiming> {
 @private
  SIM_STATE(CAAnimationState, _state);
}
+ (instancetype)animation;
/// Owned, as on a device.
@property(retain) id<CAAnimationDelegate> delegate;
@property(retain) CAMediaTimingFunction *timingFunction;
/// YES until set.
@property(getter=isRemovedOnCompletion) BOOL removedOnCompletion;
@end

/// Of the value under a key path of the layer.
@interface CAPropertyAnimation : CAAnimation
+ (instancetype)animationWithKeyPath:(NSString *)path;
@property(copy) NSString *keyPath;
/// The value is added to the model's.
@property(getter=isAdditive) BOOL additive;
@property(getter=isCumulative) BOOL cumulative;
@end

/// Ends at `toValue`; without it at `fromValue` and `byValue`, or at the model's.
@interface CABasicAnimation : CAPropertyAnimation
@property(retain) id fromValue;
@property(retain) id toValue;
@property(retain) id byValue;
@end

/// Ends at the last of `values`, or at the end of `path`.
@interface CAKeyframeAnimation : CAPropertyAnimation
@property(copy) NSArray *values;
@property CGPathRef path;
@property(copy) NSArray<NSNumber *> *keyTimes;
@property(copy) NSArray<CAMediaTimingFunction *> *timingFunctions;
@property(copy) NSString *calculationMode;
@property(copy) NSString *rotationMode;
@end
CA_EXTERN NSString *const kCAAnimationLinear;
CA_EXTERN NSString *const kCAAnimationDiscrete;
CA_EXTERN NSString *const kCAAnimationPaced;
CA_EXTERN NSString *const kCAAnimationCubic;
CA_EXTERN NSString *const kCAAnimationCubicPaced;
CA_EXTERN NSString *const kCAAnimationRotateAuto;
CA_EXTERN NSString *const kCAAnimationRotateAutoReverse;

@interface CASpringAnimation : CABasicAnimation
/// 1, 100, 10 and 0 until set.
@property CGFloat mass;
@property CGFloat stiffness;
@property CGFloat damping;
@property CGFloat initialVelocity;
/// Seconds until what is left of the swing is below a thousandth.
@property(readonly) CFTimeInterval settlingDuration;
@end

@interface CAAnimationGroup : CAAnimation
@property(copy) NSArray<CAAnimation *> *animations;
@end

/// A change of what the layer shows; it has no end value.
@interface CATransition : CAAnimation
@property(copy) NSString *type;
@property(copy) NSString *subtype;
@end
/// The key of every transition among a layer's animations, whatever key it is added for.
CA_EXTERN NSString *const kCATransition;
CA_EXTERN NSString *const kCATransitionFade;
CA_EXTERN NSString *const kCATransitionMoveIn;
CA_EXTERN NSString *const kCATransitionPush;
CA_EXTERN NSString *const kCATransitionReveal;
CA_EXTERN NSString *const kCATransitionFromRight;
CA_EXTERN NSString *const kCATransitionFromLeft;
CA_EXTERN NSString *const kCATransitionFromTop;
CA_EXTERN NSString *const kCATransitionFromBottom;
