// Fonts as the browser and the text measurer need them.
#pragma once

#import <UIKit/TextLayout.hpp>
#import <UIKit/UIFont.h>

namespace sim {

/// Size, weight (100 to 900) and slant of `font`; the body font for nil.
TextStyle textStyle(UIFont* font);

}  // namespace sim
