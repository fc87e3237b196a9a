// Gradients as they are drawn.
#pragma once

#include <CoreGraphics/CGGradient.h>
#include <CoreGraphics/RGBA.hpp>

#include <vector>

namespace sim {

struct GradientStop {
  double place = 0;  ///< From 0 to 1.
  RGBA color;
};

/// In the order of their places; none for NULL.
std::vector<GradientStop> stopsOf(CGGradientRef gradient);

}  // namespace sim
