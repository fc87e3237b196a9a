#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIImageConfiguration+Sim.h>
#import <UIKit/UIImageSymbolConfiguration+Sim.h>

#include <array>
#include <cmath>

namespace {

constexpr CGFloat kDefaultPointSize = 17;

/// How large the small and the large drawings of a symbol are beside the medium one.
constexpr CGFloat kSmall = 0.79;
constexpr CGFloat kLarge = 1.28;

/// From the lightest to the heaviest.
std::array<UIFontWeight, 9> fontWeights() {
  return {UIFontWeightUltraLight, UIFontWeightThin, UIFontWeightLight, UIFontWeightRegular, UIFontWeightMedium,
          UIFontWeightSemibold,   UIFontWeightBold, UIFontWeightHeavy, UIFontWeightBlack};
}

bool isWeight(UIImageSymbolWeight weight) {
  return weight >= UIImageSymbolWeightUltraLight && weight <= UIImageSymbolWeightBlack;
}

}  // namespace

UIFontWeight UIFontWeightForImageSymbolWeight(UIImageSymbolWeight symbolWeight) {
  return isWeight(symbolWeight) ? fontWeights()[std::size_t(symbolWeight - UIImageSymbolWeightUltraLight)]
                                : UIFontWeightRegular;
}

UIImageSymbolWeight UIImageSymbolWeightForFontWeight(UIFontWeight fontWeight) {
  UIImageSymbolWeight nearest = UIImageSymbolWeightRegular;
  for (NSInteger weight = UIImageSymbolWeightUltraLight; weight <= UIImageSymbolWeightBlack; ++weight) {
    const auto off = [&](NSInteger of) {
      return std::abs(UIFontWeightForImageSymbolWeight(UIImageSymbolWeight(of)) - fontWeight);
    };
    if (off(weight) < off(nearest)) nearest = UIImageSymbolWeight(weight);
  }
  return nearest;
}

@implementation UIImageSymbolConfiguration

+ (UIImageSymbolConfiguration *)unspecifiedConfiguration {
  return [UIImageSymbolConfiguration sim_unspecified];
}

+ (instancetype)configurationWithScale:(UIImageSymbolScale)scale {
  return [self configurationWithPointSize:0 weight:UIImageSymbolWeightUnspecified scale:scale];
}

+ (instancetype)configurationWithPointSize:(CGFloat)pointSize {
  return [self configurationWithPointSize:pointSize weight:UIImageSymbolWeightUnspecified];
}

+ (instancetype)configurationWithWeight:(UIImageSymbolWeight)weight {
  return [self configurationWithPointSize:0 weight:weight];
}

+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(UIImageSymbolWeight)weight {
  return [self configurationWithPointSize:pointSize weight:weight scale:UIImageSymbolScaleUnspecified];
}

+ (instancetype)configurationWithPointSize:(CGFloat)pointSize
                                    weight:(UIImageSymbolWeight)weight
                                     scale:(UIImageSymbolScale)scale {
  UIImageSymbolConfiguration *made = [self sim_unspecified];
  made->_pointSize = pointSize > 0 && std::isfinite(pointSize) ? pointSize : 0;
  made->_weight = isWeight(weight) ? weight : UIImageSymbolWeightUnspecified;
  made->_scale = scale;
  return made;
}

+ (instancetype)configurationWithTextStyle:(UIFontTextStyle)textStyle {
  return [self configurationWithTextStyle:textStyle scale:UIImageSymbolScaleUnspecified];
}

+ (instancetype)configurationWithTextStyle:(UIFontTextStyle)textStyle scale:(UIImageSymbolScale)scale {
  UIImageSymbolConfiguration *made = [self configurationWithScale:scale];
  made->_textStyle = [textStyle copy];
  return made;
}

+ (instancetype)configurationWithFont:(UIFont *)font {
  return [self configurationWithFont:font scale:UIImageSymbolScaleUnspecified];
}

+ (instancetype)configurationWithFont:(UIFont *)font scale:(UIImageSymbolScale)scale {
  if (!font) return [self configurationWithScale:scale];
  return [self configurationWithPointSize:[font pointSize]
                                   weight:UIImageSymbolWeightForFontWeight([font sim_weight])
                                    scale:scale];
}

- (void)dealloc {
  [_textStyle release];
  [super dealloc];
}

- (instancetype)sim_changeableCopy {
  UIImageSymbolConfiguration *copy = [super sim_changeableCopy];
  copy->_pointSize = _pointSize;
  copy->_weight = _weight;
  copy->_scale = _scale;
  copy->_textStyle = [_textStyle retain];
  return copy;
}

- (instancetype)configurationWithoutTextStyle {
  UIImageSymbolConfiguration *copy = [self sim_changeableCopy];
  [copy->_textStyle release];
  copy->_textStyle = nil;
  return copy;
}

- (instancetype)configurationWithoutScale {
  UIImageSymbolConfiguration *copy = [self sim_changeableCopy];
  copy->_scale = UIImageSymbolScaleUnspecified;
  return copy;
}

- (instancetype)configurationWithoutWeight {
  UIImageSymbolConfiguration *copy = [self sim_changeableCopy];
  copy->_weight = UIImageSymbolWeightUnspecified;
  return copy;
}

- (instancetype)configurationWithoutPointSizeAndWeight {
  UIImageSymbolConfiguration *copy = [self configurationWithoutWeight];
  copy->_pointSize = 0;
  return copy;
}

// A size and a text style take each other's place.
- (instancetype)configurationByApplyingConfiguration:(UIImageConfiguration *)otherConfiguration {
  UIImageSymbolConfiguration *made = [super configurationByApplyingConfiguration:otherConfiguration];
  if (![otherConfiguration isKindOfClass:[UIImageSymbolConfiguration class]]) return made;
  const UIImageSymbolConfiguration *other = (UIImageSymbolConfiguration *)otherConfiguration;
  if (other->_weight != UIImageSymbolWeightUnspecified) made->_weight = other->_weight;
  if (other->_scale != UIImageSymbolScaleUnspecified) made->_scale = other->_scale;
  if (other->_pointSize > 0 || other->_textStyle) {
    made->_pointSize = other->_pointSize;
    [made->_textStyle autorelease];
    made->_textStyle = [other->_textStyle copy];
  }
  return made;
}

- (BOOL)isEqualToConfiguration:(UIImageSymbolConfiguration *)otherConfiguration {
  return [self isEqual:otherConfiguration];
}

- (BOOL)isEqual:(id)object {
  if (![super isEqual:object]) return NO;
  const UIImageSymbolConfiguration *other = object;
  return _pointSize == other->_pointSize && _weight == other->_weight && _scale == other->_scale &&
         (_textStyle == other->_textStyle || [_textStyle isEqualToString:other->_textStyle]);
}

- (NSUInteger)hash {
  return [super hash] + NSUInteger(_pointSize) + NSUInteger(_weight);
}

- (CGFloat)sim_em {
  const CGFloat styled = _textStyle ? [[UIFont preferredFontForTextStyle:_textStyle] pointSize] : kDefaultPointSize;
  const CGFloat size = _pointSize > 0 ? _pointSize : styled;
  return _scale == UIImageSymbolScaleSmall ? size * kSmall : _scale == UIImageSymbolScaleLarge ? size * kLarge : size;
}

- (UIImageSymbolWeight)sim_weight {
  if (_weight != UIImageSymbolWeightUnspecified) return _weight;
  if (!_textStyle) return UIImageSymbolWeightRegular;
  return UIImageSymbolWeightForFontWeight([[UIFont preferredFontForTextStyle:_textStyle] sim_weight]);
}

@end
