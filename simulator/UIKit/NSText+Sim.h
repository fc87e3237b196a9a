// Text as the measurer takes it.
#pragma once

#import <UIKit/NSText.h>
#import <UIKit/TextLayout.hpp>

#include <string>

namespace sim {

/// UTF-8 of `string`, characters of code 0 included; half a surrogate pair becomes a replacement character. Empty for
/// nil.
std::string utf8(NSString *string);

/// The same as a TextRun takes it: a replacement character for each of code 0.
std::string runText(NSString *string);

/// `string` as a single-line field takes it: a space for every line end. Empty for nil.
NSString *oneLine(NSString *string);

/// Rounded up to whole pixels of the main screen.
double ceiledToPixel(double points);

TextEllipsis ellipsisOf(NSLineBreakMode mode);
TextWrap wrapOf(NSLineBreakMode mode);
/// Natural is left: every text that is shown runs from left to right.
TextAlign alignOf(NSTextAlignment alignment);

}  // namespace sim
