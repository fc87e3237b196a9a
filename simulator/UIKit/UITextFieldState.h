// What a text field remembers. Included by the sources of UITextField only.
#pragma once

#import <UIKit/UITextField.h>
#import <UIKit/UITextInputState.h>

#include <objcxx/Retained.h>

namespace sim {

struct UITextFieldState {
  objcxx::Retained<NSString> text;
  objcxx::Retained<UIColor> textColor;
  objcxx::Retained<UIFont> font;
  objcxx::Retained<NSString> placeholder;
  objcxx::Retained<NSAttributedString> attributedPlaceholder;
  objcxx::Retained<UIView> leftView;
  objcxx::Retained<UIView> rightView;
  id<UITextFieldDelegate> delegate = nil;  // Not owned.
  NSTextAlignment alignment = NSTextAlignmentNatural;
  UITextBorderStyle borderStyle = UITextBorderStyleNone;
  UITextFieldViewMode clearButtonMode = UITextFieldViewModeNever;
  UITextFieldViewMode leftViewMode = UITextFieldViewModeNever;
  UITextFieldViewMode rightViewMode = UITextFieldViewModeNever;
  CGFloat minimumFontSize = 0;
  bool clearsOnBeginEditing = false;
  bool adjustsFontSizeToFitWidth = false;
  bool editing = false;
  bool hasOwnColor = false;  // Set by somebody but the system.
  TextInputTraits traits;
};

}  // namespace sim

/// Between the sources of UITextField.
@interface UITextField (State)
/// Replaces the text and tells everybody who listens.
- (void)sim_changeTextTo:(NSString *)text;
/// NO when there is nothing to clear or the delegate refuses.
- (BOOL)sim_clear;
@end
