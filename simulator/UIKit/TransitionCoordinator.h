// The coordinator of a change of the screen.
#pragma once

#import <UIKit/UIViewControllerTransitionCoordinator.h>
#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

#include <vector>

namespace sim {
using TransitionBlock = objcxx::BlockHandle<void, id<UIViewControllerTransitionCoordinatorContext>>;
}

@interface SIMTransitionCoordinator : NSObject <UIViewControllerTransitionCoordinator> {
 @private
  objcxx::Retained<UIView> _containerView;
  std::vector<sim::TransitionBlock> _animations;
  std::vector<sim::TransitionBlock> _completions;
  BOOL _over;
}
- (instancetype)initWithContainerView:(UIView *)containerView;
/// Runs the animations, and puts the completion blocks on the main queue.
- (void)run;
@end
