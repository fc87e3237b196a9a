// Labels as they are drawn.
#pragma once

#import <UIKit/AttributedText.h>
#import <UIKit/UILabel.h>

@interface UILabel (Sim)
/// The text's colour: highlighted, disabled or plain.
- (UIColor *)sim_shownColor;
/// Whether somebody but the system has set that colour.
- (BOOL)sim_hasOwnColor;
/// What a button says of the title that it shows: whether its colour, and those among its attributes, are not the
/// system's.
- (void)sim_setHasOwnColor:(BOOL)color inAttributes:(BOOL)attributes;
/// Whether the text has attributes of its own.
- (BOOL)sim_isAttributed;
/// That text, in fonts of `scale` times their size; empty for a label without one.
- (sim::AttributedText)sim_attributedTextScaledBy:(CGFloat)scale;
@end
