#import <UIKit/UIActionSheet.h>

#import <UIKit/OldAlert.h>
#import <UIKit/UIPopoverPresentationController.h>

#include <cstdarg>

@implementation UIActionSheet

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _alert = std::make_unique<sim::OldAlert>();
  return self;
}

- (instancetype)initWithTitle:(NSString *)title
                     delegate:(id<UIActionSheetDelegate>)delegate
            cancelButtonTitle:(NSString *)cancelTitle
       destructiveButtonTitle:(NSString *)destructiveTitle
            otherButtonTitles:(NSString *)others, ... {
  if (!(self = [self initWithFrame:CGRectZero])) return nil;
  [self setTitle:title];
  _alert->delegate = delegate;
  if (destructiveTitle) _alert->destructive = _alert->add(destructiveTitle);
  va_list more;
  va_start(more, others);
  for (NSString *each = others; each; each = va_arg(more, NSString *)) {
    const NSInteger index = _alert->add(each);
    if (_alert->firstOther < 0) _alert->firstOther = index;
  }
  va_end(more);
  if (cancelTitle) _alert->cancel = _alert->add(cancelTitle);
  return self;
}

- (id<UIActionSheetDelegate>)delegate {
  return _alert->delegate;
}

- (void)setDelegate:(id<UIActionSheetDelegate>)delegate {
  _alert->delegate = delegate;
}

- (NSString *)title {
  return _alert->title.get();
}

- (void)setTitle:(NSString *)title {
  _alert->title = objcxx::adopt((NSString *)[title copy]);
}

- (NSInteger)addButtonWithTitle:(NSString *)title {
  return _alert->add(title);
}

- (NSString *)buttonTitleAtIndex:(NSInteger)index {
  return _alert->titleAt(index);
}

- (NSInteger)numberOfButtons {
  return _alert->count();
}

- (NSInteger)cancelButtonIndex {
  return _alert->cancel;
}

- (void)setCancelButtonIndex:(NSInteger)index {
  _alert->cancel = index;
}

- (NSInteger)destructiveButtonIndex {
  return _alert->destructive;
}

- (void)setDestructiveButtonIndex:(NSInteger)index {
  _alert->destructive = index;
}

- (NSInteger)firstOtherButtonIndex {
  return _alert->firstOther;
}

- (BOOL)isVisible {
  return _alert->shown ? YES : NO;
}

/// On a large screen it is shown from the item, or else from the rectangle in the view.
- (void)sim_showFromItem:(UIBarButtonItem *)item rect:(CGRect)rect inView:(UIView *)view {
  if (_alert->shown) return;
  UIAlertController *controller = _alert->makeController(UIAlertControllerStyleActionSheet, ^(NSInteger index) {
    [self sim_clicked:index];
  });
  UIPopoverPresentationController *popover = [controller popoverPresentationController];
  [popover setBarButtonItem:item];
  [popover setSourceView:view];
  [popover setSourceRect:rect];
  sim::tellDelegate(_alert->delegate, @selector(willPresentActionSheet:), self);
  if (!sim::presentInFront(controller)) return;
  _alert->shown = objcxx::share(controller);
  sim::tellDelegate(_alert->delegate, @selector(didPresentActionSheet:), self);
}

/// In the middle of the view.
- (void)showInView:(UIView *)view {
  const CGRect bounds = [view bounds];
  [self sim_showFromItem:nil rect:CGRectMake(CGRectGetMidX(bounds), CGRectGetMidY(bounds), 0, 0) inView:view];
}

- (void)showFromRect:(CGRect)rect inView:(UIView *)view animated:(BOOL)animated {
  (void)animated;
  [self sim_showFromItem:nil rect:rect inView:view];
}

- (void)showFromBarButtonItem:(UIBarButtonItem *)item animated:(BOOL)animated {
  (void)animated;
  [self sim_showFromItem:item rect:CGRectNull inView:nil];
}

- (void)sim_clicked:(NSInteger)index {
  const auto kept = objcxx::share(self);
  _alert->shown = nullptr;
  sim::tellDelegate(_alert->delegate, @selector(actionSheet:clickedButtonAtIndex:), self, index);
  sim::tellDelegate(_alert->delegate, @selector(actionSheet:willDismissWithButtonIndex:), self, index);
  sim::tellDelegate(_alert->delegate, @selector(actionSheet:didDismissWithButtonIndex:), self, index);
}

- (void)dismissWithClickedButtonIndex:(NSInteger)index animated:(BOOL)animated {
  if (!_alert->shown) return;
  const auto kept = objcxx::share(self);
  sim::tellDelegate(_alert->delegate, @selector(actionSheet:willDismissWithButtonIndex:), self, index);
  const auto controller = _alert->shown;
  _alert->shown = nullptr;
  [controller.get() dismissViewControllerAnimated:animated completion:nil];
  sim::tellDelegate(_alert->delegate, @selector(actionSheet:didDismissWithButtonIndex:), self, index);
}

@end
