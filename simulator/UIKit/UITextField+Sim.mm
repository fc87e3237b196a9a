#import <UIKit/NSText+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UITextField+Sim.h>
#import <UIKit/UITextFieldState.hpp>

@implementation UITextField (Sim)

- (BOOL)sim_enterText:(NSString *)text {
  return [self sim_enterText:text withReturn:NO];
}

- (BOOL)sim_enterTextAndReturn:(NSString *)text {
  return [self sim_enterText:text withReturn:YES];
}

- (BOOL)sim_enterText:(NSString *)text withReturn:(BOOL)withReturn {
  if (![self sim_acceptsUser]) return NO;
  const auto kept = objcxx::share(self);
  if (![self becomeFirstResponder]) return NO;
  NSString *line = sim::oneLine(text);
  id<UITextFieldDelegate> delegate = [self delegate];
  const NSRange all = NSMakeRange(0, [[self text] length]);
  const BOOL asks = [delegate respondsToSelector:@selector(textField:shouldChangeCharactersInRange:replacementString:)];
  if (!asks || [delegate textField:self shouldChangeCharactersInRange:all replacementString:line]) {
    [self sim_changeTextTo:line];
  }
  if (withReturn) {
    delegate = [self delegate];
    const BOOL asksReturn = [delegate respondsToSelector:@selector(textFieldShouldReturn:)];
    if (!asksReturn || [delegate textFieldShouldReturn:self]) {
      [self sendActionsForControlEvents:UIControlEventEditingDidEndOnExit];
    }
  }
  [self resignFirstResponder];
  return YES;
}

- (BOOL)sim_clearByUser {
  if (![self sim_acceptsUser]) return NO;
  const auto kept = objcxx::share(self);
  switch ([self clearButtonMode]) {
    case UITextFieldViewModeNever: return NO;
    case UITextFieldViewModeWhileEditing:
      if (![self becomeFirstResponder]) return NO;
      break;
    case UITextFieldViewModeUnlessEditing:
      if ([self isEditing]) return NO;
      break;
    case UITextFieldViewModeAlways: break;
  }
  const BOOL cleared = [self sim_clear];
  [self resignFirstResponder];
  return cleared;
}

@end
