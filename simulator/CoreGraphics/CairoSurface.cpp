#include "CoreGraphics/CairoSurface.hpp"

namespace sim {
namespace {

// One of cairo's pixels, whose bytes are in the machine's order.
constexpr std::uint32_t argb(unsigned red, unsigned green, unsigned blue, unsigned alpha) noexcept {
  return alpha << 24 | red << 16 | green << 8 | blue;
}

constexpr unsigned times(unsigned component, unsigned alpha) noexcept { return (component * alpha + 127) / 255; }

}  // namespace

SurfacePtr makeSurface(std::int64_t width, std::int64_t height) {
  if (!isDrawableSize(width, height)) return nullptr;
  SurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, int(width), int(height)));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  return surface;
}

SurfacePtr surfaceOf(const Bitmap& bitmap) {
  SurfacePtr surface = makeSurface(bitmap.width(), bitmap.height());
  if (!surface) return nullptr;
  unsigned char* data = cairo_image_surface_get_data(surface.get());
  const int stride = cairo_image_surface_get_stride(surface.get());
  for (int y = 0; y < bitmap.height(); ++y) {
    const std::uint8_t* from = bitmap.row(y);
    auto* to = reinterpret_cast<std::uint32_t*>(data + std::ptrdiff_t(stride) * y);
    switch (bitmap.alpha()) {
      case Alpha::ignored:
        for (int x = 0; x < bitmap.width(); ++x, from += 4) to[x] = argb(from[0], from[1], from[2], 255);
        break;
      case Alpha::premultiplied:
        for (int x = 0; x < bitmap.width(); ++x, from += 4) to[x] = argb(from[0], from[1], from[2], from[3]);
        break;
      case Alpha::straight:
        for (int x = 0; x < bitmap.width(); ++x, from += 4) {
          to[x] = argb(times(from[0], from[3]), times(from[1], from[3]), times(from[2], from[3]), from[3]);
        }
        break;
    }
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

BitmapPtr bitmapOf(cairo_surface_t* surface, Alpha alpha) {
  const auto result =
      Bitmap::make(cairo_image_surface_get_width(surface), cairo_image_surface_get_height(surface), alpha);
  if (!result) return nullptr;
  cairo_surface_flush(surface);
  const unsigned char* data = cairo_image_surface_get_data(surface);
  const int stride = cairo_image_surface_get_stride(surface);
  for (int y = 0; y < result->height(); ++y) {
    const auto* from = reinterpret_cast<const std::uint32_t*>(data + std::ptrdiff_t(stride) * y);
    std::uint8_t* to = result->row(y);
    for (int x = 0; x < result->width(); ++x, to += 4) {
      const std::uint32_t pixel = from[x];
      to[0] = std::uint8_t(pixel >> 16);
      to[1] = std::uint8_t(pixel >> 8);
      to[2] = std::uint8_t(pixel);
      to[3] = std::uint8_t(pixel >> 24);
    }
  }
  return result;
}

namespace {

/// Calls `use` with each pixel in memory and the one of the surface.
template <typename Byte, typename Use>
void forEachPixel(cairo_surface_t* surface, const PixelLayout& layout, Byte* memory, std::size_t bytesPerRow, Use use) {
  unsigned char* data = cairo_image_surface_get_data(surface);
  const int stride = cairo_image_surface_get_stride(surface);
  for (int y = 0; y < cairo_image_surface_get_height(surface); ++y) {
    auto* pixels = reinterpret_cast<std::uint32_t*>(data + std::ptrdiff_t(stride) * y);
    Byte* at = memory + bytesPerRow * std::size_t(y);
    for (int x = 0; x < cairo_image_surface_get_width(surface); ++x, at += layout.bytesPerPixel()) use(at, pixels[x]);
  }
}

}  // namespace

void readPixels(const PixelLayout& layout, const std::uint8_t* from, std::size_t bytesPerRow,
                cairo_surface_t* surface) {
  forEachPixel(surface, layout, from, bytesPerRow, [&](const std::uint8_t* at, std::uint32_t& pixel) {
    std::uint8_t rgba[4];
    layout.read(at, rgba);
    pixel = argb(rgba[0], rgba[1], rgba[2], rgba[3]);
  });
}

void writePixels(cairo_surface_t* surface, const PixelLayout& layout, std::uint8_t* to, std::size_t bytesPerRow) {
  forEachPixel(surface, layout, to, bytesPerRow, [&](std::uint8_t* at, std::uint32_t pixel) {
    const std::uint8_t rgba[4] = {std::uint8_t(pixel >> 16), std::uint8_t(pixel >> 8), std::uint8_t(pixel),
                                  std::uint8_t(pixel >> 24)};
    layout.write(rgba, at);
  });
}

}  // namespace sim
