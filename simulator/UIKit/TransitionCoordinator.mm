#import "TransitionCoordinator.h"

#import <UIKit/UIView.h>
#include <dispatch/dispatch.h>

#include <utility>

@implementation SIMTransitionCoordinator

- (instancetype)initWithContainerView:(UIView *)containerView {
  if (!(self = [super init])) return nil;

  _containerView = objcxx::share(containerView);
  return self;
}

- (BOOL)isAnimated {
  return YES;
}

- (BOOL)isCancelled {
  return NO;
}

- (NSTimeInterval)transitionDuration {
  return 0;
}

- (UIView *)containerView {
  return _containerView.get();
}

- (BOOL)animateAlongsideTransition:(sim::TransitionBlock::Type)animation
                        completion:(sim::TransitionBlock::Type)completion {
  if (_over) return NO;
  if (animation) _animations.push_back(objcxx::copyOf(animation));
  if (completion) _completions.push_back(objcxx::copyOf(completion));
  return YES;
}

- (void)run {
  _over = YES;
  for (const auto &animation : std::exchange(_animations, {})) animation(self);
  for (const auto &completion : std::exchange(_completions, {})) {
    const auto run = completion;  // A block holds on to what a reference names only for as long as that lives.
    dispatch_async(dispatch_get_main_queue(), ^{
      run(self);
    });
  }
}

@end
