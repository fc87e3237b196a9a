// How animations run in time. Nothing moves here: an animation is over as soon as it begins.
#pragma once

#import <QuartzCore/CATransform3D.h>

typedef double CFTimeInterval;

typedef NSString *CAMediaTimingFillMode;
CA_EXTERN CAMediaTimingFillMode const kCAFillModeForwards;
CA_EXTERN CAMediaTimingFillMode const kCAFillModeBackwards;
CA_EXTERN CAMediaTimingFillMode const kCAFillModeBoth;
CA_EXTERN CAMediaTimingFillMode const kCAFillModeRemoved;

/// Seconds.
@protocol CAMediaTiming
@property CFTimeInterval beginTime;
@property CFTimeInterval duration;
@property float speed;
@property CFTimeInterval timeOffset;
/// An animation that is repeated for ever never stops, so that its delegate is told of no end.
@property float repeatCount;
@property CFTimeInterval repeatDuration;
@property BOOL autoreverses;
@property(copy) CAMediaTimingFillMode fillMode;
@end

typedef NSString *CAMediaTimingFunctionName;
CA_EXTERN CAMediaTimingFunctionName const kCAMediaTimingFunctionLinear;
CA_EXTERN CAMediaTimingFunctionName const kCAMediaTimingFunctionEaseIn;
CA_EXTERN CAMediaTimingFunctionName const kCAMediaTimingFunctionEaseOut;
CA_EXTERN CAMediaTimingFunctionName const kCAMediaTimingFunctionEaseInEaseOut;
CA_EXTERN CAMediaTimingFunctionName const kCAMediaTimingFunctionDefault;

/// A cubic curve from (0, 0) to (1, 1). Immutable.
@interface CAMediaTimingFunction : NSObject {
 @private
  float _points[4];
}
/// nil for an unknown name.
+ (instancetype)functionWithName:(CAMediaTimingFunctionName)name;
// clang-format off
+ (instancetype)functionWithControlPoints:(float)c1x :(float)c1y :(float)c2x :(float)c2y;
- (instancetype)initWithControlPoints:(float)c1x :(float)c1y :(float)c2x :(float)c2y;
// clang-format on
/// `values` has room for two; `index` from 0 to 3.
- (void)getControlPointAtIndex:(size_t)index values:(float[2])values;
@end

/// Seconds of a clock that only runs forward.
CA_EXTERN CFTimeInterval CACurrentMediaTime(void);
