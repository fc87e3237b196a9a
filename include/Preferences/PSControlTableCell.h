#pragma once

#import <Preferences/PSTableCell.h>

/// A row with a control whose new value goes to `cellTarget`. Subclasses make the control and translate its value.
@interface PSControlTableCell : PSTableCell {
 @private
  UIControl *_control;
}
/// Also the specifier's property "control".
@property(nonatomic, retain) UIControl *control;
/// A new control, owned by the caller.
- (UIControl *)newControl;
/// The control's value as it is stored.
- (id)controlValue;
/// Sends `controlValue` to the target.
- (void)controlChanged:(UIControl *)control;
@end
