// Images over the simulator's own pixels.
#pragma once

#include <CoreGraphics/Bitmap.hpp>
#include <CoreGraphics/CGImage.h>

namespace sim {

/// An image of the pixels that `source` gives, at +1; NULL for null.
CGImageRef createImage(PixelSourcePtr source);
/// Where the image's pixels come from; null for NULL.
PixelSourcePtr sourceOf(CGImageRef image);

}  // namespace sim
