// The theme's colours between the theme file and the screen.
#pragma once

#import <UIKit/UIKit.h>

#include <optional>

#include "theme/ColourText.hpp"

namespace zuno {

/// The colour that a value of the theme file names; nullopt for a value that names none, of whatever type it is.
std::optional<Colour> storedColour(id value);

/// Whether a value of the theme file leaves the colour to the system: nil, or an empty text.
bool isSystemColour(id value);

/// In the sRGB space, autoreleased.
UIColor *screenColour(const Colour &colour);

/// `colour` in the sRGB space, beyond whose ends a picked colour may lie; nullopt for nil, and for a colour that cannot
/// be had by its parts, such as a pattern.
std::optional<Colour> pickedColour(UIColor *colour);

/// The text by which the theme file names `colour`, autoreleased.
NSString *storedText(const Colour &colour);

}  // namespace zuno
