#import <UIKit/UIBlurEffect+Sim.h>
#import <UIKit/UITraitCollection.h>

namespace {

/// Grey and opacity of a tint.
struct Tint {
  CGFloat white, alpha;
};

struct Material {
  Tint light, dark;
};

// Apple gives no numbers: these look as the styles of iOS 15 do beside each other.
constexpr Material kExtraLight{{0.97, 0.82}, {0.97, 0.82}};
constexpr Material kLight{{1, 0.3}, {1, 0.3}};
constexpr Material kDark{{0.11, 0.73}, {0.11, 0.73}};
constexpr Material kUltraThin{{0.97, 0.42}, {0.14, 0.48}};
constexpr Material kThin{{0.97, 0.6}, {0.14, 0.62}};
constexpr Material kMaterial{{0.97, 0.72}, {0.14, 0.74}};
constexpr Material kThick{{0.97, 0.84}, {0.14, 0.86}};
constexpr Material kChrome{{0.97, 0.78}, {0.11, 0.78}};

constexpr CGFloat kRadius = 20;
constexpr CGFloat kSaturation = 1.8;

constexpr UIBlurEffectStyle kFirstLight = UIBlurEffectStyleSystemUltraThinMaterialLight;
constexpr UIBlurEffectStyle kFirstDark = UIBlurEffectStyleSystemUltraThinMaterialDark;

/// The five materials, in the order of their styles.
constexpr Material kMaterials[] = {kUltraThin, kThin, kMaterial, kThick, kChrome};

Material materialOf(UIBlurEffectStyle style) {
  switch (style) {
    case UIBlurEffectStyleExtraLight: return kExtraLight;
    case UIBlurEffectStyleLight: return kLight;
    case UIBlurEffectStyleDark: return kDark;
    case UIBlurEffectStyleProminent: return {kExtraLight.light, kDark.dark};
    default: break;
  }
  if (style >= kFirstDark && style <= UIBlurEffectStyleSystemChromeMaterialDark) {
    const Tint dark = kMaterials[style - kFirstDark].dark;
    return {dark, dark};
  }
  if (style >= kFirstLight && style < kFirstDark) {
    const Tint light = kMaterials[style - kFirstLight].light;
    return {light, light};
  }
  if (style >= UIBlurEffectStyleSystemUltraThinMaterial && style < kFirstLight) {
    return kMaterials[style - UIBlurEffectStyleSystemUltraThinMaterial];
  }
  return {kLight.light, kDark.dark};
}

UIColor *colorOf(const Tint &tint) { return [UIColor colorWithWhite:tint.white alpha:tint.alpha]; }

}  // namespace

@implementation UIBlurEffect

+ (UIBlurEffect *)effectWithStyle:(UIBlurEffectStyle)style {
  UIBlurEffect *effect = [[[self alloc] init] autorelease];
  effect->_style = style;
  return effect;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _style = UIBlurEffectStyleRegular;
  return self;
}

- (BOOL)isEqual:(id)object {
  return [object isKindOfClass:[UIBlurEffect class]] && ((UIBlurEffect *)object)->_style == _style;
}

- (NSUInteger)hash {
  return NSUInteger(_style);
}

@end

@implementation UIBlurEffect (Sim)

- (UIBlurEffectStyle)sim_style {
  return _style;
}

- (UIColor *)sim_tint {
  const Material material = materialOf(_style);
  UIColor *light = colorOf(material.light);
  UIColor *dark = colorOf(material.dark);
  return [UIColor colorWithDynamicProvider:^(UITraitCollection *traits) {
    return [traits userInterfaceStyle] == UIUserInterfaceStyleDark ? dark : light;
  }];
}

- (CGFloat)sim_radius {
  return kRadius;
}

- (CGFloat)sim_saturation {
  return kSaturation;
}

@end
