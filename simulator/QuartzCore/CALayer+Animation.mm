// Animations of a layer, which end at once, and what they leave on the screen.
#import <QuartzCore/CAAnimation+Sim.h>
#import <QuartzCore/CALayerState.h>
#import <UIKit/UIGeometry.h>

#include <dispatch/dispatch.h>

#include <algorithm>

namespace {

bool isSame(NSString *one, NSString *other) { return one == other || [one isEqualToString:other]; }

void tellOfEnd(CAAnimation *animation, BOOL finished) {
  id<CAAnimationDelegate> delegate = [animation delegate];
  if ([delegate respondsToSelector:@selector(animationDidStop:finished:)]) {
    [delegate animationDidStop:animation finished:finished];
  }
}

void tellOfStart(CAAnimation *animation) {
  id<CAAnimationDelegate> delegate = [animation delegate];
  if ([delegate respondsToSelector:@selector(animationDidStart:)]) [delegate animationDidStart:animation];
}

}  // namespace

@implementation CALayer (Animation)

- (void)addAnimation:(CAAnimation *)anim forKey:(NSString *)key {
  if (!anim) return;
  if ([anim isKindOfClass:[CATransition class]]) key = kCATransition;
  if (key) [self removeAnimationForKey:key];
  const auto running = objcxx::adopt((CAAnimation *)[anim copy]);
  [self sim_state].animations.push_back({objcxx::adopt((NSString *)[key copy]), running});
  CAAnimation *animation = running.get();
  dispatch_async(dispatch_get_main_queue(), ^{
    if (![self sim_runs:animation]) return;
    tellOfStart(animation);
    if ([animation sim_isEndless] || ![self sim_runs:animation]) return;
    if ([animation isRemovedOnCompletion]) [self sim_forget:animation];
    tellOfEnd(animation, YES);
  });
}

- (BOOL)sim_runs:(CAAnimation *)animation {
  const auto &animations = [self sim_state].animations;
  return std::ranges::any_of(animations, [&](const auto &each) { return each.second.get() == animation; });
}

- (void)sim_forget:(CAAnimation *)animation {
  std::erase_if([self sim_state].animations, [&](const auto &each) { return each.second.get() == animation; });
}

- (void)removeAnimationForKey:(NSString *)key {
  const auto animations = [self sim_state].animations;
  for (const auto &[name, animation] : animations) {
    if (!isSame(name.get(), key)) continue;
    [self sim_forget:animation.get()];
    if (![animation.get() sim_staysAtItsEnd]) tellOfEnd(animation.get(), NO);
  }
}

- (void)removeAllAnimations {
  const auto animations = [self sim_state].animations;
  for (const auto &[name, animation] : animations) {
    [self sim_forget:animation.get()];
    if (![animation.get() sim_staysAtItsEnd]) tellOfEnd(animation.get(), NO);
  }
}

- (NSArray *)animationKeys {
  NSMutableArray *keys = [NSMutableArray array];
  for (const auto &[name, animation] : [self sim_state].animations) {
    if (name) [keys addObject:name.get()];
  }
  return [keys count] > 0 ? keys : nil;
}

- (CAAnimation *)animationForKey:(NSString *)key {
  for (const auto &[name, animation] : [self sim_state].animations) {
    if (key && isSame(name.get(), key)) return animation.get();
  }
  return nil;
}

- (CALayer *)sim_shown {
  const auto &animations = [self sim_state].animations;
  const bool differs =
      std::ranges::any_of(animations, [](const auto &each) { return [each.second.get() sim_staysAtItsEnd]; });
  return differs ? [self presentationLayer] : self;
}

- (instancetype)presentationLayer {
  CALayer *copy = [[[[self class] alloc] initWithLayer:self] autorelease];
  for (const auto &[name, animation] : [self sim_state].animations) {
    if ([animation.get() sim_staysAtItsEnd]) [animation.get() sim_applyEndToLayer:copy];
  }
  return copy;
}

- (instancetype)modelLayer {
  return self;
}

@end
