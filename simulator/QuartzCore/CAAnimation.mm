// What all animations have, groups of them and transitions.
#import "CAAnimationState.h"

#include <cmath>

NSString *const kCATransition = @"transition";
NSString *const kCATransitionFade = @"fade";
NSString *const kCATransitionMoveIn = @"moveIn";
NSString *const kCATransitionPush = @"push";
NSString *const kCATransitionReveal = @"reveal";
NSString *const kCATransitionFromRight = @"fromRight";
NSString *const kCATransitionFromLeft = @"fromLeft";
NSString *const kCATransitionFromTop = @"fromTop";
NSString *const kCATransitionFromBottom = @"fromBottom";

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
