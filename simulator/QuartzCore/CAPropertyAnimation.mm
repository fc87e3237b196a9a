// Animations of a value: from one to another, through several, on a spring.
#import "CAAnimationState.h"

#import <UIKit/UIGeometry.h>

#include <algorithm>
#include <cmath>

NSString *const kCAAnimationLinear = @"linear";
NSString *const kCAAnimationDiscrete = @"discrete";
NSString *const kCAAnimationPaced = @"paced";
NSString *const kCAAnimationCubic = @"cubic";
NSString *const kCAAnimationCubicPaced = @"cubicPaced";
NSString *const kCAAnimationRotateAuto = @"auto";
NSString *const kCAAnimationRotateAutoReverse = @"autoReverse";

namespace {

constexpr CGFloat kSettled = 0.001;

/// The sum of two numbers, points, sizes or rectangles; `one` for anything else.
id sum(id one, id other) {
  if (!one || !other) return one ?: other;
  if ([one isKindOfClass:[NSNumber class]] && [other isKindOfClass:[NSNumber class]]) {
    return [NSNumber numberWithDouble:[one doubleValue] + [other doubleValue]];
  }
  if (![one isKindOfClass:[NSValue class]] || ![other isKindOfClass:[NSValue class]]) return one;
  const char *const type = [one objCType];
  if (strcmp(type, [other objCType]) != 0) return one;
  if (strcmp(type, @encode(CGPoint)) == 0) {
    const CGPoint a = [one CGPointValue], b = [other CGPointValue];
    return [NSValue valueWithCGPoint:CGPointMake(a.x + b.x, a.y + b.y)];
  }
  if (strcmp(type, @encode(CGSize)) == 0) {
    const CGSize a = [one CGSizeValue], b = [other CGSizeValue];
    return [NSValue valueWithCGSize:CGSizeMake(a.width + b.width, a.height + b.height)];
  }
  return one;
}

}  // namespace

@implementation CAPropertyAnimation

+ (instancetype)animationWithKeyPath:(NSString *)path {
  CAPropertyAnimation *animation = [self animation];
  [animation setKeyPath:path];
  return animation;
}

- (NSString *)keyPath {
  return [self sim_state]->keyPath.get();
}

- (void)setKeyPath:(NSString *)keyPath {
  [self sim_state]->keyPath = objcxx::adopt((NSString *)[keyPath copy]);
}

- (BOOL)isAdditive {
  return [self sim_state]->additive;
}

- (void)setAdditive:(BOOL)additive {
  [self sim_state]->additive = additive;
}

- (BOOL)isCumulative {
  return [self sim_state]->cumulative;
}

- (void)setCumulative:(BOOL)cumulative {
  [self sim_state]->cumulative = cumulative;
}

- (void)sim_applyEndToLayer:(CALayer *)layer {
  if (![self keyPath]) return;
  id model = [layer valueForKeyPath:[self keyPath]];
  id end = [self sim_endValueFrom:model];
  if (end) [layer setValue:[self isAdditive] ? sum(end, model) : end forKeyPath:[self keyPath]];
}

@end

@implementation CABasicAnimation

- (id)fromValue {
  return (id)[self sim_state]->fromValue.get();
}

- (void)setFromValue:(id)fromValue {
  [self sim_state]->fromValue = objcxx::share((NSObject *)fromValue);
}

- (id)toValue {
  return (id)[self sim_state]->toValue.get();
}

- (void)setToValue:(id)toValue {
  [self sim_state]->toValue = objcxx::share((NSObject *)toValue);
}

- (id)byValue {
  return (id)[self sim_state]->byValue.get();
}

- (void)setByValue:(id)byValue {
  [self sim_state]->byValue = objcxx::share((NSObject *)byValue);
}

- (id)sim_endValueFrom:(id)model {
  if ([self autoreverses]) return [self fromValue];
  if ([self toValue]) return [self toValue];
  return [self byValue] ? sum([self fromValue] ?: model, [self byValue]) : nil;
}

@end

@implementation CAKeyframeAnimation

- (NSArray *)values {
  return [self sim_state]->values.get();
}

- (void)setValues:(NSArray *)values {
  [self sim_state]->values = objcxx::adopt((NSArray *)[values copy]);
}

- (CGPathRef)path {
  return (CGPathRef)[self sim_state]->path.get();
}

- (void)setPath:(CGPathRef)path {
  [self sim_state]->path = objcxx::share((NSObject *)(void *)path);
}

- (NSArray *)keyTimes {
  return [self sim_state]->keyTimes.get();
}

- (void)setKeyTimes:(NSArray *)keyTimes {
  [self sim_state]->keyTimes = objcxx::adopt((NSArray *)[keyTimes copy]);
}

- (NSArray *)timingFunctions {
  return [self sim_state]->timingFunctions.get();
}

- (void)setTimingFunctions:(NSArray *)timingFunctions {
  [self sim_state]->timingFunctions = objcxx::adopt((NSArray *)[timingFunctions copy]);
}

- (NSString *)calculationMode {
  return [self sim_state]->calculationMode.get();
}

- (void)setCalculationMode:(NSString *)calculationMode {
  [self sim_state]->calculationMode = objcxx::adopt((NSString *)[calculationMode copy]);
}

- (NSString *)rotationMode {
  return [self sim_state]->rotationMode.get();
}

- (void)setRotationMode:(NSString *)rotationMode {
  [self sim_state]->rotationMode = objcxx::adopt((NSString *)[rotationMode copy]);
}

- (id)sim_endValueFrom:(id)model {
  (void)model;
  if (![self path]) return [self autoreverses] ? [[self values] firstObject] : [[self values] lastObject];
  return [self autoreverses] ? nil : [NSValue valueWithCGPoint:CGPathGetCurrentPoint([self path])];
}

@end

@implementation CASpringAnimation

- (CGFloat)mass {
  return [self sim_state]->mass;
}

- (void)setMass:(CGFloat)mass {
  [self sim_state]->mass = mass;
}

- (CGFloat)stiffness {
  return [self sim_state]->stiffness;
}

- (void)setStiffness:(CGFloat)stiffness {
  [self sim_state]->stiffness = stiffness;
}

- (CGFloat)damping {
  return [self sim_state]->damping;
}

- (void)setDamping:(CGFloat)damping {
  [self sim_state]->damping = damping;
}

- (CGFloat)initialVelocity {
  return [self sim_state]->initialVelocity;
}

- (void)setInitialVelocity:(CGFloat)initialVelocity {
  [self sim_state]->initialVelocity = initialVelocity;
}

- (CFTimeInterval)settlingDuration {
  const CGFloat decay = [self damping] / (2 * std::max<CGFloat>([self mass], 1e-6));
  return decay > 0 ? -std::log(kSettled) / decay : [self duration];
}

@end
