// Animations, which run at once.
#import <UIKit/UIView.h>

namespace {

void run(void (^animations)(void), void (^completion)(BOOL)) {
  if (animations) animations();
  if (!completion) return;
  dispatch_async(dispatch_get_main_queue(), ^{
    completion(YES);
  });
}

}  // namespace

@implementation UIView (UIViewAnimation)

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
  (void)duration, (void)delay, (void)options;
  run(animations, completion);
}

+ (void)animateWithDuration:(NSTimeInterval)duration
                      delay:(NSTimeInterval)delay
     usingSpringWithDamping:(CGFloat)damping
      initialSpringVelocity:(CGFloat)velocity
                    options:(UIViewAnimationOptions)options
                 animations:(void (^)(void))animations
                 completion:(void (^)(BOOL))completion {
  (void)duration, (void)delay, (void)damping, (void)velocity, (void)options;
  run(animations, completion);
}

+ (void)transitionWithView:(UIView *)view
                  duration:(NSTimeInterval)duration
                   options:(UIViewAnimationOptions)options
                animations:(void (^)(void))animations
                completion:(void (^)(BOOL))completion {
  (void)view, (void)duration, (void)options;
  run(animations, completion);
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
