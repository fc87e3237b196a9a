// What of a view is covered by the screen's corners and by bars.
#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UIScrollView.h>
#import <UIKit/UIViewController+Sim.h>
#import <UIKit/UIViewState.h>
#import <UIKit/UIWindow.h>

#include <algorithm>

namespace {

/// The part of `insets`, of a view with these bounds, that reaches into `rect` in it.
UIEdgeInsets partWithin(CGRect rect, UIEdgeInsets insets, CGRect bounds) {
  const auto rest = [](CGFloat inset, CGFloat distance, CGFloat length) {
    return std::clamp<CGFloat>(inset - distance, 0, length);
  };
  return {rest(insets.top, CGRectGetMinY(rect) - CGRectGetMinY(bounds), rect.size.height),
          rest(insets.left, CGRectGetMinX(rect) - CGRectGetMinX(bounds), rect.size.width),
          rest(insets.bottom, CGRectGetMaxY(bounds) - CGRectGetMaxY(rect), rect.size.height),
          rest(insets.right, CGRectGetMaxX(bounds) - CGRectGetMaxX(rect), rect.size.width)};
}

}  // namespace

@implementation UIView (UIViewSafeArea)

- (UIEdgeInsets)safeAreaInsets {
  UIEdgeInsets insets = UIEdgeInsetsZero;
  if (UIView *superview = _state->superview) {
    insets =
        partWithin({_state->origin, _state->bounds.size}, [superview safeAreaInsets], superview -> _state -> bounds);
    if ([superview isKindOfClass:[UIScrollView class]]) insets.top = insets.bottom = 0;
  } else if ([self isKindOfClass:[UIWindow class]]) {
    insets = [[UIScreen mainScreen] sim_safeArea];
  }
  UIViewController *controller = (UIViewController *)_state->viewController;
  if (controller && [self window]) insets.top += [controller sim_heightOfBarAbove];
  return insets;
}

@end
