#import <Preferences/PSTableCell.h>
#import <UIKit/UIKit.h>

/// The row of a colour: its name, its value as text, and the colour itself in a circle. A row that has a value has a
/// button that removes it, which leaves the colour to the system.
///
/// The row's value is a text as zuno::parseColour takes it. What it does when it is tapped is the row's action. Main
/// thread only.
@interface ZunoColourCell : PSTableCell {
  UIView *_accessory;
  UIImageView *_swatch;
  UIButton *_removeButton;
}

/// What the remove button does: stores an empty text as the row's value.
- (void)removeColour;

@end
