#pragma once

#import <Preferences/PSTableCell.h>

/// A row with an activity indicator at the right.
@interface PSSpinnerTableCell : PSTableCell {
 @private
  UIActivityIndicatorView *_spinner;
}
- (UIActivityIndicatorView *)spinner;
@end
