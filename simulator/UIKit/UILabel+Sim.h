// Labels as they are drawn.
#pragma once

#import <UIKit/AttributedText.h>
#import <UIKit/UILabel.h>

@interface UILabel (Sim)
/// The text's colour: highlighted, disabled or plain.
- (UIColor *)sim_shownColor;
/// Whether the text has attributes of its own.
- (BOOL)sim_isAttributed;
/// That text, in fonts of `scale` times their size; empty for a label without one.
- (sim::AttributedText)sim_attributedTextScaledBy:(CGFloat)scale;
@end
