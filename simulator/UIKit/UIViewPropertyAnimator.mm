#import <UIKit/UIViewPropertyAnimator.h>

#import <Foundation/NotCarried.h>
#import <UIKit/UIApplication.h>
#import <UIKit/UIWindow.h>
#import <dispatch/dispatch.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

#include <vector>

namespace sim {

/// What an animation changes of a view.
struct AnimatedLook {
  explicit AnimatedLook(UIView *from)
      : view(objcxx::share(from)),
        backgroundColor(objcxx::share([from backgroundColor])),
        transform([from transform]),
        bounds([from bounds]),
        center([from center]),
        alpha([from alpha]),
        hidden([from isHidden]) {}

  void restore() const {
    UIView *to = view.get();
    [to setTransform:transform];
    [to setBounds:bounds];
    [to setCenter:center];
    [to setAlpha:alpha];
    [to setHidden:hidden];
    [to setBackgroundColor:backgroundColor.get()];
  }

  bool isShown() const {
    UIView *of = view.get();
    return CGAffineTransformEqualToTransform([of transform], transform) && CGRectEqualToRect([of bounds], bounds) &&
           CGPointEqualToPoint([of center], center) && [of alpha] == alpha && [of isHidden] == hidden &&
           ([of backgroundColor] == backgroundColor.get() || [[of backgroundColor] isEqual:backgroundColor.get()]);
  }

  objcxx::Retained<UIView> view;
  objcxx::Retained<UIColor> backgroundColor;
  CGAffineTransform transform;
  CGRect bounds;
  CGPoint center;
  CGFloat alpha;
  BOOL hidden;
};

struct PropertyAnimatorState {
  objcxx::Retained<NSObject<UITimingCurveProvider>> timing;
  NSTimeInterval duration = 0;
  NSTimeInterval delay = 0;
  std::vector<objcxx::BlockHandle<void>> animations;
  std::vector<objcxx::BlockHandle<void, UIViewAnimatingPosition>> completions;
  std::vector<AnimatedLook> before;  ///< Of what the animations changed.
  UIViewAnimatingState state = UIViewAnimatingStateInactive;
  CGFloat fraction = 0;
  unsigned run = 0;  ///< A stop, a pause or an end makes what was queued for the former run void.
  bool running = false;
  bool reversed = false;
  bool pausesOnCompletion = false;
};

}  // namespace sim

namespace {

void addLooks(UIView *view, std::vector<sim::AnimatedLook> &looks) {
  looks.emplace_back(view);
  for (UIView *child in [view subviews]) addLooks(child, looks);
}

}  // namespace

@implementation UIViewPropertyAnimator

- (instancetype)initWithDuration:(NSTimeInterval)duration timingParameters:(id<UITimingCurveProvider>)parameters {
  if (!(self = [super init])) return nil;
  _animatorState = std::make_unique<sim::PropertyAnimatorState>();
  _animatorState->duration = duration;
  _animatorState->timing = objcxx::adopt((NSObject<UITimingCurveProvider> *)[(NSObject *)parameters copy]);
  return self;
}

- (instancetype)init {
  return [self initWithDuration:0 timingParameters:nil];
}

- (instancetype)sim_initWithDuration:(NSTimeInterval)duration
                              timing:(NSObject<UITimingCurveProvider> *)timing
                          animations:(void (^)(void))animations {
  if (!(self = [self initWithDuration:duration timingParameters:timing])) return nil;
  if (animations) [self addAnimations:animations];
  return self;
}

- (instancetype)initWithDuration:(NSTimeInterval)duration
                           curve:(UIViewAnimationCurve)curve
                      animations:(void (^)(void))animations {
  const auto timing = objcxx::adopt([[UICubicTimingParameters alloc] initWithAnimationCurve:curve]);
  return [self sim_initWithDuration:duration timing:timing.get() animations:animations];
}

- (instancetype)initWithDuration:(NSTimeInterval)duration
                   controlPoint1:(CGPoint)point1
                   controlPoint2:(CGPoint)point2
                      animations:(void (^)(void))animations {
  const auto timing = objcxx::adopt([[UICubicTimingParameters alloc] initWithControlPoint1:point1
                                                                             controlPoint2:point2]);
  return [self sim_initWithDuration:duration timing:timing.get() animations:animations];
}

- (instancetype)initWithDuration:(NSTimeInterval)duration
                    dampingRatio:(CGFloat)ratio
                      animations:(void (^)(void))animations {
  const auto timing = objcxx::adopt([[UISpringTimingParameters alloc] initWithDampingRatio:ratio]);
  return [self sim_initWithDuration:duration timing:timing.get() animations:animations];
}

+ (instancetype)runningPropertyAnimatorWithDuration:(NSTimeInterval)duration
                                              delay:(NSTimeInterval)delay
                                            options:(UIViewAnimationOptions)options
                                         animations:(void (^)(void))animations
                                         completion:(void (^)(UIViewAnimatingPosition))completion {
  const auto curve = static_cast<UIViewAnimationCurve>((options >> 16) & 3);
  UIViewPropertyAnimator *animator = [[[self alloc] initWithDuration:duration curve:curve
                                                          animations:animations] autorelease];
  if (completion) [animator addCompletion:completion];
  [animator startAnimationAfterDelay:delay];
  return animator;
}

- (id)copyWithZone:(NSZone *)zone {
  UIViewPropertyAnimator *copy = [[[self class] allocWithZone:zone] initWithDuration:_animatorState->duration
                                                                    timingParameters:_animatorState->timing.get()];
  copy->_animatorState->animations = _animatorState->animations;
  copy->_animatorState->completions = _animatorState->completions;
  copy->_animatorState->pausesOnCompletion = _animatorState->pausesOnCompletion;
  return copy;
}

- (id<UITimingCurveProvider>)timingParameters {
  return _animatorState->timing.get();
}

- (NSTimeInterval)duration {
  return _animatorState->duration;
}

- (NSTimeInterval)delay {
  return _animatorState->delay;
}

- (BOOL)pausesOnCompletion {
  return _animatorState->pausesOnCompletion;
}

- (void)setPausesOnCompletion:(BOOL)pauses {
  _animatorState->pausesOnCompletion = pauses;
}

- (UIViewAnimatingState)state {
  return _animatorState->state;
}

- (BOOL)isRunning {
  return _animatorState->running;
}

- (BOOL)isReversed {
  return _animatorState->reversed;
}

- (void)setReversed:(BOOL)reversed {
  _animatorState->reversed = reversed;
}

- (CGFloat)fractionComplete {
  return _animatorState->fraction;
}

- (void)setFractionComplete:(CGFloat)fraction {
  sim::notCarried(@"UIViewPropertyAnimator.fractionComplete",
                  @"An animation shows its end from its beginning on, wherever it is paused.");
  _animatorState->fraction = fraction;
}

#pragma mark - What is animated

/// Runs the block, and remembers how the views were that it changes.
- (void)sim_run:(const objcxx::BlockHandle<void> &)animation {
  std::vector<sim::AnimatedLook> looks;
  for (UIWindow *window in [[UIApplication sharedApplication] windows]) addLooks(window, looks);
  animation();
  auto &before = _animatorState->before;
  for (const sim::AnimatedLook &look : looks) {
    if (!look.isShown()) before.push_back(look);
  }
}

- (void)addAnimations:(void (^)(void))animation {
  if (_animatorState->state == UIViewAnimatingStateStopped) {
    [NSException raise:NSInternalInconsistencyException format:@"A stopped animator takes no animations."];
  }
  if (!animation) return;
  const auto block = objcxx::copyOf(animation);
  if (_animatorState->state == UIViewAnimatingStateActive) [self sim_run:block];
  else _animatorState->animations.push_back(block);
}

- (void)addAnimations:(void (^)(void))animation delayFactor:(CGFloat)delayFactor {
  (void)delayFactor;
  [self addAnimations:animation];
}

- (void)addCompletion:(void (^)(UIViewAnimatingPosition))completion {
  if (completion) _animatorState->completions.push_back(objcxx::copyOf(completion));
}

#pragma mark - Running

- (void)sim_activate {
  sim::PropertyAnimatorState &state = *_animatorState;
  if (state.state == UIViewAnimatingStateActive) return;
  state.state = UIViewAnimatingStateActive;
  state.before.clear();
  for (const auto &each : std::exchange(state.animations, {})) [self sim_run:each];
}

- (void)startAnimation {
  if (_animatorState->state == UIViewAnimatingStateStopped) {
    [NSException raise:NSInternalInconsistencyException format:@"A stopped animator has to be finished first."];
  }
  if (_animatorState->running) return;
  [self sim_activate];
  _animatorState->running = true;
  const unsigned run = ++_animatorState->run;
  // The main queue keeps the animator until then, as a device does.
  dispatch_async(dispatch_get_main_queue(), ^{
    [self sim_end:run];
  });
}

- (void)startAnimationAfterDelay:(NSTimeInterval)delay {
  _animatorState->delay = delay;
  [self startAnimation];
}

- (void)sim_end:(unsigned)run {
  sim::PropertyAnimatorState &state = *_animatorState;
  if (!state.running || state.run != run) return;
  state.running = false;
  state.fraction = state.reversed ? 0 : 1;
  if (state.pausesOnCompletion) return;
  [self sim_finishAt:state.reversed ? UIViewAnimatingPositionStart : UIViewAnimatingPositionEnd];
}

- (void)sim_finishAt:(UIViewAnimatingPosition)position {
  const auto kept = objcxx::share(self);
  sim::PropertyAnimatorState &state = *_animatorState;
  state.state = UIViewAnimatingStateInactive;
  state.running = false;
  ++state.run;
  const auto before = std::exchange(state.before, {});
  if (position == UIViewAnimatingPositionStart) {
    for (auto look = before.rbegin(); look != before.rend(); ++look) look->restore();
  }
  for (const auto &each : std::exchange(state.completions, {})) each(position);
}

- (void)pauseAnimation {
  if (_animatorState->state == UIViewAnimatingStateStopped) return;
  [self sim_activate];
  _animatorState->running = false;
  ++_animatorState->run;
}

- (void)continueAnimationWithTimingParameters:(id<UITimingCurveProvider>)parameters durationFactor:(CGFloat)factor {
  (void)parameters, (void)factor;
  [self startAnimation];
}

- (void)stopAnimation:(BOOL)withoutFinishing {
  sim::PropertyAnimatorState &state = *_animatorState;
  if (state.state != UIViewAnimatingStateActive) return;
  state.running = false;
  ++state.run;
  state.state = withoutFinishing ? UIViewAnimatingStateInactive : UIViewAnimatingStateStopped;
  if (!withoutFinishing) return;
  state.before.clear();
  state.completions.clear();
}

- (void)finishAnimationAtPosition:(UIViewAnimatingPosition)position {
  if (_animatorState->state != UIViewAnimatingStateStopped) {
    [NSException raise:NSInternalInconsistencyException format:@"Only a stopped animator can be finished."];
  }
  [self sim_finishAt:position];
}

@end
