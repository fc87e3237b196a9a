// Gradients as they are drawn.
#pragma once

#import <CoreGraphics/CGGradient+Sim.h>
#import <QuartzCore/CAGradientLayer.h>

#include <vector>

namespace sim {

/// None where there are fewer than two colours.
std::vector<GradientStop> stopsOf(CAGradientLayer* layer);

}  // namespace sim
