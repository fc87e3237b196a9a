#import <CoreGraphics/CGColor+Sim.h>
#import <CoreGraphics/CGGradient+Sim.h>

#include <algorithm>

@interface SIMGradient : NSObject {
 @public
  std::vector<sim::GradientStop> _stops;
}
@end

@implementation SIMGradient
@end

namespace {

/// At +1; NULL without colours.
CGGradientRef create(const std::vector<sim::RGBA> &colors, const CGFloat *locations) {
  if (colors.empty()) return nullptr;
  SIMGradient *gradient = [[SIMGradient alloc] init];
  for (std::size_t at = 0; at < colors.size(); ++at) {
    const double even = colors.size() > 1 ? double(at) / double(colors.size() - 1) : 0;
    gradient->_stops.push_back({locations ? std::clamp<double>(locations[at], 0, 1) : even, colors[at]});
  }
  std::ranges::stable_sort(gradient->_stops, {}, &sim::GradientStop::place);
  return (CGGradientRef)gradient;
}

}  // namespace

CGGradientRef CGGradientCreateWithColors(CGColorSpaceRef, CFArrayRef colors, const CGFloat *locations) {
  std::vector<sim::RGBA> all;
  for (id color in (NSArray *)colors) {
    if (!sim::isColor(color)) return nullptr;
    all.push_back(sim::components((CGColorRef)color));
  }
  return create(all, locations);
}

CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef space, const CGFloat *components,
                                                  const CGFloat *locations, size_t count) {
  const size_t each = CGColorSpaceGetNumberOfComponents(space) + 1;
  if (!components || each == 1) return nullptr;
  std::vector<sim::RGBA> all;
  for (const CGFloat *color = components; all.size() < count; color += each) {
    const CGColorRef made = CGColorCreate(space, color);
    all.push_back(sim::components(made));
    CGColorRelease(made);
  }
  return create(all, locations);
}

CGGradientRef CGGradientRetain(CGGradientRef gradient) { return (CGGradientRef)[(id)gradient retain]; }
void CGGradientRelease(CGGradientRef gradient) { [(id)gradient release]; }

namespace sim {

std::vector<GradientStop> stopsOf(CGGradientRef gradient) {
  return gradient ? ((SIMGradient *)gradient)->_stops : std::vector<GradientStop>{};
}

}  // namespace sim
