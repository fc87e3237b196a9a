// The simulator's own view of a colour.
#pragma once

#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/RGBA.hpp>

namespace sim {

/// sRGB components of `color`; transparent black for NULL.
RGBA components(CGColorRef color) noexcept;
/// Whether `object` is a CGColorRef; false for nil.
bool isColor(id object);

}  // namespace sim
