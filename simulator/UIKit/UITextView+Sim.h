// Text views as they are drawn, and what a person does to them.
#pragma once

#import <UIKit/AttributedText.h>
#import <UIKit/UITextView.h>

@interface UITextView (Sim)
/// Whether somebody but the system has set the colour of the text.
- (BOOL)sim_hasOwnColor;
/// Whether the text has attributes of its own.
- (BOOL)sim_isAttributed;
/// That text; empty for a view without one.
- (sim::AttributedText)sim_attributedText;
/// Points: how wide the view's lines may be.
- (CGFloat)sim_widthOfLines;
/// Taps the view, replaces its text by `text` and leaves it. NO when it is not editable, cannot be reached or its
/// delegate refuses to begin; a refused change leaves the text alone and still ends editing.
- (BOOL)sim_enterText:(NSString *)text;
/// Taps the view, chooses "Paste" and leaves it: the pasteboard's string is added at the end of the text. NO for an
/// empty pasteboard, and as above.
- (BOOL)sim_pasteByUser;
@end
