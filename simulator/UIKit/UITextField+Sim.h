// What a person does to a text field.
#pragma once

#import <UIKit/UITextField.h>

@interface UITextField (Sim)
/// Whether somebody but the system has set the colour of the text.
- (BOOL)sim_hasOwnColor;
/// Taps the field, replaces its text by `text` and leaves the field, as a person does who types and then touches
/// elsewhere: begin editing, should-change with the whole range, editing-changed, end editing. NO when the field is
/// disabled, cannot be reached or its delegate refuses to begin; a refused change leaves the text alone and still ends
/// editing.
- (BOOL)sim_enterText:(NSString *)text;
/// The same, ending with the return key: should-return and did-end-on-exit come before the end of editing. The text
/// that is there already is not typed again, so that only the return key is pressed.
- (BOOL)sim_enterTextAndReturn:(NSString *)text;
/// Taps the field, chooses "Paste" and leaves the field: the pasteboard's string is added at the end of the text. NO
/// for an empty pasteboard, and as above.
- (BOOL)sim_pasteByUser;
/// Taps the clear button. NO when it is not shown or the delegate refuses.
- (BOOL)sim_clearByUser;
@end
