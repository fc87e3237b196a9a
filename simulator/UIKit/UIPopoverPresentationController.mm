#import <UIKit/UIPopoverPresentationController+Sim.h>

#import <Foundation/NotCarried.h>
#import <UIKit/UIBarButtonItem.h>
#import <UIKit/UIView.h>
#include <objcxx/Retained.h>

namespace sim {
struct PopoverState {
  objcxx::Retained<UIView> sourceView;
  objcxx::Retained<UIBarButtonItem> barButtonItem;
  CGRect sourceRect = CGRectNull;
  UIPopoverArrowDirection arrows = UIPopoverArrowDirectionAny;
  id<UIPopoverPresentationControllerDelegate> delegate = nil;  // not owned
};
}  // namespace sim

@implementation UIPopoverPresentationController

- (instancetype)sim_initWithPresentedViewController:(UIViewController *)controller {
  if (!(self = [super sim_initWithPresentedViewController:controller])) return nil;

  _popoverState = std::make_unique<sim::PopoverState>();
  return self;
}

- (instancetype)init {
  return [self sim_initWithPresentedViewController:nil];
}

- (UIView *)sourceView {
  return _popoverState->sourceView.get();
}

- (void)setSourceView:(UIView *)sourceView {
  _popoverState->sourceView = objcxx::share(sourceView);
}

- (CGRect)sourceRect {
  return _popoverState->sourceRect;
}

- (void)setSourceRect:(CGRect)sourceRect {
  _popoverState->sourceRect = sourceRect;
}

- (UIBarButtonItem *)barButtonItem {
  return _popoverState->barButtonItem.get();
}

- (void)setBarButtonItem:(UIBarButtonItem *)item {
  _popoverState->barButtonItem = objcxx::share(item);
}

- (UIPopoverArrowDirection)permittedArrowDirections {
  return _popoverState->arrows;
}

- (void)setPermittedArrowDirections:(UIPopoverArrowDirection)directions {
  sim::notCarried(@"UIPopoverPresentationController.permittedArrowDirections",
                  @"A popover is shown as a sheet, without an arrow.");
  _popoverState->arrows = directions;
}

- (id<UIPopoverPresentationControllerDelegate>)delegate {
  return _popoverState->delegate;
}

- (void)setDelegate:(id<UIPopoverPresentationControllerDelegate>)delegate {
  _popoverState->delegate = delegate;
}

- (BOOL)sim_isAnchored {
  return _popoverState->barButtonItem || _popoverState->sourceView;
}

@end
