#import <UIKit/NSText+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIPasteboard.h>
#import <UIKit/UITextField+Sim.h>
#import <UIKit/UITextFieldState.h>

#include <algorithm>

@implementation UITextField (Sim)

- (BOOL)sim_hasOwnColor {
  return _fieldState->hasOwnColor;
}

- (BOOL)sim_enterText:(NSString *)text {
  return [self sim_replaceTextFrom:0 with:text andReturn:NO];
}

- (BOOL)sim_enterTextAndReturn:(NSString *)text {
  return [self sim_replaceTextFrom:0 with:text andReturn:YES];
}

- (BOOL)sim_pasteByUser {
  NSString *string = [[UIPasteboard generalPasteboard] string];
  return string && [self sim_replaceTextFrom:[[self text] length] with:string andReturn:NO];
}

- (BOOL)sim_replaceTextFrom:(NSUInteger)start with:(NSString *)text andReturn:(BOOL)withReturn {
  if (![self sim_acceptsUser]) return NO;
  const auto keepAlive = objcxx::share(self);
  if (![self becomeFirstResponder]) return NO;
  const auto before = objcxx::share([self text]);
  const NSUInteger kept = std::min(start, [before.get() length]);
  const NSRange range = NSMakeRange(kept, [before.get() length] - kept);
  NSString *line = sim::oneLine(text);
  id<UITextFieldDelegate> delegate = [self delegate];
  const BOOL asks = [delegate respondsToSelector:@selector(textField:shouldChangeCharactersInRange:replacementString:)];
  const BOOL types = !withReturn || ![line isEqualToString:[before.get() substringWithRange:range]];
  if (types && (!asks || [delegate textField:self shouldChangeCharactersInRange:range replacementString:line])) {
    [self sim_changeTextTo:[before.get() stringByReplacingCharactersInRange:range withString:line]];
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
