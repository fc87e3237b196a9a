// Paths, fills, strokes, clips and images.
#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGContextState.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/CGPath+Sim.h>
#import <CoreGraphics/CairoSurface.hpp>

namespace {

SIMContext *object(CGContextRef context) { return sim::contextObject(context); }

void setColor(SIMContext *context, const sim::RGBA &color) {
  cairo_set_source_rgba(context->_cairo, color.red, color.green, color.blue, color.alpha * context->_state.alpha);
}

// Runs `draw` with a path of its own; the current path is as before afterwards.
template <typename Draw>
void withOwnPath(CGContextRef context, Draw draw) {
  if (!context) return;
  cairo_t *cairo = object(context)->_cairo;
  cairo_path_t *kept = cairo_copy_path(cairo);
  cairo_new_path(cairo);
  draw();
  cairo_new_path(cairo);
  cairo_append_path(cairo, kept);
  cairo_path_destroy(kept);
}

// Operators that erase what they do not cover; cairo lets them reach beyond the shape.
bool isUnbounded(cairo_operator_t blend) {
  return blend == CAIRO_OPERATOR_IN || blend == CAIRO_OPERATOR_OUT || blend == CAIRO_OPERATOR_DEST_IN ||
         blend == CAIRO_OPERATOR_DEST_ATOP;
}

void fill(SIMContext *context, cairo_fill_rule_t rule, bool keepsPath) {
  cairo_t *cairo = context->_cairo;
  sim::paint(context, [&] {
    setColor(context, context->_state.fill);
    cairo_set_fill_rule(cairo, rule);
    cairo_set_operator(cairo, context->_state.blend);
    if (isUnbounded(context->_state.blend)) {
      cairo_save(cairo);
      cairo_clip_preserve(cairo);
      cairo_paint(cairo);
      cairo_restore(cairo);
    } else {
      cairo_fill_preserve(cairo);
    }
  });
  if (!keepsPath) cairo_new_path(cairo);
}

void stroke(SIMContext *context) {
  sim::paint(context, [&] {
    setColor(context, context->_state.stroke);
    cairo_set_operator(context->_cairo, context->_state.blend);
    cairo_stroke_preserve(context->_cairo);
  });
  cairo_new_path(context->_cairo);
}

void addPath(CGContextRef context, const sim::Path &path) {
  if (context) path.appendTo(object(context)->_cairo);
}

}  // namespace

namespace sim {

void drawPixels(CGContextRef context, const PixelSource &pixels, const ImageDrawing &drawing) {
  if (!context || CGRectIsEmpty(drawing.rect)) return;
  const BitmapPtr bitmap = upright(pixels.bitmap(), drawing.orientation);
  const SurfacePtr surface = bitmap ? surfaceOf(*bitmap) : nullptr;
  if (!surface) return;
  const CGRect rect = CGRectStandardize(drawing.rect);
  const double width = bitmap->width();
  const double height = bitmap->height();
  SIMContext *self = object(context);
  const auto draw = [&] {
    cairo_t *cairo = self->_cairo;
    cairo_save(cairo);
    cairo_translate(cairo, rect.origin.x, rect.origin.y + (drawing.bottomUp ? rect.size.height : 0));
    cairo_scale(cairo, rect.size.width / width, rect.size.height / height * (drawing.bottomUp ? -1 : 1));
    cairo_rectangle(cairo, 0, 0, width, height);
    cairo_clip(cairo);
    cairo_set_operator(cairo, self->_state.blend);
    cairo_pattern_t *pattern = cairo_pattern_create_for_surface(surface.get());
    cairo_pattern_set_filter(pattern, self->_state.filter);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
    if (drawing.template_) {
      setColor(self, *drawing.template_);
      cairo_mask(cairo, pattern);
    } else {
      cairo_set_source(cairo, pattern);
      cairo_paint_with_alpha(cairo, self->_state.alpha);
    }
    cairo_pattern_destroy(pattern);
    cairo_restore(cairo);
  };
  withOwnPath(context, [&] { paint(self, draw); });
}

}  // namespace sim

void CGContextBeginPath(CGContextRef context) {
  if (context) cairo_new_path(object(context)->_cairo);
}

void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y) {
  if (context) cairo_move_to(object(context)->_cairo, x, y);
}

void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y) {
  if (context) cairo_line_to(object(context)->_cairo, x, y);
}

void CGContextAddCurveToPoint(CGContextRef context, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x, CGFloat cp2y, CGFloat x,
                              CGFloat y) {
  if (context) cairo_curve_to(object(context)->_cairo, cp1x, cp1y, cp2x, cp2y, x, y);
}

void CGContextAddQuadCurveToPoint(CGContextRef context, CGFloat cpx, CGFloat cpy, CGFloat x, CGFloat y) {
  const CGPoint from = CGContextGetPathCurrentPoint(context);
  CGContextAddCurveToPoint(context, from.x + (cpx - from.x) * 2 / 3, from.y + (cpy - from.y) * 2 / 3,
                           x + (cpx - x) * 2 / 3, y + (cpy - y) * 2 / 3, x, y);
}

void CGContextAddArcToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat radius) {
  if (!context || CGContextIsPathEmpty(context)) return;
  const CGPoint from = CGContextGetPathCurrentPoint(context);
  sim::Path path;
  path.move({from.x, from.y});
  path.arcTo({x1, y1}, {x2, y2}, radius);
  for (const sim::Path::Element &element : path.elements()) {
    const auto &[first, second, third] = element.points;
    if (element.verb == sim::Path::Verb::line) CGContextAddLineToPoint(context, first.x, first.y);
    if (element.verb == sim::Path::Verb::curve) {
      CGContextAddCurveToPoint(context, first.x, first.y, second.x, second.y, third.x, third.y);
    }
  }
}

void CGContextAddLines(CGContextRef context, const CGPoint *points, size_t count) {
  for (size_t at = 0; at < count; ++at) {
    at == 0 ? CGContextMoveToPoint(context, points[at].x, points[at].y)
            : CGContextAddLineToPoint(context, points[at].x, points[at].y);
  }
}

void CGContextAddRects(CGContextRef context, const CGRect *rects, size_t count) {
  for (size_t at = 0; at < count; ++at) CGContextAddRect(context, rects[at]);
}

void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                     int clockwise) {
  if (!context) return;
  const auto arc = clockwise ? cairo_arc_negative : cairo_arc;
  arc(object(context)->_cairo, x, y, radius, startAngle, endAngle);
}

void CGContextAddRect(CGContextRef context, CGRect rect) {
  sim::Path path;
  path.rect(sim::boxOf(rect));
  addPath(context, path);
}

void CGContextAddEllipseInRect(CGContextRef context, CGRect rect) {
  sim::Path path;
  path.ellipse(sim::boxOf(rect));
  addPath(context, path);
}

void CGContextAddPath(CGContextRef context, CGPathRef path) {
  if (path) addPath(context, sim::pathOf(path));
}

void CGContextClosePath(CGContextRef context) {
  if (context) cairo_close_path(object(context)->_cairo);
}

bool CGContextIsPathEmpty(CGContextRef context) {
  return !context || !cairo_has_current_point(object(context)->_cairo);
}

CGPoint CGContextGetPathCurrentPoint(CGContextRef context) {
  CGPoint point = CGPointZero;
  if (context) cairo_get_current_point(object(context)->_cairo, &point.x, &point.y);
  return point;
}

void CGContextDrawPath(CGContextRef context, CGPathDrawingMode mode) {
  if (!context) return;
  const bool strokes = mode == kCGPathStroke || mode == kCGPathFillStroke || mode == kCGPathEOFillStroke;
  if (mode != kCGPathStroke) {
    const bool evenOdd = mode == kCGPathEOFill || mode == kCGPathEOFillStroke;
    fill(object(context), evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING, strokes);
  }
  if (strokes) stroke(object(context));
}

void CGContextFillPath(CGContextRef context) { CGContextDrawPath(context, kCGPathFill); }
void CGContextEOFillPath(CGContextRef context) { CGContextDrawPath(context, kCGPathEOFill); }
void CGContextStrokePath(CGContextRef context) { CGContextDrawPath(context, kCGPathStroke); }

void CGContextClip(CGContextRef context) {
  if (!context) return;
  cairo_set_fill_rule(object(context)->_cairo, CAIRO_FILL_RULE_WINDING);
  cairo_clip(object(context)->_cairo);
}

void CGContextEOClip(CGContextRef context) {
  if (!context) return;
  cairo_set_fill_rule(object(context)->_cairo, CAIRO_FILL_RULE_EVEN_ODD);
  cairo_clip(object(context)->_cairo);
}

void CGContextClipToRect(CGContextRef context, CGRect rect) {
  withOwnPath(context, [&] {
    CGContextAddRect(context, rect);
    CGContextClip(context);
  });
}

void CGContextFillRect(CGContextRef context, CGRect rect) {
  withOwnPath(context, [&] {
    CGContextAddRect(context, rect);
    CGContextFillPath(context);
  });
}

void CGContextFillRects(CGContextRef context, const CGRect *rects, size_t count) {
  withOwnPath(context, [&] {
    CGContextAddRects(context, rects, count);
    CGContextFillPath(context);
  });
}

CGRect CGContextGetClipBoundingBox(CGContextRef context) {
  if (!context) return CGRectNull;
  double left, top, right, bottom;
  cairo_clip_extents(object(context)->_cairo, &left, &top, &right, &bottom);
  return CGRectMake(left, top, right - left, bottom - top);
}

void CGContextStrokeRectWithWidth(CGContextRef context, CGRect rect, CGFloat width) {
  CGContextSaveGState(context);
  CGContextSetLineWidth(context, width);
  CGContextStrokeRect(context, rect);
  CGContextRestoreGState(context);
}

void CGContextStrokeLineSegments(CGContextRef context, const CGPoint *points, size_t count) {
  withOwnPath(context, [&] {
    for (size_t at = 0; at + 1 < count; at += 2) CGContextAddLines(context, points + at, 2);
    CGContextStrokePath(context);
  });
}

void CGContextStrokeRect(CGContextRef context, CGRect rect) {
  withOwnPath(context, [&] {
    CGContextAddRect(context, rect);
    CGContextStrokePath(context);
  });
}

void CGContextClearRect(CGContextRef context, CGRect rect) {
  CGContextSaveGState(context);
  CGContextSetBlendMode(context, kCGBlendModeClear);
  CGContextFillRect(context, rect);
  CGContextRestoreGState(context);
}

void CGContextFillEllipseInRect(CGContextRef context, CGRect rect) {
  withOwnPath(context, [&] {
    CGContextAddEllipseInRect(context, rect);
    CGContextFillPath(context);
  });
}

void CGContextStrokeEllipseInRect(CGContextRef context, CGRect rect) {
  withOwnPath(context, [&] {
    CGContextAddEllipseInRect(context, rect);
    CGContextStrokePath(context);
  });
}

void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image) {
  if (const sim::PixelSourcePtr pixels = sim::sourceOf(image)) {
    const sim::RGBA fill = context ? object(context)->_state.fill : sim::RGBA();
    sim::drawPixels(context, *pixels,
                    {.rect = rect, .bottomUp = true, .template_ = CGImageIsMask(image) ? &fill : nullptr});
  }
}
