// Image contexts as UIKit opens and reads them.
#pragma once

#include <cairo.h>

#include <CoreGraphics/Bitmap.hpp>
#include <CoreGraphics/CGContext.h>
#include <CoreGraphics/RGBA.hpp>

namespace sim {

/// A context over a new bitmap of `size` points at `scale` pixels a point, the y axis pointing down: transparent, or
/// black when `opaque`. At +1. NULL when the bitmap would have no area or more than `maxPixels`.
CGContextRef createImageContext(CGSize size, CGFloat scale, bool opaque);
/// What has been drawn so far; null for NULL.
BitmapPtr snapshot(CGContextRef context);
/// The cairo context below; null for NULL.
cairo_t *cairoOf(CGContextRef context);

struct ImageDrawing {
  CGRect rect{};
  Orientation orientation = Orientation::up;
  bool bottomUp = false;            ///< The first row at the greatest y.
  const RGBA *template_ = nullptr;  ///< Where set: the image's alpha in that colour.
};
/// Draws the pixels with the context's alpha, blend mode and interpolation.
void drawPixels(CGContextRef context, const PixelSource &pixels, const ImageDrawing &drawing);

}  // namespace sim
