// Light and dark, as views, their controllers and windows set it for what lies in them.
#import <UIKit/UITraitCollection+Sim.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewState.h>
#import <UIKit/UIWindow.h>

#import "UIViewControllerState.h"

namespace {

/// Whether anything has ever set a style: else every view has the device's.
bool stylesAreSet = false;

UITraitCollection *traitsWith(UIUserInterfaceStyle style) {
  return [[UITraitCollection sim_deviceTraits] sim_withUserInterfaceStyle:style];
}

UIUserInterfaceStyle either(UIUserInterfaceStyle first, UIUserInterfaceStyle second) {
  return first == UIUserInterfaceStyleUnspecified ? second : first;
}

}  // namespace

@implementation UIView (UITraitEnvironment)

- (UITraitCollection *)traitCollection {
  return traitsWith([self sim_setUserInterfaceStyle]);
}

- (void)traitCollectionDidChange:(UITraitCollection *)previous {
  (void)previous;
}

- (UIUserInterfaceStyle)overrideUserInterfaceStyle {
  return _state->overrideStyle;
}

- (void)setOverrideUserInterfaceStyle:(UIUserInterfaceStyle)style {
  const auto previous = objcxx::share([self traitCollection]);
  stylesAreSet = stylesAreSet || style != UIUserInterfaceStyleUnspecified;
  _state->overrideStyle = style;
  [self sim_tellOfTraitsFrom:previous.get()];
}

@end

@implementation UIView (SimTraits)

- (UIUserInterfaceStyle)sim_controllerStyle {
  return [(UIViewController *)_state->viewController overrideUserInterfaceStyle];
}

- (UIUserInterfaceStyle)sim_ownUserInterfaceStyle {
  return either(_state->overrideStyle, [self sim_controllerStyle]);
}

- (UIUserInterfaceStyle)sim_setUserInterfaceStyle {
  if (!stylesAreSet) return UIUserInterfaceStyleUnspecified;
  for (UIView *view = self; view; view = view->_state->superview) {
    const UIUserInterfaceStyle style = [view sim_ownUserInterfaceStyle];
    if (style != UIUserInterfaceStyleUnspecified) return style;
  }
  return UIUserInterfaceStyleUnspecified;
}

- (void)sim_performWithTraits:(void (^)(void))body {
  const UIUserInterfaceStyle style = [self sim_setUserInterfaceStyle];
  if (style == UIUserInterfaceStyleUnspecified) return body();
  [UITraitCollection sim_performWithTraitCollection:traitsWith(style) body:body];
}

- (void)sim_traitCollectionDidChange:(UITraitCollection *)previous {
  const auto controller = objcxx::share((UIViewController *)_state->viewController);
  UITraitCollection *ofController = [previous sim_withUserInterfaceStyle:[self sim_controllerStyle]];
  if (controller && ![ofController isEqual:[controller.get() traitCollection]]) {
    [self sim_performWithTraits:^{
      [controller.get() traitCollectionDidChange:ofController];
    }];
  }
  [self sim_tellOfTraitsFrom:[previous sim_withUserInterfaceStyle:[self sim_ownUserInterfaceStyle]]];
  [controller.get() sim_tellCoveredChildrenOfTraits:ofController];
}

- (void)sim_tellOfTraitsFrom:(UITraitCollection *)previous {
  const auto keepAlive = objcxx::share(self);
  UITraitCollection *traits = [self traitCollection];
  if ([traits isEqual:previous]) return;
  if ([traits hasDifferentColorAppearanceComparedToTraitCollection:previous]) [self setNeedsDisplay];
  [self sim_performWithTraits:^{
    [self traitCollectionDidChange:previous];
  }];
  for (UIView *subview in [self subviews]) [subview sim_traitCollectionDidChange:previous];
}

@end

@implementation UIViewController (UITraitEnvironment)

- (UITraitCollection *)traitCollection {
  return traitsWith([self sim_setUserInterfaceStyle]);
}

- (void)traitCollectionDidChange:(UITraitCollection *)previous {
  (void)previous;
}

- (UIUserInterfaceStyle)overrideUserInterfaceStyle {
  return _viewControllerState->overrideStyle;
}

- (void)setOverrideUserInterfaceStyle:(UIUserInterfaceStyle)style {
  const auto keepAlive = objcxx::share(self);
  UIView *view = _viewControllerState->view.get();
  const auto previous = objcxx::share([self traitCollection]);
  const auto ofView = objcxx::share([view traitCollection]);
  stylesAreSet = stylesAreSet || style != UIUserInterfaceStyleUnspecified;
  _viewControllerState->overrideStyle = style;
  if (![previous.get() isEqual:[self traitCollection]]) {
    UITraitCollection *former = previous.get();
    [UITraitCollection sim_performWithTraitCollection:[self traitCollection]
                                                 body:^{
                                                   [self traitCollectionDidChange:former];
                                                 }];
  }
  [view sim_tellOfTraitsFrom:ofView.get()];
  [self sim_tellCoveredChildrenOfTraits:previous.get()];
}

@end

@implementation UIViewController (SimTraits)

- (UIUserInterfaceStyle)sim_setUserInterfaceStyle {
  if (!stylesAreSet) return UIUserInterfaceStyleUnspecified;
  for (UIViewController *controller = self; controller; controller = controller->_viewControllerState->parent) {
    const UIUserInterfaceStyle style = controller->_viewControllerState->overrideStyle;
    if (style != UIUserInterfaceStyleUnspecified) return style;
    if (controller->_viewControllerState->parent) continue;
    UIViewController *presenting = controller->_viewControllerState->presenting;
    UIView *superview = [controller->_viewControllerState->view.get() superview];
    UIView *around = superview ? superview : [[presenting viewIfLoaded] window];
    return [around sim_setUserInterfaceStyle];
  }
  return UIUserInterfaceStyleUnspecified;
}

- (void)sim_tellCoveredChildrenOfTraits:(UITraitCollection *)previous {
  for (UIViewController *child in [self childViewControllers]) {
    UIView *view = [child viewIfLoaded];
    if (![view isDescendantOfView:_viewControllerState->view.get()]) [view sim_traitCollectionDidChange:previous];
  }
}

@end
