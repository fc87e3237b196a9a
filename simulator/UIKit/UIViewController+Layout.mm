// What a page has to do with layout by constraints.
#import <UIKit/LayoutState.h>
#import <UIKit/UINavigationBar.h>
#import <UIKit/UINavigationController.h>
#import <UIKit/UIView.h>

#import "UIViewControllerState.h"

@implementation UIViewController (UIConstraintBasedLayoutCoreMethods)

- (void)updateViewConstraints {
  [[self view] updateConstraints];
}

@end

@implementation UIViewController (UILayoutSupport)

- (id<UILayoutSupport>)topLayoutGuide {
  return (id<UILayoutSupport>)[[self view] sim_guideOfKind:sim::GuideKind::kTop];
}

- (id<UILayoutSupport>)bottomLayoutGuide {
  return (id<UILayoutSupport>)[[self view] sim_guideOfKind:sim::GuideKind::kBottom];
}

- (void)viewSafeAreaInsetsDidChange {
}

@end

@implementation UIViewController (UIExtendedLayout)

- (UIRectEdge)edgesForExtendedLayout {
  return _viewControllerState->extendedEdges;
}

- (void)setEdgesForExtendedLayout:(UIRectEdge)edges {
  _viewControllerState->extendedEdges = edges;
  [self sim_placeAmongBars];
}

- (BOOL)extendedLayoutIncludesOpaqueBars {
  return _viewControllerState->extendsUnderOpaqueBars;
}

- (void)setExtendedLayoutIncludesOpaqueBars:(BOOL)includes {
  _viewControllerState->extendsUnderOpaqueBars = includes;
  [self sim_placeAmongBars];
}

- (BOOL)automaticallyAdjustsScrollViewInsets {
  return _viewControllerState->adjustsScrollViewInsets;
}

- (void)setAutomaticallyAdjustsScrollViewInsets:(BOOL)adjusts {
  _viewControllerState->adjustsScrollViewInsets = adjusts;
  [self sim_placeAmongBars];
  // The scroll view whose insets these are, unless it is the view itself.
  [[[_viewControllerState->view.get() subviews] firstObject] setNeedsLayout];
}

- (void)sim_placeAmongBars {
  UIView *view = _viewControllerState->view.get();
  [view setNeedsLayout];
  [[view superview] setNeedsLayout];
}

@end

@implementation UIViewController (SimBars)

/// The bar over the controller's view; nil without one, and for one that is hidden.
- (UINavigationBar *)sim_barAbove {
  UIViewController *parent = _viewControllerState->parent;
  if (![parent isKindOfClass:[UINavigationController class]]) return nil;
  UINavigationController *navigation = (UINavigationController *)parent;
  return [navigation isNavigationBarHidden] ? nil : [navigation navigationBar];
}

- (BOOL)sim_beginsBelowBar {
  UINavigationBar *bar = [self sim_barAbove];
  if (!bar) return NO;
  const BOOL reachesUnder = [bar isTranslucent] || _viewControllerState->extendsUnderOpaqueBars;
  return !reachesUnder || !(_viewControllerState->extendedEdges & UIRectEdgeTop);
}

- (CGFloat)sim_heightOfBarAbove {
  return [self sim_beginsBelowBar] ? 0 : [[self sim_barAbove] frame].size.height;
}

@end
