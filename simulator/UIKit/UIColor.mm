#import <CoreGraphics/CGColor+Sim.h>
#import <UIKit/UIColor+Sim.h>
#import <UIKit/UIGraphics.h>
#import <UIKit/UITraitCollection+Sim.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace sim {

struct UIColorState {
  RGBA components;
  bool grey = false;  ///< Made from a white: its CGColor has a grey colour space.
  objcxx::BlockHandle<UIColor *, UITraitCollection *> provider;
};

}  // namespace sim

namespace {

double clamped(double component) { return std::isnan(component) ? 0 : std::clamp(component, 0.0, 1.0); }

struct HSB {
  double hue, saturation, brightness;
};

HSB hsbOf(const sim::RGBA &c) {
  const double high = std::max({c.red, c.green, c.blue});
  const double range = high - std::min({c.red, c.green, c.blue});
  double hue = 0;
  if (range > 0) {
    if (high == c.red) hue = (c.green - c.blue) / range;
    else if (high == c.green) hue = (c.blue - c.red) / range + 2;
    else hue = (c.red - c.green) / range + 4;
    hue = (hue < 0 ? hue + 6 : hue) / 6;
  }
  return {hue, high > 0 ? range / high : 0, high};
}

sim::RGBA rgbOf(const HSB &c, double alpha) {
  const auto component = [&](double offset) {
    const double k = std::fmod(offset + c.hue * 6, 6);
    return c.brightness * (1 - c.saturation * std::max(0.0, std::min({k, 4 - k, 1.0})));
  };
  return {component(5), component(3), component(1), alpha};
}

template <typename Number>
void give(CGFloat *place, Number value) {
  if (place) *place = value;
}

}  // namespace

@implementation UIColor

- (instancetype)sim_initWithComponents:(const sim::RGBA &)components grey:(BOOL)grey {
  if (!(self = [super init])) return nil;
  _state = std::make_unique<sim::UIColorState>();
  _state->components = {clamped(components.red), clamped(components.green), clamped(components.blue),
                        clamped(components.alpha)};
  _state->grey = grey;
  return self;
}

- (instancetype)init {
  return [self initWithWhite:0 alpha:0];
}

- (instancetype)initWithWhite:(CGFloat)white alpha:(CGFloat)alpha {
  return [self sim_initWithComponents:{white, white, white, alpha} grey:YES];
}

- (instancetype)initWithRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha {
  return [self sim_initWithComponents:{red, green, blue, alpha} grey:NO];
}

- (instancetype)initWithCGColor:(CGColorRef)color {
  return [self sim_initWithComponents:sim::components(color) grey:CGColorGetNumberOfComponents(color) == 2];
}

- (instancetype)initWithDynamicProvider:(UIColor * (^)(UITraitCollection *))provider {
  if (!(self = [self init])) return nil;
  _state->provider = objcxx::copyOf(provider);
  return self;
}

+ (UIColor *)colorWithWhite:(CGFloat)white alpha:(CGFloat)alpha {
  return [[[UIColor alloc] initWithWhite:white alpha:alpha] autorelease];
}

+ (UIColor *)colorWithRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha {
  return [[[UIColor alloc] initWithRed:red green:green blue:blue alpha:alpha] autorelease];
}

+ (UIColor *)colorWithHue:(CGFloat)hue
               saturation:(CGFloat)saturation
               brightness:(CGFloat)brightness
                    alpha:(CGFloat)alpha {
  const sim::RGBA c = rgbOf({clamped(hue), clamped(saturation), clamped(brightness)}, alpha);
  return [[[UIColor alloc] sim_initWithComponents:c grey:NO] autorelease];
}

+ (UIColor *)colorWithCGColor:(CGColorRef)color {
  return [[[UIColor alloc] initWithCGColor:color] autorelease];
}

+ (UIColor *)colorWithDynamicProvider:(UIColor * (^)(UITraitCollection *))provider {
  return [[[UIColor alloc] initWithDynamicProvider:provider] autorelease];
}

+ (UIColor *)blackColor {
  return [self colorWithWhite:0 alpha:1];
}

+ (UIColor *)darkGrayColor {
  return [self colorWithWhite:1.0 / 3 alpha:1];
}

+ (UIColor *)lightGrayColor {
  return [self colorWithWhite:2.0 / 3 alpha:1];
}

+ (UIColor *)whiteColor {
  return [self colorWithWhite:1 alpha:1];
}

+ (UIColor *)grayColor {
  return [self colorWithWhite:0.5 alpha:1];
}

+ (UIColor *)redColor {
  return [self colorWithRed:1 green:0 blue:0 alpha:1];
}

+ (UIColor *)greenColor {
  return [self colorWithRed:0 green:1 blue:0 alpha:1];
}

+ (UIColor *)blueColor {
  return [self colorWithRed:0 green:0 blue:1 alpha:1];
}

+ (UIColor *)cyanColor {
  return [self colorWithRed:0 green:1 blue:1 alpha:1];
}

+ (UIColor *)yellowColor {
  return [self colorWithRed:1 green:1 blue:0 alpha:1];
}

+ (UIColor *)magentaColor {
  return [self colorWithRed:1 green:0 blue:1 alpha:1];
}

+ (UIColor *)orangeColor {
  return [self colorWithRed:1 green:0.5 blue:0 alpha:1];
}

+ (UIColor *)purpleColor {
  return [self colorWithRed:0.5 green:0 blue:0.5 alpha:1];
}

+ (UIColor *)brownColor {
  return [self colorWithRed:0.6 green:0.4 blue:0.2 alpha:1];
}

+ (UIColor *)clearColor {
  return [self colorWithWhite:0 alpha:0];
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (UIColor *)resolvedColorWithTraitCollection:(UITraitCollection *)traits {
  if (!_state->provider) return [[self retain] autorelease];
  UITraitCollection *wanted = traits ? traits : [UITraitCollection currentTraitCollection];
  __block UIColor *color = nil;
  [UITraitCollection sim_performWithTraitCollection:wanted
                                               body:^{
                                                 color = self->_state->provider(wanted);
                                               }];
  return [color resolvedColorWithTraitCollection:wanted];
}

- (sim::RGBA)sim_components {
  UIColor *resolved = [self resolvedColorWithTraitCollection:nil];
  return resolved ? resolved->_state->components : sim::RGBA();
}

/// Nothing of a dynamic colour.
- (std::optional<sim::RGBA>)sim_fixedComponents {
  if (_state->provider) return std::nullopt;
  return _state->components;
}

- (BOOL)isEqual:(id)object {
  if (object == self) return YES;
  if (![object isKindOfClass:[UIColor class]]) return NO;
  const sim::ColorPair one = sim::resolved(self);
  const sim::ColorPair other = sim::resolved(object);
  return one.light == other.light && one.dark == other.dark;
}

- (NSUInteger)hash {
  const sim::RGBA c = sim::resolved(self).light;
  return NSUInteger(c.red * 255) << 16 | NSUInteger(c.green * 255) << 8 | NSUInteger(c.blue * 255);
}

- (BOOL)getRed:(CGFloat *)red green:(CGFloat *)green blue:(CGFloat *)blue alpha:(CGFloat *)alpha {
  const sim::RGBA c = [self sim_components];
  give(red, c.red);
  give(green, c.green);
  give(blue, c.blue);
  give(alpha, c.alpha);
  return YES;
}

- (BOOL)getWhite:(CGFloat *)white alpha:(CGFloat *)alpha {
  const sim::RGBA c = [self sim_components];
  if (c.red != c.green || c.green != c.blue) return NO;
  give(white, c.red);
  give(alpha, c.alpha);
  return YES;
}

- (BOOL)getHue:(CGFloat *)hue saturation:(CGFloat *)saturation brightness:(CGFloat *)brightness alpha:(CGFloat *)alpha {
  const sim::RGBA c = [self sim_components];
  const HSB hsb = hsbOf(c);
  give(hue, hsb.hue);
  give(saturation, hsb.saturation);
  give(brightness, hsb.brightness);
  give(alpha, c.alpha);
  return YES;
}

- (UIColor *)colorWithAlphaComponent:(CGFloat)alpha {
  if (_state->provider) {
    return [UIColor colorWithDynamicProvider:^UIColor *(UITraitCollection *traits) {
      return [[self resolvedColorWithTraitCollection:traits] colorWithAlphaComponent:alpha];
    }];
  }
  sim::RGBA c = _state->components;
  c.alpha = alpha;
  return [[[UIColor alloc] sim_initWithComponents:c grey:_state->grey] autorelease];
}

- (CGColorRef)CGColor {
  UIColor *resolved = [self resolvedColorWithTraitCollection:nil];
  if (!resolved) return nullptr;
  const sim::RGBA c = resolved->_state->components;
  const CGColorRef color = resolved->_state->grey ? CGColorCreateGenericGray(c.red, c.alpha)
                                                  : CGColorCreateSRGB(c.red, c.green, c.blue, c.alpha);
  return (CGColorRef)[(id)color autorelease];
}

- (void)set {
  [self setFill];
  [self setStroke];
}

- (void)setFill {
  CGContextSetFillColorWithColor(UIGraphicsGetCurrentContext(), [self CGColor]);
}

- (void)setStroke {
  CGContextSetStrokeColorWithColor(UIGraphicsGetCurrentContext(), [self CGColor]);
}

@end

namespace sim {

ColorPair resolved(UIColor *color) {
  if (!color) return {};
  if (const auto fixed = [color sim_fixedComponents]) return {*fixed, *fixed};
  const auto under = [&](UIUserInterfaceStyle style) {
    UITraitCollection *traits = [[UITraitCollection sim_deviceTraits] sim_withUserInterfaceStyle:style];
    UIColor *fixed = [color resolvedColorWithTraitCollection:traits];
    return fixed ? [fixed sim_components] : RGBA();
  };
  return {under(UIUserInterfaceStyleLight), under(UIUserInterfaceStyleDark)};
}

}  // namespace sim
