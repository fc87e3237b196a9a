#pragma once

#import <Preferences/PSTableCell.h>

/// Text of several lines. The setter runs when editing ends.
@interface PSTextViewTableCell : PSTableCell <UITextViewDelegate> {
 @private
  UITextView *_textView;
}
- (UITextView *)textView;
@end
