// The context itself, and the state that decides how it draws.
#import <CoreGraphics/CGColor+Sim.h>
#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGContextState.h>
#import <CoreGraphics/CairoSurface.hpp>

namespace {

SIMContext *object(CGContextRef context) { return sim::contextObject(context); }

cairo_operator_t operatorOf(CGBlendMode mode) {
  switch (mode) {
    case kCGBlendModeNormal: return CAIRO_OPERATOR_OVER;
    case kCGBlendModeMultiply: return CAIRO_OPERATOR_MULTIPLY;
    case kCGBlendModeScreen: return CAIRO_OPERATOR_SCREEN;
    case kCGBlendModeOverlay: return CAIRO_OPERATOR_OVERLAY;
    case kCGBlendModeDarken: return CAIRO_OPERATOR_DARKEN;
    case kCGBlendModeLighten: return CAIRO_OPERATOR_LIGHTEN;
    case kCGBlendModeColorDodge: return CAIRO_OPERATOR_COLOR_DODGE;
    case kCGBlendModeColorBurn: return CAIRO_OPERATOR_COLOR_BURN;
    case kCGBlendModeSoftLight: return CAIRO_OPERATOR_SOFT_LIGHT;
    case kCGBlendModeHardLight: return CAIRO_OPERATOR_HARD_LIGHT;
    case kCGBlendModeDifference: return CAIRO_OPERATOR_DIFFERENCE;
    case kCGBlendModeExclusion: return CAIRO_OPERATOR_EXCLUSION;
    case kCGBlendModeHue: return CAIRO_OPERATOR_HSL_HUE;
    case kCGBlendModeSaturation: return CAIRO_OPERATOR_HSL_SATURATION;
    case kCGBlendModeColor: return CAIRO_OPERATOR_HSL_COLOR;
    case kCGBlendModeLuminosity: return CAIRO_OPERATOR_HSL_LUMINOSITY;
    case kCGBlendModeClear: return CAIRO_OPERATOR_CLEAR;
    case kCGBlendModeCopy: return CAIRO_OPERATOR_SOURCE;
    case kCGBlendModeSourceIn: return CAIRO_OPERATOR_IN;
    case kCGBlendModeSourceOut: return CAIRO_OPERATOR_OUT;
    case kCGBlendModeSourceAtop: return CAIRO_OPERATOR_ATOP;
    case kCGBlendModeDestinationOver: return CAIRO_OPERATOR_DEST_OVER;
    case kCGBlendModeDestinationIn: return CAIRO_OPERATOR_DEST_IN;
    case kCGBlendModeDestinationOut: return CAIRO_OPERATOR_DEST_OUT;
    case kCGBlendModeDestinationAtop: return CAIRO_OPERATOR_DEST_ATOP;
    case kCGBlendModeXOR: return CAIRO_OPERATOR_XOR;
    case kCGBlendModePlusLighter: return CAIRO_OPERATOR_ADD;
  }
  return CAIRO_OPERATOR_OVER;
}

}  // namespace

@implementation SIMContext

- (void)dealloc {
  cairo_destroy(_cairo);
  [super dealloc];
}

@end

namespace sim {

CGContextRef createContext(const SurfacePtr &surface, const CGAffineTransform &base, bool opaque) {
  SIMContext *context = [[SIMContext alloc] init];
  context->_cairo = cairo_create(surface.get());
  context->_opaque = opaque;
  context->_base = {base.a, base.b, base.c, base.d, base.tx, base.ty};
  cairo_set_matrix(context->_cairo, &context->_base);
  cairo_set_line_width(context->_cairo, 1);
  return (CGContextRef)context;
}

CGContextRef createImageContext(CGSize size, CGFloat scale, bool opaque) {
  const double width = std::ceil(size.width * scale - 1e-6);
  const double height = std::ceil(size.height * scale - 1e-6);
  if (!(width >= 1 && height >= 1 && width < double(kMaxPixels) && height < double(kMaxPixels))) return nullptr;
  const SurfacePtr surface = makeSurface(std::int64_t(width), std::int64_t(height));
  if (!surface) return nullptr;
  const CGContextRef context = createContext(surface, {scale, 0, 0, scale, 0, 0}, opaque);
  if (opaque) cairo_paint(object(context)->_cairo);
  return context;
}

BitmapPtr snapshot(CGContextRef context) {
  if (!context) return nullptr;
  return bitmapOf(cairo_get_target(object(context)->_cairo),
                  object(context)->_opaque ? Alpha::ignored : Alpha::premultiplied);
}

cairo_t *cairoOf(CGContextRef context) { return context ? object(context)->_cairo : nullptr; }

void paintOn(CGContextRef context, const std::function<void(cairo_t *)> &draw) {
  paint(object(context), [&] { draw(object(context)->_cairo); });
}

}  // namespace sim

CGContextRef CGContextRetain(CGContextRef context) { return (CGContextRef)[(id)context retain]; }
void CGContextRelease(CGContextRef context) { [(id)context release]; }

void CGContextSaveGState(CGContextRef context) {
  if (!context) return;
  cairo_save(object(context)->_cairo);
  object(context)->_saved.push_back(object(context)->_state);
}

void CGContextRestoreGState(CGContextRef context) {
  if (!context) return;
  // What was saved before a transparency layer began is its end's to restore.
  const std::size_t kept = object(context)->_layers.empty() ? 0 : object(context)->_layers.back();
  if (object(context)->_saved.size() <= kept) return;
  cairo_restore(object(context)->_cairo);
  object(context)->_state = object(context)->_saved.back();
  object(context)->_saved.pop_back();
}

void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty) {
  CGContextConcatCTM(context, CGAffineTransformMakeTranslation(tx, ty));
}

void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy) {
  CGContextConcatCTM(context, CGAffineTransformMakeScale(sx, sy));
}

void CGContextRotateCTM(CGContextRef context, CGFloat angle) {
  CGContextConcatCTM(context, CGAffineTransformMakeRotation(angle));
}

void CGContextConcatCTM(CGContextRef context, CGAffineTransform t) {
  if (!context) return;
  const double determinant = t.a * t.d - t.b * t.c;
  if (!std::isfinite(determinant) || determinant == 0 || !std::isfinite(t.tx) || !std::isfinite(t.ty)) {
    NSLog(@"CGContextConcatCTM: a transform without an inverse is ignored.");
    return;
  }
  const cairo_matrix_t matrix{t.a, t.b, t.c, t.d, t.tx, t.ty};
  cairo_transform(object(context)->_cairo, &matrix);
}

CGAffineTransform CGContextGetCTM(CGContextRef context) {
  if (!context) return CGAffineTransformIdentity;
  cairo_matrix_t matrix;
  cairo_get_matrix(object(context)->_cairo, &matrix);
  const double height = cairo_image_surface_get_height(cairo_get_target(object(context)->_cairo));
  return {matrix.xx, -matrix.yx, matrix.xy, -matrix.yy, matrix.x0, height - matrix.y0};
}

void CGContextSetShouldAntialias(CGContextRef context, bool shouldAntialias) {
  if (!context) return;
  cairo_set_antialias(object(context)->_cairo, shouldAntialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
}

void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color) {
  if (context) object(context)->_state.fill = sim::components(color);
}

void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color) {
  if (context) object(context)->_state.stroke = sim::components(color);
}

void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  if (context) object(context)->_state.fill = {red, green, blue, alpha};
}

void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  if (context) object(context)->_state.stroke = {red, green, blue, alpha};
}

void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha) {
  CGContextSetRGBFillColor(context, gray, gray, gray, alpha);
}

void CGContextSetGrayStrokeColor(CGContextRef context, CGFloat gray, CGFloat alpha) {
  CGContextSetRGBStrokeColor(context, gray, gray, gray, alpha);
}

void CGContextSetAlpha(CGContextRef context, CGFloat alpha) {
  if (context) object(context)->_state.alpha = alpha;
}

void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode) {
  if (context) object(context)->_state.blend = operatorOf(mode);
}

void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality) {
  if (context)
    object(context)->_state.filter = quality == kCGInterpolationNone ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD;
}

void CGContextSetLineWidth(CGContextRef context, CGFloat width) {
  if (context) cairo_set_line_width(object(context)->_cairo, width);
}

void CGContextSetLineCap(CGContextRef context, CGLineCap cap) {
  if (context) cairo_set_line_cap(object(context)->_cairo, cairo_line_cap_t(cap));
}

void CGContextSetLineJoin(CGContextRef context, CGLineJoin join) {
  if (context) cairo_set_line_join(object(context)->_cairo, cairo_line_join_t(join));
}

void CGContextSetMiterLimit(CGContextRef context, CGFloat limit) {
  if (context) cairo_set_miter_limit(object(context)->_cairo, limit);
}

void CGContextSetLineDash(CGContextRef context, CGFloat phase, const CGFloat *lengths, size_t count) {
  if (context) cairo_set_dash(object(context)->_cairo, lengths, lengths ? int(count) : 0, phase);
}
