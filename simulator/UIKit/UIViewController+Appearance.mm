// Containers, and the calls that tell pages when they appear and disappear.
#import "UIViewControllerState.h"

#import <UIKit/UINavigationController.h>

@implementation UIViewController (UIContainerViewControllerProtectedMethods)

- (UIViewController *)parentViewController {
  return _viewControllerState->parent;
}

- (NSArray *)childViewControllers {
  return [[_viewControllerState->children.get() copy] autorelease];
}

- (void)addChildViewController:(UIViewController *)child {
  if (!child || child == self) {
    [NSException raise:NSInvalidArgumentException format:@"%@ cannot be a child of %@.", child, self];
  }
  const auto keepAlive = objcxx::share(child);
  if (child->_viewControllerState->parent) [child removeFromParentViewController];
  [child willMoveToParentViewController:self];
  child->_viewControllerState->parent = self;
  [_viewControllerState->children.get() addObject:child];
}

- (void)removeFromParentViewController {
  UIViewController *parent = _viewControllerState->parent;
  if (!parent) return;

  const auto keepAlive = objcxx::share(self);
  _viewControllerState->parent = nil;
  [parent->_viewControllerState->children.get() removeObjectIdenticalTo:self];
  [self didMoveToParentViewController:nil];
}

- (void)willMoveToParentViewController:(UIViewController *)parent {
}

- (void)didMoveToParentViewController:(UIViewController *)parent {
  // A child that joins a page on screen appears with its view; one that leaves it disappears.
  if (!parent) {
    if (_viewControllerState->appearance == SIMAppearanceAppeared) [self sim_setAppeared:NO animated:NO];
  } else if (parent->_viewControllerState->appearance == SIMAppearanceAppeared &&
             [parent shouldAutomaticallyForwardAppearanceMethods] &&
             [[parent sim_appearingChildViewControllers] indexOfObjectIdenticalTo:self] != NSNotFound) {
    [self sim_setAppeared:YES animated:NO];
  }
}

- (BOOL)shouldAutomaticallyForwardAppearanceMethods {
  return YES;
}

- (void)beginAppearanceTransition:(BOOL)isAppearing animated:(BOOL)animated {
  auto &state = *_viewControllerState;
  const BOOL appears = state.appearance == SIMAppearanceAppearing || state.appearance == SIMAppearanceAppeared;
  if (appears == (isAppearing ? YES : NO)) return;

  [self loadViewIfNeeded];
  state.appearance = isAppearing ? SIMAppearanceAppearing : SIMAppearanceDisappearing;
  state.animated = animated;
  if (isAppearing) {
    [self viewWillAppear:animated];
  } else {
    [self viewWillDisappear:animated];
  }
  if (![self shouldAutomaticallyForwardAppearanceMethods]) return;
  for (UIViewController *child in [self sim_appearingChildViewControllers]) {
    [child beginAppearanceTransition:isAppearing animated:animated];
  }
}

- (void)endAppearanceTransition {
  auto &state = *_viewControllerState;
  if (state.appearance == SIMAppearanceAppearing) {
    state.appearance = SIMAppearanceAppeared;
    [self viewDidAppear:state.animated];
  } else if (state.appearance == SIMAppearanceDisappearing) {
    state.appearance = SIMAppearanceDisappeared;
    [self viewDidDisappear:state.animated];
  } else {
    return;
  }
  if (![self shouldAutomaticallyForwardAppearanceMethods]) return;
  for (UIViewController *child in [self sim_appearingChildViewControllers]) [child endAppearanceTransition];
}

@end

@implementation UIViewController (UIAppearance)

- (void)viewWillAppear:(BOOL)animated {
}

- (void)viewDidAppear:(BOOL)animated {
}

- (void)viewWillDisappear:(BOOL)animated {
}

- (void)viewDidDisappear:(BOOL)animated {
}

- (BOOL)isMovingToParentViewController {
  return _viewControllerState->movingToParent;
}

- (BOOL)isMovingFromParentViewController {
  return _viewControllerState->movingFromParent;
}

- (BOOL)isBeingPresented {
  return _viewControllerState->beingPresented;
}

- (BOOL)isBeingDismissed {
  return _viewControllerState->beingDismissed;
}

@end

@implementation UIViewController (SimAppearance)

- (void)sim_setMovingToParent:(BOOL)moving {
  _viewControllerState->movingToParent = moving;
}

- (void)sim_setMovingFromParent:(BOOL)moving {
  _viewControllerState->movingFromParent = moving;
}

- (UINavigationController *)navigationController {
  for (UIViewController *at = _viewControllerState->parent; at; at = at->_viewControllerState->parent) {
    if ([at isKindOfClass:[UINavigationController class]]) return (UINavigationController *)at;
  }
  return nil;
}

- (SIMAppearance)sim_appearance {
  return _viewControllerState->appearance;
}

- (NSArray *)sim_appearingChildViewControllers {
  NSMutableArray *appearing = [NSMutableArray array];
  UIView *view = _viewControllerState->view.get();
  for (UIViewController *child in _viewControllerState->children.get()) {
    UIView *childView = child->_viewControllerState->view.get();
    if (childView && view && [childView isDescendantOfView:view]) [appearing addObject:child];
  }
  return appearing;
}

- (void)sim_setAppeared:(BOOL)appeared animated:(BOOL)animated {
  const auto keepAlive = objcxx::share(self);
  [self beginAppearanceTransition:appeared animated:animated];
  if (appeared) [_viewControllerState->view.get() layoutIfNeeded];
  [self endAppearanceTransition];
}

@end
