// Fonts as the browser and the text measurer need them.
#pragma once

#import <UIKit/TextLayout.hpp>
#import <UIKit/UIFont.h>
#import <UIKit/UIFontDescriptor.h>

@interface UIFont (Sim)
- (UIFont *)sim_fontWithSize:(CGFloat)size weight:(UIFontWeight)weight italic:(BOOL)italic;
/// The system's font in another kind of letters.
- (UIFont *)sim_fontOfTypeface:(sim::Typeface)typeface;
- (UIFontWeight)sim_weight;
@end

namespace sim {

/// Size, weight (100 to 900) and slant of `font`; the body font for nil.
TextStyle textStyle(UIFont *font);

}  // namespace sim

@interface UIFontDescriptor (Sim)
+ (UIFontDescriptor *)sim_descriptorOfFont:(UIFont *)font;
- (UIFont *)sim_font;
@end
