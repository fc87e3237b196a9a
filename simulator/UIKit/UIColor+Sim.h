// Colours as the browser needs them.
#pragma once

#import <CoreGraphics/RGBA.hpp>
#import <UIKit/UIColor.h>

namespace sim {

/// A colour under both appearances; equal for a fixed colour.
struct ColorPair {
  RGBA light;
  RGBA dark;
};

/// Transparent black for nil.
ColorPair resolved(UIColor* color);

}  // namespace sim
