// Controllers that show above others.
#import "UIViewControllerState.h"

#import <Foundation/NotCarried.h>
#import <UIKit/UIDevice.h>
#import <UIKit/UIWindow.h>
#import <dispatch/dispatch.h>
#include <objcxx/BlockHandle.h>

#include <vector>

void sim::deliverCompletion(void (^completion)(void), BOOL animated) {
  if (!completion) return;
  if (animated) {
    dispatch_async(dispatch_get_main_queue(), completion);
  } else {
    completion();
  }
}

namespace {

/// Presented controllers, the front one last.
using Chain = std::vector<objcxx::Retained<UIViewController>>;

/// Whether what lies below a controller of this style leaves the screen.
bool coversPresenter(UIModalPresentationStyle style) {
  return style == UIModalPresentationFullScreen || style == UIModalPresentationCurrentContext;
}

}  // namespace

@implementation UIViewController (UIModalPresentation)

- (UIModalPresentationStyle)modalPresentationStyle {
  return _viewControllerState->presentationStyle;
}

- (void)setModalPresentationStyle:(UIModalPresentationStyle)style {
  _viewControllerState->presentationStyle = style;
}

- (UIModalTransitionStyle)modalTransitionStyle {
  return _viewControllerState->transitionStyle;
}

- (void)setModalTransitionStyle:(UIModalTransitionStyle)style {
  _viewControllerState->transitionStyle = style;
}

- (BOOL)isModalInPresentation {
  return _viewControllerState->modalInPresentation;
}

- (void)setModalInPresentation:(BOOL)modalInPresentation {
  if (modalInPresentation) {
    sim::notCarried(@"UIViewController.modalInPresentation", @"A page that is presented can always be dismissed.");
  }
  _viewControllerState->modalInPresentation = modalInPresentation;
}

- (BOOL)definesPresentationContext {
  return _viewControllerState->definesPresentationContext;
}

- (void)setDefinesPresentationContext:(BOOL)definesPresentationContext {
  _viewControllerState->definesPresentationContext = definesPresentationContext;
}

- (UIPopoverPresentationController *)popoverPresentationController {
  if (!_viewControllerState->popover &&
      (_viewControllerState->presentationStyle == UIModalPresentationPopover || [self sim_needsPopover])) {
    _viewControllerState->popover =
        objcxx::adopt([[UIPopoverPresentationController alloc] sim_initWithPresentedViewController:self]);
  }
  return _viewControllerState->popover.get();
}

- (UIViewController *)presentedViewController {
  for (UIViewController *at = self; at; at = at->_viewControllerState->parent) {
    if (at->_viewControllerState->presented) return at->_viewControllerState->presented.get();
  }
  return nil;
}

- (UIViewController *)presentingViewController {
  for (UIViewController *at = self; at; at = at->_viewControllerState->parent) {
    if (at->_viewControllerState->presenting) return at->_viewControllerState->presenting;
  }
  return nil;
}

#pragma mark - Presenting

- (void)presentViewController:(UIViewController *)controller
                     animated:(BOOL)animated
                   completion:(void (^)(void))completion {
  if (!controller || controller == self) {
    [NSException raise:NSInvalidArgumentException format:@"%@ cannot present %@.", self, controller];
  }
  UIViewController *presenter = self;
  while (presenter->_viewControllerState->parent) presenter = presenter->_viewControllerState->parent;

  if (UIViewController *other = presenter->_viewControllerState->presented.get()) {
    NSLog(@"Attempt to present %@ on %@ (from %@) which is already presenting %@.", controller, presenter, self, other);
    return;
  }
  if (controller->_viewControllerState->presenting || controller->_viewControllerState->parent) {
    [NSException raise:NSInvalidArgumentException
                format:@"Application tried to present modally an active controller %@.", controller];
  }
  UIWindow *window = [presenter->_viewControllerState->view.get() window];
  if (!window) {
    NSLog(@"Attempt to present %@ on %@ (from %@) whose view is not in the window hierarchy.", controller, presenter,
          self);
    return;
  }
  if ([presenter sim_isInModalTransition]) {
    NSLog(@"Attempt to present %@ on %@ (from %@) while a presentation is in progress!", controller, presenter, self);
    return;
  }
  [controller sim_requirePopoverAnchor];

  const auto presenterAlive = objcxx::share(presenter);
  const auto controllerAlive = objcxx::share(controller);
  auto &state = *controller->_viewControllerState;
  const bool covers = coversPresenter(state.presentationStyle);
  presenter->_viewControllerState->presented = controllerAlive;
  state.presenting = presenter;
  state.beingPresented = YES;

  [controller loadViewIfNeeded];
  if (covers) [presenter beginAppearanceTransition:NO animated:animated];
  [controller beginAppearanceTransition:YES animated:animated];
  if (state.presenting == presenter) {  // Not dismissed again meanwhile.
    UIView *view = [controller view];
    [view setFrame:[window bounds]];
    [view setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
    [window addSubview:view];
    [view layoutIfNeeded];
  }
  [controller endAppearanceTransition];
  if (covers) [presenter endAppearanceTransition];
  state.beingPresented = NO;
  sim::deliverCompletion(completion, animated);
}

/// Whether this controller itself is on its way in or out.
- (BOOL)sim_isInModalTransition {
  const auto &state = *_viewControllerState;
  return state.beingDismissed || (state.beingPresented && state.appearance != SIMAppearanceAppeared);
}

/// A popover without a place is refused where UIKit would show one.
- (void)sim_requirePopoverAnchor {
  const BOOL popover = [self sim_needsPopover] || _viewControllerState->presentationStyle == UIModalPresentationPopover;
  if (!popover || [[UIDevice currentDevice] userInterfaceIdiom] != UIUserInterfaceIdiomPad) return;

  UIPopoverPresentationController *place = [self popoverPresentationController];
  if ([[place delegate] respondsToSelector:@selector(prepareForPopoverPresentation:)]) {
    [[place delegate] prepareForPopoverPresentation:place];
  }
  if ([place sim_isAnchored]) return;
  [NSException raise:NSGenericException
              format:@"Your application has presented %@. On a large screen it shows as a popover, which has no place: "
                     @"set the sourceView and sourceRect, or the barButtonItem, of its popoverPresentationController.",
                     self];
}

#pragma mark - Dismissing

- (id<UIViewControllerTransitionCoordinator>)transitionCoordinator {
  for (UIViewController *at = self; at; at = at->_viewControllerState->parent) {
    if (at->_viewControllerState->transition) return at->_viewControllerState->transition.get();
  }
  return nil;
}

/// Who presents the controllers that a dismissal sent to this one takes away; nil when there are none.
- (UIViewController *)sim_presenterToDismissFrom {
  for (UIViewController *at = self; at; at = at->_viewControllerState->parent) {
    if (at->_viewControllerState->presented) return at;
  }
  return [self presentingViewController];
}

- (void)dismissViewControllerAnimated:(BOOL)animated completion:(void (^)(void))completion {
  UIViewController *presenter = [self sim_presenterToDismissFrom];
  if (!presenter || presenter->_viewControllerState->presented.get()->_viewControllerState->beingDismissed) {
    sim::deliverCompletion(completion, animated);
    return;
  }
  Chain leaving;
  [presenter sim_beginDismissal:leaving animated:animated];
  if (!animated) {
    [presenter sim_endDismissal:leaving];
    if (completion) completion();
    return;
  }
  const Chain gone = leaving;  // A block holds on to what a reference names only for as long as that lives.
  const auto handler = objcxx::copyOf(completion);
  dispatch_async(dispatch_get_main_queue(), ^{
    [presenter sim_endDismissal:gone];
    if (handler) handler();
  });
}

- (void)sim_dismissAtOnce {
  UIViewController *presenter = [self sim_presenterToDismissFrom];
  if (!presenter || presenter->_viewControllerState->presented.get()->_viewControllerState->beingDismissed) return;
  Chain leaving;
  [presenter sim_beginDismissal:leaving animated:YES];
  [presenter sim_endDismissal:leaving];
}

/// Begins the end of the chain of presentations that starts here. What lies below appears again where it has left the
/// screen.
- (void)sim_beginDismissal:(Chain &)leaving animated:(BOOL)animated {
  for (UIViewController *at = _viewControllerState->presented.get(); at;
       at = at->_viewControllerState->presented.get()) {
    leaving.push_back(objcxx::share(at));
  }
  const Chain chain = leaving;
  if (animated) {
    UIWindow *window = [_viewControllerState->view.get() window];
    _viewControllerState->transition = objcxx::adopt([[SIMTransitionCoordinator alloc] initWithContainerView:window]);
  }
  for (auto at = chain.rbegin(); at != chain.rend(); ++at) {
    at->get()->_viewControllerState->transition = _viewControllerState->transition;
    at->get()->_viewControllerState->beingDismissed = YES;
    [at->get() beginAppearanceTransition:NO animated:animated];
  }
  const bool uncovers = coversPresenter(chain.front().get()->_viewControllerState->presentationStyle);
  if (uncovers) [self beginAppearanceTransition:YES animated:animated];
}

- (void)sim_endDismissal:(const Chain &)leaving {
  const auto keepAlive = objcxx::share(self);
  const Chain chain = leaving;
  for (auto at = chain.rbegin(); at != chain.rend(); ++at) {
    auto &state = *at->get()->_viewControllerState;
    state.transition = nullptr;
    if (!state.presenting) continue;  // Gone with one that lay below it.
    [state.view.get() removeFromSuperview];
    state.presenting->_viewControllerState->presented = nullptr;
    state.presenting = nil;
  }
  if (_viewControllerState->appearance == SIMAppearanceAppearing) {
    [_viewControllerState->view.get() layoutIfNeeded];
    [self endAppearanceTransition];
  }
  for (auto at = chain.rbegin(); at != chain.rend(); ++at) {
    [at->get() endAppearanceTransition];
    at->get()->_viewControllerState->beingDismissed = NO;
  }
  const auto transition = std::exchange(_viewControllerState->transition, {});
  [transition.get() run];
}

#pragma mark - Sim

- (UIViewController *)sim_ownPresentedViewController {
  return _viewControllerState->presented.get();
}

- (UIViewController *)sim_frontmostViewController {
  UIViewController *front = self;
  while (UIViewController *next = front->_viewControllerState->presented.get()) front = next;
  return front;
}

- (BOOL)sim_needsPopover {
  return NO;
}

@end
