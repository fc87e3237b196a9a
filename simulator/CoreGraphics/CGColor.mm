#import <CoreGraphics/CGColor+Sim.h>

#include <algorithm>
#include <initializer_list>

@interface SIMColor : NSObject {
 @public
  CGColorSpaceRef _space;  // Owned.
  CGFloat _components[4];
}
@end

@implementation SIMColor

- (void)dealloc {
  CGColorSpaceRelease(_space);
  [super dealloc];
}

- (NSUInteger)hash {
  return NSUInteger(_components[0] * 255);
}

- (BOOL)isEqual:(id)other {
  return [other isKindOfClass:[SIMColor class]] && CGColorEqualToColor((CGColorRef)self, (CGColorRef)other);
}

@end

namespace {

const SIMColor *object(CGColorRef color) { return (const SIMColor *)color; }

CGColorRef createOwning(CGColorSpaceRef space, std::initializer_list<CGFloat> components) {
  const CGColorRef color = CGColorCreate(space, components.begin());
  CGColorSpaceRelease(space);
  return color;
}

}  // namespace

CGColorRef CGColorCreate(CGColorSpaceRef space, const CGFloat *components) {
  if (!space || !components) return nullptr;
  SIMColor *color = [[SIMColor alloc] init];
  color->_space = CGColorSpaceRetain(space);
  std::copy_n(components, CGColorSpaceGetNumberOfComponents(space) + 1, color->_components);
  return (CGColorRef)color;
}

CGColorRef CGColorCreateSRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return createOwning(CGColorSpaceCreateDeviceRGB(), {red, green, blue, alpha});
}

CGColorRef CGColorCreateGenericGray(CGFloat gray, CGFloat alpha) {
  return createOwning(CGColorSpaceCreateDeviceGray(), {gray, alpha});
}

CGColorRef CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha) {
  if (!color) return nullptr;
  const CGColorRef copy = CGColorCreate(object(color)->_space, object(color)->_components);
  ((SIMColor *)copy)->_components[CGColorGetNumberOfComponents(color) - 1] = alpha;
  return copy;
}

CGColorRef CGColorRetain(CGColorRef color) { return (CGColorRef)[(id)color retain]; }
void CGColorRelease(CGColorRef color) { [(id)color release]; }

bool CGColorEqualToColor(CGColorRef a, CGColorRef b) {
  if (a == b) return true;
  if (!a || !b || CGColorGetNumberOfComponents(a) != CGColorGetNumberOfComponents(b)) return false;
  return std::equal(object(a)->_components, object(a)->_components + CGColorGetNumberOfComponents(a),
                    object(b)->_components);
}

size_t CGColorGetNumberOfComponents(CGColorRef color) {
  return color ? CGColorSpaceGetNumberOfComponents(object(color)->_space) + 1 : 0;
}

const CGFloat *CGColorGetComponents(CGColorRef color) { return color ? object(color)->_components : nullptr; }

CGFloat CGColorGetAlpha(CGColorRef color) {
  return color ? object(color)->_components[CGColorGetNumberOfComponents(color) - 1] : 0;
}

CGColorSpaceRef CGColorGetColorSpace(CGColorRef color) { return color ? object(color)->_space : nullptr; }

namespace sim {

RGBA components(CGColorRef color) noexcept {
  if (!color) return {};
  const CGFloat *c = CGColorGetComponents(color);
  if (CGColorGetNumberOfComponents(color) == 2) return {c[0], c[0], c[0], c[1]};
  return {c[0], c[1], c[2], c[3]};
}

bool isColor(id object) { return [object isKindOfClass:[SIMColor class]]; }

}  // namespace sim
