// What a layer shows: contents that it draws, and the whole of it drawn into a context.
#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/CGPath+Sim.h>
#import <QuartzCore/CALayerState.h>

#include <algorithm>

namespace {

sim::Path outlineOf(CALayer *layer, CGFloat inset) {
  const CGRect rect = CGRectInset([layer bounds], inset, inset);
  const CGFloat radius = std::max<CGFloat>([layer cornerRadius] - inset, 0);
  const CACornerMask corners = [layer maskedCorners];
  const auto at = [&](CACornerMask corner) { return corners & corner ? radius : 0; };
  sim::Path path;
  path.roundedRect(sim::boxOf(rect), {at(kCALayerMinXMinYCorner), at(kCALayerMaxXMinYCorner),
                                      at(kCALayerMaxXMaxYCorner), at(kCALayerMinXMaxYCorner)});
  return path;
}

void addOutline(CGContextRef context, CALayer *layer, CGFloat inset = 0) {
  const CGPathRef path = sim::createPath(outlineOf(layer, inset));
  CGContextBeginPath(context);
  CGContextAddPath(context, path);
  CGPathRelease(path);
}

/// Along one axis: `place` is -1 at the start, 0 in the middle, 1 at the end.
CGFloat placed(CGFloat start, CGFloat room, CGFloat length, int place) {
  return start + (room - length) * (place + 1) / 2;
}

CGRect contentsRect(CALayer *layer, CGSize size) {
  const CGRect bounds = [layer bounds];
  NSString *gravity = [layer contentsGravity];
  const bool fits = [gravity isEqualToString:kCAGravityResizeAspect];
  if (fits || [gravity isEqualToString:kCAGravityResizeAspectFill]) {
    const CGFloat across = bounds.size.width / size.width;
    const CGFloat down = bounds.size.height / size.height;
    const CGFloat factor = fits ? std::min(across, down) : std::max(across, down);
    size = CGSizeMake(size.width * factor, size.height * factor);
  } else if ([gravity isEqualToString:kCAGravityResize]) {
    return bounds;
  }
  NSString *lower = [gravity lowercaseString];
  const auto place = [&](NSString *start, NSString *end) {
    return [lower hasPrefix:start] || [lower hasSuffix:start] ? -1
           : [lower hasPrefix:end] || [lower hasSuffix:end]   ? 1
                                                              : 0;
  };
  // The y axis of these names points up.
  const CGFloat x = placed(bounds.origin.x, bounds.size.width, size.width, place(@"left", @"right"));
  const CGFloat y = placed(bounds.origin.y, bounds.size.height, size.height, place(@"bottom", @"top"));
  return CGRectMake(x, y, size.width, size.height);
}

void drawContents(CALayer *layer, CGContextRef context) {
  if (!sim::isImage([layer contents])) return;
  const auto image = (CGImageRef)[layer contents];
  const CGFloat scale = [layer contentsScale] > 0 ? [layer contentsScale] : 1;
  const CGSize size = CGSizeMake(CGImageGetWidth(image) / scale, CGImageGetHeight(image) / scale);
  const CGRect rect = contentsRect(layer, size);
  CGContextSaveGState(context);
  CGContextTranslateCTM(context, 0, CGRectGetMinY(rect) + CGRectGetMaxY(rect));
  CGContextScaleCTM(context, 1, -1);
  CGContextDrawImage(context, rect, image);
  CGContextRestoreGState(context);
}

void fillOutline(CALayer *layer, CGContextRef context) {
  if (![layer backgroundColor]) return;
  CGContextSetFillColorWithColor(context, [layer backgroundColor]);
  addOutline(context, layer);
  CGContextFillPath(context);
}

void drawBorder(CALayer *layer, CGContextRef context) {
  const CGFloat width = [layer borderWidth];
  if (width <= 0 || ![layer borderColor]) return;
  CGContextSetStrokeColorWithColor(context, [layer borderColor]);
  CGContextSetLineWidth(context, width);
  addOutline(context, layer, width / 2);
  CGContextStrokePath(context);
}

/// Draws `layer`, which lies in another, into that one's context.
void drawPlaced(CALayer *layer, CGContextRef context) {
  const CGAffineTransform transform = sim::transformToParent([[layer sim_shown] sim_geometry]);
  if (transform.a * transform.d == transform.b * transform.c) return;  // Nothing is left of it.
  CGContextSaveGState(context);
  CGContextConcatCTM(context, transform);
  [layer renderInContext:context];
  CGContextRestoreGState(context);
}

/// What lies in a group of its own has to be drawn whole before it is made transparent.
void drawGroup(float opacity, CALayer *mask, CGContextRef context, void (^draw)(void)) {
  cairo_t *cairo = sim::cairoOf(context);
  if (opacity >= 1 && !mask) return draw();
  cairo_push_group(cairo);
  draw();
  cairo_pattern_t *drawn = cairo_pop_group(cairo);
  cairo_pattern_t *shape = nullptr;
  if (mask) {
    cairo_push_group_with_content(cairo, CAIRO_CONTENT_ALPHA);
    drawPlaced(mask, context);
    shape = cairo_pop_group(cairo);
    cairo_push_group(cairo);
    cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
    cairo_set_source(cairo, drawn);
    cairo_mask(cairo, shape);
    cairo_pattern_destroy(drawn);
    drawn = cairo_pop_group(cairo);
  }
  sim::paintOn(context, [&](cairo_t *on) {
    cairo_set_operator(on, CAIRO_OPERATOR_OVER);
    cairo_set_source(on, drawn);
    cairo_paint_with_alpha(on, opacity);
  });
  cairo_pattern_destroy(drawn);
  if (shape) cairo_pattern_destroy(shape);
}

}  // namespace

@implementation CALayer (Drawing)

- (id)contents {
  return [self sim_state].contents.get();
}

- (void)setContents:(id)contents {
  sim::CALayerState &state = [self sim_state];
  state.contents = objcxx::share((NSObject *)contents);
  state.madeOfContents = nullptr;
}

- (id)sim_madeOfContents {
  return [self sim_state].madeOfContents.get();
}

- (void)sim_setMadeOfContents:(id)object {
  [self sim_state].madeOfContents = objcxx::share((NSObject *)object);
}

- (void)setNeedsDisplay {
  [self sim_state].needsDisplay = true;
}

- (void)setNeedsDisplayInRect:(CGRect)r {
  if (!CGRectIsEmpty(r)) [self setNeedsDisplay];
}

- (BOOL)needsDisplay {
  return [self sim_state].needsDisplay;
}

- (void)displayIfNeeded {
  if ([self needsDisplay]) [self display];
}

- (void)display {
  sim::CALayerState &state = [self sim_state];
  state.needsDisplay = false;
  id<CALayerDelegate> delegate = state.delegate;
  if ([delegate respondsToSelector:@selector(displayLayer:)]) return [delegate displayLayer:self];
  const SEL drawing = @selector(drawInContext:);
  const bool draws = [self methodForSelector:drawing] != [CALayer instanceMethodForSelector:drawing];
  const bool isDrawnFor =
      state.owner ? [state.owner sim_drawsItself] : [delegate respondsToSelector:@selector(drawLayer:inContext:)];
  if (!draws && !isDrawnFor) return;
  const CGRect bounds = [self bounds];
  const CGFloat scale = state.contentsScale > 0 ? state.contentsScale : 1;
  const CGContextRef context = sim::createImageContext(bounds.size, scale, false);
  if (!context) return [self setContents:nil];
  CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
  [self drawInContext:context];
  const CGImageRef image = sim::createImage(sim::sourceOf(sim::snapshot(context)));
  [self setContents:(id)image];
  CGImageRelease(image);
  CGContextRelease(context);
}

- (void)drawInContext:(CGContextRef)ctx {
  id<CALayerDelegate> delegate = [self delegate];
  if ([delegate respondsToSelector:@selector(drawLayer:inContext:)]) [delegate drawLayer:self inContext:ctx];
}

- (void)sim_drawOwnLookInContext:(CGContextRef)context {
  (void)context;
}

- (void)renderInContext:(CGContextRef)ctx {
  if (!ctx) return;
  [self layoutIfNeeded];
  [self displayIfNeeded];
  CALayer *shown = [self sim_shown];
  if ([shown isHidden] || [shown opacity] <= 0) return;
  CGContextSaveGState(ctx);
  drawGroup([shown opacity], [self mask], ctx, ^{
    fillOutline(shown, ctx);
    CGContextSaveGState(ctx);
    if ([shown masksToBounds] || [shown cornerRadius] > 0) {  // A layer rounds its own contents.
      addOutline(ctx, shown);
      CGContextClip(ctx);
    }
    [shown sim_drawOwnLookInContext:ctx];
    drawContents(shown, ctx);
    CGContextRestoreGState(ctx);
    CGContextSaveGState(ctx);
    if ([shown masksToBounds]) {
      addOutline(ctx, shown);
      CGContextClip(ctx);
    }
    [[self sim_owner] sim_drawContentInContext:ctx];
    for (CALayer *layer in [self sim_sublayersInDrawingOrder]) drawPlaced(layer, ctx);
    CGContextRestoreGState(ctx);
    drawBorder(shown, ctx);
  });
  CGContextRestoreGState(ctx);
}

@end
