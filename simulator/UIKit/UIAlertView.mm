#import <UIKit/UIAlertView.h>

#import <UIKit/OldAlert.h>
#import <UIKit/UITextField.h>

#include <cstdarg>

@implementation UIAlertView

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _alert = std::make_unique<sim::OldAlert>();
  return self;
}

- (instancetype)initWithTitle:(NSString *)title
                      message:(NSString *)message
                     delegate:(id)delegate
            cancelButtonTitle:(NSString *)cancelTitle
            otherButtonTitles:(NSString *)others, ... {
  if (!(self = [self initWithFrame:CGRectZero])) return nil;
  [self setTitle:title];
  [self setMessage:message];
  _alert->delegate = delegate;
  if (cancelTitle) _alert->cancel = _alert->add(cancelTitle);
  va_list more;
  va_start(more, others);
  for (NSString *each = others; each; each = va_arg(more, NSString *)) {
    const NSInteger index = _alert->add(each);
    if (_alert->firstOther < 0) _alert->firstOther = index;
  }
  va_end(more);
  return self;
}

- (id)delegate {
  return _alert->delegate;
}

- (void)setDelegate:(id)delegate {
  _alert->delegate = delegate;
}

- (NSString *)title {
  return _alert->title.get();
}

- (void)setTitle:(NSString *)title {
  _alert->title = objcxx::adopt((NSString *)[title copy]);
}

- (NSString *)message {
  return _alert->message.get();
}

- (void)setMessage:(NSString *)message {
  _alert->message = objcxx::adopt((NSString *)[message copy]);
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

- (NSInteger)firstOtherButtonIndex {
  return _alert->firstOther;
}

- (BOOL)isVisible {
  return _alert->shown ? YES : NO;
}

- (UIAlertViewStyle)alertViewStyle {
  return UIAlertViewStyle(_alert->style);
}

- (void)setAlertViewStyle:(UIAlertViewStyle)style {
  if (_alert->style == style) return;
  _alert->style = style;
  _alert->fields = nullptr;
}

/// The fields that the alert shows; until then stand-ins, whose content it takes over.
- (NSArray *)sim_fields {
  if (_alert->shown) return [_alert->shown.get() textFields];
  if (!_alert->fields) {
    NSMutableArray *fields = [NSMutableArray array];
    const NSInteger counts[] = {0, 1, 1, 2};
    for (NSInteger index = 0; index < counts[_alert->style]; ++index) {
      UITextField *field = [[[UITextField alloc] initWithFrame:CGRectZero] autorelease];
      const bool isSecret = _alert->style == UIAlertViewStyleSecureTextInput || index == 1;
      [field setSecureTextEntry:isSecret];
      if (_alert->style == UIAlertViewStyleLoginAndPasswordInput) {
        [field setPlaceholder:index == 0 ? @"Login" : @"Password"];
      }
      [fields addObject:field];
    }
    _alert->fields = objcxx::share((NSArray *)fields);
  }
  return _alert->fields.get();
}

- (UITextField *)textFieldAtIndex:(NSInteger)index {
  NSArray *fields = [self sim_fields];
  if (index < 0 || index >= NSInteger([fields count])) {
    [NSException raise:NSRangeException format:@"The alert has %lu fields.", (unsigned long)[fields count]];
  }
  return [fields objectAtIndex:NSUInteger(index)];
}

- (void)show {
  if (_alert->shown) return;
  UIAlertController *controller = _alert->makeController(UIAlertControllerStyleAlert, ^(NSInteger index) {
    [self sim_clicked:index];
  });
  for (UITextField *given in [self sim_fields]) {
    [controller addTextFieldWithConfigurationHandler:^(UITextField *field) {
      [field setText:[given text]];
      [field setPlaceholder:[given placeholder]];
      [field setSecureTextEntry:[given isSecureTextEntry]];
      [field setKeyboardType:[given keyboardType]];
      [field setAutocapitalizationType:[given autocapitalizationType]];
      [field setAutocorrectionType:[given autocorrectionType]];
      [field setDelegate:[given delegate]];
    }];
  }
  sim::tellDelegate(_alert->delegate, @selector(willPresentAlertView:), self);
  if (!sim::presentInFront(controller)) return;
  _alert->shown = objcxx::share(controller);
  sim::tellDelegate(_alert->delegate, @selector(didPresentAlertView:), self);
}

/// What was entered stays to be asked for.
- (void)sim_forgetShown {
  _alert->fields = objcxx::share([_alert->shown.get() textFields] ?: [NSArray array]);
  _alert->shown = nullptr;
}

- (void)sim_clicked:(NSInteger)index {
  const auto kept = objcxx::share(self);
  [self sim_forgetShown];
  sim::tellDelegate(_alert->delegate, @selector(alertView:clickedButtonAtIndex:), self, index);
  sim::tellDelegate(_alert->delegate, @selector(alertView:willDismissWithButtonIndex:), self, index);
  sim::tellDelegate(_alert->delegate, @selector(alertView:didDismissWithButtonIndex:), self, index);
}

- (void)dismissWithClickedButtonIndex:(NSInteger)index animated:(BOOL)animated {
  if (!_alert->shown) return;
  const auto kept = objcxx::share(self);
  sim::tellDelegate(_alert->delegate, @selector(alertView:willDismissWithButtonIndex:), self, index);
  const auto controller = _alert->shown;
  [self sim_forgetShown];
  [controller.get() dismissViewControllerAnimated:animated completion:nil];
  sim::tellDelegate(_alert->delegate, @selector(alertView:didDismissWithButtonIndex:), self, index);
}

@end
