#import <QuartzCore/CAAnimation+Sim.h>

#import <UIKit/UIGeometry.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <cmath>

NSString *const kCAAnimationLinear = @"linear";
NSString *const kCAAnimationDiscrete = @"discrete";
NSString *const kCAAnimationPaced = @"paced";
NSString *const kCAAnimationCubic = @"cubic";
NSString *const kCAAnimationCubicPaced = @"cubicPaced";
NSString *const kCAAnimationRotateAuto = @"auto";
NSString *const kCAAnimationRotateAutoReverse = @"autoReverse";
NSString *const kCATransition = @"transition";
NSString *const kCATransitionFade = @"fade";
NSString *const kCATransitionMoveIn = @"moveIn";
NSString *const kCATransitionPush = @"push";
NSString *const kCATransitionReveal = @"reveal";
NSString *const kCATransitionFromRight = @"fromRight";
NSString *const kCATransitionFromLeft = @"fromLeft";
NSString *const kCATransitionFromTop = @"fromTop";
NSString *const kCATransitionFromBottom = @"fromBottom";

namespace sim {

/// Of every kind of animation; each uses its part.
struct CAAnimationState {
  CFTimeInterval beginTime = 0;
  CFTimeInterval duration = 0;
  float speed = 1;
  CFTimeInterval timeOffset = 0;
  float repeatCount = 0;
  CFTimeInterval repeatDuration = 0;
  bool autoreverses = false;
  objcxx::Retained<NSString> fillMode = objcxx::share((NSString *)kCAFillModeRemoved);
  objcxx::Retained<NSObject> delegate;
  objcxx::Retained<CAMediaTimingFunction> timingFunction;
  bool removedOnCompletion = true;

  objcxx::Retained<NSString> keyPath;
  bool additive = false;
  bool cumulative = false;

  objcxx::Retained<NSObject> fromValue;
  objcxx::Retained<NSObject> toValue;
  objcxx::Retained<NSObject> byValue;

  objcxx::Retained<NSArray> values;
  objcxx::Retained<NSObject> path;
  objcxx::Retained<NSArray> keyTimes;
  objcxx::Retained<NSArray> timingFunctions;
  objcxx::Retained<NSString> calculationMode = objcxx::share((NSString *)kCAAnimationLinear);
  objcxx::Retained<NSString> rotationMode;

  CGFloat mass = 1;
  CGFloat stiffness = 100;
  CGFloat damping = 10;
  CGFloat initialVelocity = 0;

  objcxx::Retained<NSArray> animations;
  objcxx::Retained<NSString> type = objcxx::share((NSString *)kCATransitionFade);
  objcxx::Retained<NSString> subtype;
};

}  // namespace sim

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

@interface CAAnimation (State)
- (sim::CAAnimationState *)sim_state;
/// What the value under the key path ends at; nil for what it is.
- (id)sim_endValueFrom:(id)model;
@end

@implementation CAAnimation

+ (instancetype)animation {
  return [[[self alloc] init] autorelease];
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _state = std::make_unique<sim::CAAnimationState>();
  return self;
}

- (id)copyWithZone:(NSZone *)zone {
  CAAnimation *copy = [[[self class] allocWithZone:zone] init];
  *copy->_state = *_state;
  return copy;
}

- (sim::CAAnimationState *)sim_state {
  return _state.get();
}

- (CFTimeInterval)beginTime {
  return _state->beginTime;
}

- (void)setBeginTime:(CFTimeInterval)beginTime {
  _state->beginTime = beginTime;
}

- (CFTimeInterval)duration {
  return _state->duration;
}

- (void)setDuration:(CFTimeInterval)duration {
  _state->duration = duration;
}

- (float)speed {
  return _state->speed;
}

- (void)setSpeed:(float)speed {
  _state->speed = speed;
}

- (CFTimeInterval)timeOffset {
  return _state->timeOffset;
}

- (void)setTimeOffset:(CFTimeInterval)timeOffset {
  _state->timeOffset = timeOffset;
}

- (float)repeatCount {
  return _state->repeatCount;
}

- (void)setRepeatCount:(float)repeatCount {
  _state->repeatCount = repeatCount;
}

- (CFTimeInterval)repeatDuration {
  return _state->repeatDuration;
}

- (void)setRepeatDuration:(CFTimeInterval)repeatDuration {
  _state->repeatDuration = repeatDuration;
}

- (BOOL)autoreverses {
  return _state->autoreverses;
}

- (void)setAutoreverses:(BOOL)autoreverses {
  _state->autoreverses = autoreverses;
}

- (CAMediaTimingFillMode)fillMode {
  return _state->fillMode.get();
}

- (void)setFillMode:(CAMediaTimingFillMode)fillMode {
  _state->fillMode = objcxx::adopt((NSString *)[fillMode copy]);
}

- (id<CAAnimationDelegate>)delegate {
  return (id<CAAnimationDelegate>)_state->delegate.get();
}

- (void)setDelegate:(id<CAAnimationDelegate>)delegate {
  _state->delegate = objcxx::share((NSObject *)delegate);
}

- (CAMediaTimingFunction *)timingFunction {
  return _state->timingFunction.get();
}

- (void)setTimingFunction:(CAMediaTimingFunction *)timingFunction {
  _state->timingFunction = objcxx::share((CAMediaTimingFunction *)timingFunction);
}

- (BOOL)isRemovedOnCompletion {
  return _state->removedOnCompletion;
}

- (void)setRemovedOnCompletion:(BOOL)removedOnCompletion {
  _state->removedOnCompletion = removedOnCompletion;
}

- (id)sim_endValueFrom:(id)model {
  (void)model;
  return nil;
}

@end

@implementation CAAnimation (Sim)

- (BOOL)sim_isEndless {
  return std::isinf([self repeatCount]) || [self repeatCount] >= 1e9 || std::isinf([self repeatDuration]) ||
         [self repeatDuration] >= 1e9;
}

- (BOOL)sim_staysAtItsEnd {
  NSString *mode = [self fillMode];
  return ![self isRemovedOnCompletion] && ![self sim_isEndless] &&
         ([mode isEqualToString:kCAFillModeForwards] || [mode isEqualToString:kCAFillModeBoth]);
}

- (void)sim_applyEndToLayer:(CALayer *)layer {
  (void)layer;
}

@end

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

@implementation CAAnimationGroup

- (NSArray *)animations {
  return [self sim_state]->animations.get();
}

- (void)setAnimations:(NSArray *)animations {
  [self sim_state]->animations = objcxx::adopt((NSArray *)[animations copy]);
}

- (void)sim_applyEndToLayer:(CALayer *)layer {
  for (CAAnimation *animation in [self animations]) [animation sim_applyEndToLayer:layer];
}

@end

@implementation CATransition

- (NSString *)type {
  return [self sim_state]->type.get();
}

- (void)setType:(NSString *)type {
  [self sim_state]->type = objcxx::adopt((NSString *)[type copy]);
}

- (NSString *)subtype {
  return [self sim_state]->subtype.get();
}

- (void)setSubtype:(NSString *)subtype {
  [self sim_state]->subtype = objcxx::adopt((NSString *)[subtype copy]);
}

@end
