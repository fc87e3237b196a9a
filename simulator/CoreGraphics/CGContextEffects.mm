// Shadows, masks, transparency layers and gradients.
#import <CoreGraphics/CGColor+Sim.h>
#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGContextState.h>
#import <CoreGraphics/CGGradient+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/CairoSurface.hpp>
#import <CoreImage/GaussianBlur.hpp>

namespace {

SIMContext *object(CGContextRef context) { return sim::contextObject(context); }

/// Pixels that a shadow may reach beyond what casts it: those of a larger blur would be spread too thin to be seen.
constexpr double kMostSigma = 250;

/// What casts `shadow`: the alpha of a group, in the shadow's colour, with `margin` free pixels around it.
sim::BitmapPtr silhouette(cairo_surface_t *group, const sim::RGBA &color, int margin) {
  const int width = cairo_image_surface_get_width(group);
  const int height = cairo_image_surface_get_height(group);
  const auto made = sim::Bitmap::make(width + 2 * margin, height + 2 * margin, sim::Alpha::premultiplied);
  if (!made) return nullptr;
  std::ranges::fill(made->bytes(), std::uint8_t(0));
  cairo_surface_flush(group);
  for (int y = 0; y < height; ++y) {
    const auto *from = reinterpret_cast<const std::uint32_t *>(
        cairo_image_surface_get_data(group) + std::ptrdiff_t(cairo_image_surface_get_stride(group)) * y);
    std::uint8_t *to = made->row(y + margin) + std::ptrdiff_t(margin) * 4;
    for (int x = 0; x < width; ++x, to += 4) {
      const double alpha = double(from[x] >> 24) * color.alpha;
      to[0] = std::uint8_t(color.red * alpha + 0.5);
      to[1] = std::uint8_t(color.green * alpha + 0.5);
      to[2] = std::uint8_t(color.blue * alpha + 0.5);
      to[3] = std::uint8_t(alpha + 0.5);
    }
  }
  return made;
}

/// Paints the source, which was set, through the state's mask.
void paintMasked(SIMContext *context) {
  cairo_t *cairo = context->_cairo;
  if (!context->_state.mask) return cairo_paint(cairo);
  cairo_save(cairo);
  cairo_identity_matrix(cairo);
  cairo_mask_surface(cairo, context->_state.mask.get(), 0, 0);
  cairo_restore(cairo);
}

void paintShadow(SIMContext *context, cairo_pattern_t *drawn) {
  const sim::ContextShadow &shadow = *context->_state.shadow;
  cairo_surface_t *group = nullptr;
  cairo_pattern_get_surface(drawn, &group);
  if (cairo_surface_get_type(group) != CAIRO_SURFACE_TYPE_IMAGE) return;
  const int reach = shadow.sigma > 0 ? sim::blurReach(shadow.sigma) : 0;
  sim::BitmapPtr picture = silhouette(group, shadow.color, 2 * reach);
  if (picture && reach > 0) picture = sim::blurred(*picture, shadow.sigma, reach);
  const sim::SurfacePtr surface = picture ? sim::surfaceOf(*picture) : nullptr;
  if (!surface) return;
  double x = 0, y = 0;
  cairo_surface_get_device_offset(group, &x, &y);
  cairo_t *cairo = context->_cairo;
  cairo_save(cairo);
  cairo_identity_matrix(cairo);
  cairo_set_source_surface(cairo, surface.get(), shadow.x - x - reach, shadow.y - y - reach);
  paintMasked(context);
  cairo_restore(cairo);
}

/// Stops of a pattern, with what lies before and after them as the options say.
void addStops(cairo_pattern_t *pattern, const std::vector<sim::GradientStop> &stops, CGGradientDrawingOptions options) {
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
  const auto add = [&](double place, const sim::RGBA &color, double alpha) {
    cairo_pattern_add_color_stop_rgba(pattern, place, color.red, color.green, color.blue, alpha);
  };
  if (!(options & kCGGradientDrawsBeforeStartLocation)) add(0, stops.front().color, 0);
  for (const auto &[place, color] : stops) {
    if (place > 0 && &place == &stops.front().place) add(0, color, color.alpha);
    add(place, color, color.alpha);
  }
  if (stops.back().place < 1) add(1, stops.back().color, stops.back().color.alpha);
  if (!(options & kCGGradientDrawsAfterEndLocation)) add(1, stops.back().color, 0);
}

/// Takes over `pattern`.
void paintGradient(CGContextRef context, CGGradientRef gradient, cairo_pattern_t *pattern,
                   CGGradientDrawingOptions options) {
  addStops(pattern, sim::stopsOf(gradient), options);
  SIMContext *self = object(context);
  sim::paint(self, [&] {
    cairo_set_operator(self->_cairo, self->_state.blend);
    cairo_set_source(self->_cairo, pattern);
    cairo_paint_with_alpha(self->_cairo, self->_state.alpha);
  });
  cairo_pattern_destroy(pattern);
}

}  // namespace

namespace sim {

void compose(SIMContext *context, cairo_pattern_t *drawn) {
  cairo_t *cairo = context->_cairo;
  cairo_save(cairo);
  cairo_set_operator(cairo, context->_state.blend);
  if (context->_state.shadow) paintShadow(context, drawn);
  cairo_set_source(cairo, drawn);
  paintMasked(context);
  cairo_restore(cairo);
  cairo_pattern_destroy(drawn);
}

}  // namespace sim

void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur, CGColorRef color) {
  if (!context) return;
  if (!color || !std::isfinite(offset.width + offset.height + blur)) {
    object(context)->_state.shadow.reset();
    return;
  }
  const cairo_matrix_t &base = object(context)->_base;
  // A blur of 2 is a Gaussian of a standard deviation of 1.
  const double sigma = std::min(std::max<double>(blur, 0) * std::abs(base.xx) / 2, kMostSigma);
  object(context)->_state.shadow =
      sim::ContextShadow{offset.width * base.xx, offset.height * base.yy, sigma, sim::components(color)};
}

void CGContextSetShadow(CGContextRef context, CGSize offset, CGFloat blur) {
  const CGColorRef color = CGColorCreateGenericGray(0, 1.0 / 3);
  CGContextSetShadowWithColor(context, offset, blur, color);
  CGColorRelease(color);
}

void CGContextBeginTransparencyLayer(CGContextRef context, CFDictionaryRef) {
  if (!context) return;
  SIMContext *self = object(context);
  CGContextSaveGState(context);
  cairo_push_group(self->_cairo);
  self->_layers.push_back(self->_saved.size());
  self->_state.alpha = 1;
  self->_state.blend = CAIRO_OPERATOR_OVER;
  self->_state.shadow.reset();
  self->_state.mask.reset();
}

void CGContextEndTransparencyLayer(CGContextRef context) {
  if (!context || object(context)->_layers.empty()) return;
  SIMContext *self = object(context);
  while (self->_saved.size() > self->_layers.back()) CGContextRestoreGState(context);
  self->_layers.pop_back();
  cairo_pattern_t *drawn = cairo_pop_group(self->_cairo);
  CGContextRestoreGState(context);
  if (self->_state.alpha < 1) {
    cairo_push_group(self->_cairo);
    cairo_set_operator(self->_cairo, CAIRO_OPERATOR_OVER);
    cairo_set_source(self->_cairo, drawn);
    cairo_paint_with_alpha(self->_cairo, self->_state.alpha);
    cairo_pattern_destroy(drawn);
    drawn = cairo_pop_group(self->_cairo);
  }
  const sim::MemoryAccess access(self);
  sim::compose(self, drawn);
}

void CGContextClipToMask(CGContextRef context, CGRect rect, CGImageRef mask) {
  const sim::BitmapPtr coverage = context ? sim::coverageOf(mask) : nullptr;
  if (!coverage) return;
  SIMContext *self = object(context);
  cairo_surface_t *target = cairo_get_target(self->_cairo);
  const std::shared_ptr<cairo_surface_t> made(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(target),
                                 cairo_image_surface_get_height(target)),
      cairo_surface_destroy);
  // Drawn as any image is, by a context of its own that has the same transform.
  const CGContextRef drawing =
      sim::createContext(sim::SurfacePtr(cairo_surface_reference(made.get())), CGAffineTransformIdentity, false);
  cairo_matrix_t matrix;
  cairo_get_matrix(self->_cairo, &matrix);
  cairo_set_matrix(object(drawing)->_cairo, &matrix);
  object(drawing)->_state.mask = self->_state.mask;
  sim::drawPixels(drawing, *sim::sourceOf(coverage), {.rect = rect, .bottomUp = true});
  CGContextRelease(drawing);
  self->_state.mask = made;
}

void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint startPoint, CGPoint endPoint,
                                 CGGradientDrawingOptions options) {
  if (!context || !gradient) return;
  paintGradient(context, gradient, cairo_pattern_create_linear(startPoint.x, startPoint.y, endPoint.x, endPoint.y),
                options);
}

void CGContextDrawRadialGradient(CGContextRef context, CGGradientRef gradient, CGPoint startCenter, CGFloat startRadius,
                                 CGPoint endCenter, CGFloat endRadius, CGGradientDrawingOptions options) {
  if (!context || !gradient) return;
  paintGradient(context, gradient,
                cairo_pattern_create_radial(startCenter.x, startCenter.y, std::max<CGFloat>(startRadius, 0),
                                            endCenter.x, endCenter.y, std::max<CGFloat>(endRadius, 0)),
                options);
}
