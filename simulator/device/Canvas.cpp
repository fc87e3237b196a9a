#include "device/Canvas.hpp"

#include "base/Failure.hpp"

namespace sim {
namespace {

cairo_status_t append(void* text, const unsigned char* bytes, unsigned count) {
  static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(bytes), count);
  return CAIRO_STATUS_SUCCESS;
}

double part(Color color, int shift) { return (color >> shift & 255) / 255.0; }

}  // namespace

void setColor(cairo_t* context, Color color, double opacity) {
  cairo_set_source_rgba(context, part(color, 16), part(color, 8), part(color, 0), opacity);
}

void fillGradient(cairo_t* context, Color top, Color bottom, double height) {
  const Pattern pattern(cairo_pattern_create_linear(0, 0, 0, height));
  cairo_pattern_add_color_stop_rgb(pattern.get(), 0, part(top, 16), part(top, 8), part(top, 0));
  cairo_pattern_add_color_stop_rgb(pattern.get(), 1, part(bottom, 16), part(bottom, 8), part(bottom, 0));
  cairo_set_source(context, pattern.get());
  cairo_paint(context);
}

std::string drawnPng(int width, int height, const std::function<void(cairo_t*)>& draw) {
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
  const Context context(cairo_create(surface.get()));
  draw(context.get());
  cairo_surface_flush(surface.get());
  std::string png;
  if (cairo_surface_write_to_png_stream(surface.get(), &append, &png) != CAIRO_STATUS_SUCCESS)
    throw Failure("Cannot draw the sample pictures: the memory does not suffice.");
  return png;
}

}  // namespace sim
