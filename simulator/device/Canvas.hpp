// Drawing pictures in memory.
#pragma once

#include <cairo.h>

#include <functional>
#include <memory>
#include <string>

namespace sim {

struct FreeCairo {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
  void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};
using Surface = std::unique_ptr<cairo_surface_t, FreeCairo>;
using Context = std::unique_ptr<cairo_t, FreeCairo>;
using Pattern = std::unique_ptr<cairo_pattern_t, FreeCairo>;

/// A colour without transparency, as in 0xRRGGBB.
using Color = unsigned;

void setColor(cairo_t* context, Color color, double opacity = 1);

/// Fills everything with a gradient from the top to the bottom; `height` in the context's units.
void fillGradient(cairo_t* context, Color top, Color bottom, double height);

/// The opaque picture that `draw` makes on `width` times `height` pixels, as a PNG. Throws Failure when there is no
/// memory for it.
std::string drawnPng(int width, int height, const std::function<void(cairo_t*)>& draw);

}  // namespace sim
