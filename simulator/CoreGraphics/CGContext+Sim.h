// Image contexts as UIKit opens and reads them.
#pragma once

#include <cairo.h>

#include <functional>

#include <CoreGraphics/Bitmap.hpp>
#include <CoreGraphics/CGContext.h>
#include <CoreGraphics/CairoSurface.hpp>
#include <CoreGraphics/RGBA.hpp>

namespace sim {

/// A context over a new bitmap of `size` points at `scale` pixels a point, the y axis pointing down: transparent, or
/// black when `opaque`. At +1. NULL when the bitmap would have no area or more than `maxPixels`.
CGContextRef createImageContext(CGSize size, CGFloat scale, bool opaque);
/// A context that draws on `surface`, whose first transform is `base`, at +1.
CGContextRef createContext(const SurfacePtr &surface, const CGAffineTransform &base, bool opaque);
/// What has been drawn so far; null for NULL.
BitmapPtr snapshot(CGContextRef context);
/// The cairo context below, for whoever groups what is drawn; null for NULL.
cairo_t *cairoOf(CGContextRef context);
/// Runs `draw`, which paints on that with the operator OVER, under the context's shadow and mask; not for NULL.
void paintOn(CGContextRef context, const std::function<void(cairo_t *)> &draw);

struct ImageDrawing {
  CGRect rect{};
  Orientation orientation = Orientation::up;
  bool bottomUp = false;            ///< The first row at the greatest y.
  const RGBA *template_ = nullptr;  ///< Where set: the image's alpha in that colour.
};
/// Draws the pixels with the context's alpha, blend mode and interpolation.
void drawPixels(CGContextRef context, const PixelSource &pixels, const ImageDrawing &drawing);

}  // namespace sim
