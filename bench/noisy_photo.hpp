// A picture that compresses like a photograph, for benchmarks. Plain C++.
#pragma once

#include "CoreGraphics/Bitmap.hpp"

namespace bench {

/// Soft shapes of many sizes, and on them the noise of a sensor: the same pixels in every run.
sim::BitmapPtr noisyPhoto(int width, int height);

}  // namespace bench
