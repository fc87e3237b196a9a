// The Gaussian blur of a bitmap. Plain C++.
#pragma once

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// How many pixels around a pixel have a part in it under a Gaussian of `sigma` pixels (standard deviation): four times
/// as many; what lies further out weighs less than a ten-thousandth in all.
int blurReach(double sigma) noexcept;

/// `bitmap` (premultiplied or without alpha) under a Gaussian of `sigma` pixels, above 0, without the outermost
/// `margin` pixels of every side, which must be `blurReach(sigma)` at least. Every component is within 1.25 of the
/// exact value.
///
/// From a sigma of ten on it is computed from averages of blocks, a fifth of sigma wide at most, so that the time
/// hardly grows with it. Null when nothing is left.
BitmapPtr blurred(const Bitmap& bitmap, double sigma, int margin);

}  // namespace sim
