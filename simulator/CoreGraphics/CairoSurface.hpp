// Bitmaps as cairo surfaces and back. Plain C++.
#pragma once

#include <cairo.h>

#include <memory>

#include "CoreGraphics/Bitmap.hpp"
#include "CoreGraphics/PixelLayout.hpp"

namespace sim {

struct SurfaceEnd {
  void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
};
using SurfacePtr = std::unique_ptr<cairo_surface_t, SurfaceEnd>;

/// A transparent surface; null when the size is not drawable or beyond what cairo holds (32767 pixels a side).
SurfacePtr makeSurface(std::int64_t width, std::int64_t height);
/// A surface with a copy of the pixels; null when cairo cannot hold it.
SurfacePtr surfaceOf(const Bitmap& bitmap);
/// A copy of the surface's pixels, `alpha` being premultiplied or, for a surface without transparent pixels, ignored.
BitmapPtr bitmapOf(cairo_surface_t* surface, Alpha alpha);
/// Gives the surface the pixels that lie in memory, which are premultiplied or without alpha.
void readPixels(const PixelLayout& layout, const std::uint8_t* from, std::size_t bytesPerRow, cairo_surface_t* surface);
/// The other way.
void writePixels(cairo_surface_t* surface, const PixelLayout& layout, std::uint8_t* to, std::size_t bytesPerRow);

}  // namespace sim
