#import <CoreGraphics/CGColor+Sim.h>
#import <CoreGraphics/CGContext+Sim.h>
#import <QuartzCore/CAGradientLayer+Sim.h>
#import <QuartzCore/CALayer+Sim.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <cmath>
#include <numbers>

CAGradientLayerType const kCAGradientLayerAxial = @"axial";
CAGradientLayerType const kCAGradientLayerRadial = @"radial";
CAGradientLayerType const kCAGradientLayerConic = @"conic";

namespace sim {

struct CAGradientLayerState {
  objcxx::Retained<NSArray> colors;
  objcxx::Retained<NSArray> locations;
  CGPoint startPoint = {0.5, 0};
  CGPoint endPoint = {0.5, 1};
  objcxx::Retained<NSString> type = objcxx::share((NSString *)kCAGradientLayerAxial);
};

std::vector<GradientStop> stopsOf(CAGradientLayer *layer) {
  NSArray *colors = [layer colors];
  NSArray *locations = [layer locations];
  const NSUInteger count = [colors count];
  std::vector<GradientStop> stops;
  if (count < 2) return stops;
  double last = 0;
  for (NSUInteger at = 0; at < count; ++at) {
    const double even = double(at) / double(count - 1);
    const double wanted = at < [locations count] ? [[locations objectAtIndex:at] doubleValue] : locations ? 1 : even;
    last = std::clamp(wanted, last, 1.0);
    stops.push_back({last, components((CGColorRef)[colors objectAtIndex:at])});
  }
  return stops;
}

}  // namespace sim

namespace {

/// How many pieces of a circle a conic gradient is drawn in.
constexpr int kPieces = 180;

sim::RGBA colorAt(const std::vector<sim::GradientStop> &stops, double place) {
  const auto after = std::ranges::find_if(stops, [&](const auto &stop) { return stop.place >= place; });
  if (after == stops.begin()) return stops.front().color;
  if (after == stops.end()) return stops.back().color;
  const auto before = after - 1;
  const double share = (place - before->place) / (after->place - before->place);
  const auto mixed = [&](double one, double other) { return one + (other - one) * share; };
  return {mixed(before->color.red, after->color.red), mixed(before->color.green, after->color.green),
          mixed(before->color.blue, after->color.blue), mixed(before->color.alpha, after->color.alpha)};
}

void drawConic(cairo_t *cairo, const std::vector<sim::GradientStop> &stops, CGPoint centre, double from) {
  constexpr double step = 2 * std::numbers::pi / kPieces;
  for (int at = 0; at < kPieces; ++at) {
    const sim::RGBA color = colorAt(stops, (at + 0.5) / kPieces);
    const double start = from + at * step;
    cairo_move_to(cairo, centre.x, centre.y);
    // Two diagonals of the unit square reach every corner of it from within; a hair more leaves no seam.
    for (const double angle : {start, start + step * 1.02}) {
      cairo_line_to(cairo, centre.x + 3 * std::cos(angle), centre.y + 3 * std::sin(angle));
    }
    cairo_close_path(cairo);
    cairo_set_source_rgba(cairo, color.red, color.green, color.blue, color.alpha);
    cairo_fill(cairo);
  }
}

}  // namespace

@implementation CAGradientLayer

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _gradientState = std::make_unique<sim::CAGradientLayerState>();
  return self;
}

- (instancetype)initWithLayer:(id)layer {
  if (!(self = [super initWithLayer:layer])) return nil;
  if ([layer isKindOfClass:[CAGradientLayer class]]) *_gradientState = *((CAGradientLayer *)layer)->_gradientState;
  return self;
}

- (NSArray *)colors {
  return _gradientState->colors.get();
}

- (void)setColors:(NSArray *)colors {
  _gradientState->colors = objcxx::adopt((NSArray *)[colors copy]);
}

- (NSArray *)locations {
  return _gradientState->locations.get();
}

- (void)setLocations:(NSArray *)locations {
  _gradientState->locations = objcxx::adopt((NSArray *)[locations copy]);
}

- (CGPoint)startPoint {
  return _gradientState->startPoint;
}

- (void)setStartPoint:(CGPoint)startPoint {
  _gradientState->startPoint = startPoint;
}

- (CGPoint)endPoint {
  return _gradientState->endPoint;
}

- (void)setEndPoint:(CGPoint)endPoint {
  _gradientState->endPoint = endPoint;
}

- (CAGradientLayerType)type {
  return _gradientState->type.get();
}

- (void)setType:(CAGradientLayerType)type {
  _gradientState->type = objcxx::adopt((NSString *)[type copy]);
}

- (void)sim_drawOwnLookInContext:(CGContextRef)context {
  const auto stops = sim::stopsOf(self);
  const CGRect bounds = [self bounds];
  if (!context || stops.empty() || CGRectIsEmpty(bounds)) return;
  sim::paintOn(context, [&](cairo_t *cairo) { [self sim_drawStops:stops inBounds:bounds on:cairo]; });
}

- (void)sim_drawStops:(const std::vector<sim::GradientStop> &)stops inBounds:(CGRect)bounds on:(cairo_t *)cairo {
  const CGPoint start = [self startPoint];
  const CGPoint end = [self endPoint];
  cairo_save(cairo);
  cairo_new_path(cairo);
  cairo_rectangle(cairo, bounds.origin.x, bounds.origin.y, bounds.size.width, bounds.size.height);
  cairo_clip(cairo);
  cairo_translate(cairo, bounds.origin.x, bounds.origin.y);
  if ([[self type] isEqualToString:kCAGradientLayerConic]) {
    const double width = bounds.size.width, height = bounds.size.height;
    const double from = std::atan2((end.y - start.y) * height, (end.x - start.x) * width);
    cairo_scale(cairo, std::max(width, height), std::max(width, height));
    drawConic(cairo, stops,
              CGPointMake(start.x * width / std::max(width, height), start.y * height / std::max(width, height)), from);
  } else {
    cairo_scale(cairo, bounds.size.width, bounds.size.height);
    const bool isRadial = [[self type] isEqualToString:kCAGradientLayerRadial];
    const double across = std::max(std::abs(end.x - start.x), 1e-6), down = std::max(std::abs(end.y - start.y), 1e-6);
    if (isRadial) {
      cairo_translate(cairo, start.x, start.y);
      cairo_scale(cairo, across, down);
    }
    cairo_pattern_t *pattern = isRadial ? cairo_pattern_create_radial(0, 0, 0, 0, 0, 1)
                                        : cairo_pattern_create_linear(start.x, start.y, end.x, end.y);
    for (const auto &[place, color] : stops) {
      cairo_pattern_add_color_stop_rgba(pattern, place, color.red, color.green, color.blue, color.alpha);
    }
    cairo_set_source(cairo, pattern);
    cairo_paint(cairo);
    cairo_pattern_destroy(pattern);
  }
  cairo_restore(cairo);
}

@end
