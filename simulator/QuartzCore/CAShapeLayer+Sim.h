// Shapes as they are drawn.
#pragma once

#import <CoreGraphics/Path.hpp>
#import <QuartzCore/CAShapeLayer.h>

namespace sim {

/// What of the layer's path is stroked; empty for none.
Path strokedPath(CAShapeLayer* layer);

}  // namespace sim
