#import <UIKit/UITimingParameters.h>

#include <array>

namespace sim {

struct CubicTimingState {
  UITimingCurveType type = UITimingCurveTypeBuiltin;
  UIViewAnimationCurve curve = UIViewAnimationCurveEaseInOut;
  std::array<CGPoint, 2> points{};
};

struct SpringTimingState {
  CGVector velocity = CGVectorMake(0, 0);
};

}  // namespace sim

namespace {

/// The two control points of a curve that has a name, as its layers' timing functions have them.
std::array<CGPoint, 2> pointsOf(UIViewAnimationCurve curve) {
  switch (curve) {
    case UIViewAnimationCurveEaseIn: return {CGPointMake(0.42, 0), CGPointMake(1, 1)};
    case UIViewAnimationCurveEaseOut: return {CGPointMake(0, 0), CGPointMake(0.58, 1)};
    case UIViewAnimationCurveLinear: return {CGPointMake(0, 0), CGPointMake(1, 1)};
    default: return {CGPointMake(0.42, 0), CGPointMake(0.58, 1)};
  }
}

NSString *const kCurveKey = @"curve";
NSString *const kTypeKey = @"type";
NSArray *pointKeys() { return @[ @"x1", @"y1", @"x2", @"y2" ]; }

}  // namespace

@implementation UICubicTimingParameters

- (instancetype)initWithAnimationCurve:(UIViewAnimationCurve)curve {
  if (!(self = [super init])) return nil;
  _timingState = std::make_unique<sim::CubicTimingState>();
  _timingState->curve = curve;
  _timingState->points = pointsOf(curve);
  return self;
}

- (instancetype)init {
  return [self initWithAnimationCurve:UIViewAnimationCurveEaseInOut];
}

- (instancetype)initWithControlPoint1:(CGPoint)point1 controlPoint2:(CGPoint)point2 {
  if (!(self = [self init])) return nil;
  _timingState->type = UITimingCurveTypeCubic;
  _timingState->points = {point1, point2};
  return self;
}

- (instancetype)initWithCoder:(NSCoder *)coder {
  std::array<CGFloat, 4> values{};
  for (std::size_t each = 0; each < values.size(); ++each) {
    values[each] = [coder decodeDoubleForKey:[pointKeys() objectAtIndex:each]];
  }
  const auto curve = static_cast<UIViewAnimationCurve>([coder decodeIntegerForKey:kCurveKey]);
  if (!(self = [self initWithAnimationCurve:curve])) return nil;
  _timingState->type = static_cast<UITimingCurveType>([coder decodeIntegerForKey:kTypeKey]);
  _timingState->points = {CGPointMake(values[0], values[1]), CGPointMake(values[2], values[3])};
  return self;
}

- (void)encodeWithCoder:(NSCoder *)coder {
  const auto &[one, two] = _timingState->points;
  const std::array<CGFloat, 4> values{one.x, one.y, two.x, two.y};
  for (std::size_t each = 0; each < values.size(); ++each) {
    [coder encodeDouble:values[each] forKey:[pointKeys() objectAtIndex:each]];
  }
  [coder encodeInteger:_timingState->curve forKey:kCurveKey];
  [coder encodeInteger:_timingState->type forKey:kTypeKey];
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (UIViewAnimationCurve)animationCurve {
  return _timingState->curve;
}

- (CGPoint)controlPoint1 {
  return _timingState->points[0];
}

- (CGPoint)controlPoint2 {
  return _timingState->points[1];
}

- (UITimingCurveType)timingCurveType {
  return _timingState->type;
}

- (UICubicTimingParameters *)cubicTimingParameters {
  return self;
}

- (UISpringTimingParameters *)springTimingParameters {
  return nil;
}

@end

@implementation UISpringTimingParameters

- (instancetype)initWithDampingRatio:(CGFloat)ratio initialVelocity:(CGVector)velocity {
  (void)ratio;  // How it swings, which is not to be seen.
  if (!(self = [super init])) return nil;
  _timingState = std::make_unique<sim::SpringTimingState>();
  _timingState->velocity = velocity;
  return self;
}

- (instancetype)initWithDampingRatio:(CGFloat)ratio {
  return [self initWithDampingRatio:ratio initialVelocity:CGVectorMake(0, 0)];
}

- (instancetype)init {
  return [self initWithDampingRatio:1];
}

- (instancetype)initWithMass:(CGFloat)mass
                   stiffness:(CGFloat)stiffness
                     damping:(CGFloat)damping
             initialVelocity:(CGVector)velocity {
  (void)mass, (void)stiffness, (void)damping;
  return [self initWithDampingRatio:1 initialVelocity:velocity];
}

- (instancetype)initWithCoder:(NSCoder *)coder {
  return [self initWithDampingRatio:1
                    initialVelocity:CGVectorMake([coder decodeDoubleForKey:@"dx"], [coder decodeDoubleForKey:@"dy"])];
}

- (void)encodeWithCoder:(NSCoder *)coder {
  [coder encodeDouble:_timingState->velocity.dx forKey:@"dx"];
  [coder encodeDouble:_timingState->velocity.dy forKey:@"dy"];
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (CGVector)initialVelocity {
  return _timingState->velocity;
}

- (UITimingCurveType)timingCurveType {
  return UITimingCurveTypeSpring;
}

- (UICubicTimingParameters *)cubicTimingParameters {
  return nil;
}

- (UISpringTimingParameters *)springTimingParameters {
  return self;
}

@end
