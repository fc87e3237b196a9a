#pragma once

#import <Preferences/PSTableCell.h>

/// A text field. The setter runs when editing ends.
@interface PSEditableTableCell : PSTableCell <UITextFieldDelegate> {
 @private
  UITextField *_textField;
}
- (UITextField *)textField;
@end
