// Gradients as they are drawn.
#pragma once

#import <CoreGraphics/RGBA.hpp>
#import <QuartzCore/CAGradientLayer.h>

#include <vector>

namespace sim {

struct GradientStop {
  double place = 0;  ///< 0 to 1, growing.
  RGBA color;
};

/// None where there are fewer than two colours.
std::vector<GradientStop> stopsOf(CAGradientLayer* layer);

}  // namespace sim
