// Animations, which run at once.
#import <UIKit/UIView.h>

namespace {

bool animationsEnabled = true;

void run(void (^animations)(void), void (^completion)(BOOL), UIViewAnimationOptions options = 0) {
  if (animations) animations();
  if (!completion || (options & UIViewAnimationOptionRepeat)) return;
  dispatch_async(dispatch_get_main_queue(), ^{
    completion(YES);
  });
}

}  // namespace

@implementation UIView (UIViewAnimation)

+ (BOOL)areAnimationsEnabled {
  return animationsEnabled;
}

+ (void)setAnimationsEnabled:(BOOL)enabled {
  animationsEnabled = enabled;
}

+ (void)animateWithDuration:(NSTimeInterval)duration animations:(void (^)(void))animations {
  (void)duration;
  run(animations, nil);
}

+ (void)animateWithDuration:(NSTimeInterval)duration
                 animations:(void (^)(void))animations
                 completion:(void (^)(BOOL))completion {
  (void)duration;
  run(animations, completion);
}

+ (void)animateWithDuration:(NSTimeInterval)duration
                      delay:(NSTimeInterval)delay
                    options:(UIViewAnimationOptions)options
                 animations:(void (^)(void))animations
                 completion:(void (^)(BOOL))completion {
  (void)duration, (void)delay;
  run(animations, completion, options);
}

+ (void)animateWithDuration:(NSTimeInterval)duration
                      delay:(NSTimeInterval)delay
     usingSpringWithDamping:(CGFloat)damping
      initialSpringVelocity:(CGFloat)velocity
                    options:(UIViewAnimationOptions)options
                 animations:(void (^)(void))animations
                 completion:(void (^)(BOOL))completion {
  (void)duration, (void)delay, (void)damping, (void)velocity;
  run(animations, completion, options);
}

+ (void)transitionWithView:(UIView *)view
                  duration:(NSTimeInterval)duration
                   options:(UIViewAnimationOptions)options
                animations:(void (^)(void))animations
                completion:(void (^)(BOOL))completion {
  (void)view, (void)duration;
  run(animations, completion, options);
}

+ (void)performWithoutAnimation:(void (^)(void))actions {
  run(actions, nil);
}

+ (void)beginAnimations:(NSString *)identifier context:(void *)context {
  (void)identifier, (void)context;
}

+ (void)setAnimationDuration:(NSTimeInterval)duration {
  (void)duration;
}

+ (void)commitAnimations {
}

@end

@implementation UIView (UIViewKeyframeAnimations)

+ (void)animateKeyframesWithDuration:(NSTimeInterval)duration
                               delay:(NSTimeInterval)delay
                             options:(UIViewKeyframeAnimationOptions)options
                          animations:(void (^)(void))animations
                          completion:(void (^)(BOOL))completion {
  (void)duration, (void)delay, (void)options;
  run(animations, completion);
}

+ (void)addKeyframeWithRelativeStartTime:(double)start
                        relativeDuration:(double)duration
                              animations:(void (^)(void))animations {
  (void)start, (void)duration;
  run(animations, nil);
}

@end
