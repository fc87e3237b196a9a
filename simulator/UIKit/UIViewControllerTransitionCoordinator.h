// What goes along with a change of a controller's size or with its dismissal. Main thread.
#pragma once

#import <Foundation/Foundation.h>

@class UIView;

@protocol UIViewControllerTransitionCoordinatorContext <NSObject>
/// YES, although nothing moves here.
- (BOOL)isAnimated;
/// NO.
- (BOOL)isCancelled;
/// Seconds; 0 here.
- (NSTimeInterval)transitionDuration;
/// The window.
- (UIView *)containerView;
@end

@protocol UIViewControllerTransitionCoordinator <UIViewControllerTransitionCoordinatorContext>
/// Has `animation` run when views have their new size or have gone, and `completion` from the main queue afterwards.
/// Either may be nil. NO, with nothing run, when the transition is over.
- (BOOL)animateAlongsideTransition:(void (^)(id<UIViewControllerTransitionCoordinatorContext> context))animation
                        completion:(void (^)(id<UIViewControllerTransitionCoordinatorContext> context))completion;
@end
