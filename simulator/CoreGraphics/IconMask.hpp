// The shape that the system gives to the icons of applications. Plain C++.
#pragma once

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// The pixels of `source` within the outline of an icon, transparent beyond it. Masked when they are first asked for;
/// null for null.
PixelSourcePtr maskedAsIcon(PixelSourcePtr source);

}  // namespace sim
