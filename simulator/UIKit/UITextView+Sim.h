// What a person does to a text view.
#pragma once

#import <UIKit/UITextView.h>

@interface UITextView (Sim)
/// Taps the view, replaces its text by `text` and leaves it. NO when it is not editable, cannot be reached or its
/// delegate refuses to begin; a refused change leaves the text alone and still ends editing.
- (BOOL)sim_enterText:(NSString *)text;
/// Taps the view, chooses "Paste" and leaves it: the pasteboard's string is added at the end of the text. NO for an
/// empty pasteboard, and as above.
- (BOOL)sim_pasteByUser;
@end
