#import <UIKit/UIFont+Sim.h>

#include <algorithm>
#include <array>
#include <cmath>

const UIFontWeight UIFontWeightUltraLight = -0.8;
const UIFontWeight UIFontWeightThin = -0.6;
const UIFontWeight UIFontWeightLight = -0.4;
const UIFontWeight UIFontWeightRegular = 0;
const UIFontWeight UIFontWeightMedium = 0.23;
const UIFontWeight UIFontWeightSemibold = 0.3;
const UIFontWeight UIFontWeightBold = 0.4;
const UIFontWeight UIFontWeightHeavy = 0.56;
const UIFontWeight UIFontWeightBlack = 0.62;

UIFontTextStyle const UIFontTextStyleLargeTitle = @"UICTFontTextStyleTitle0";
UIFontTextStyle const UIFontTextStyleTitle1 = @"UICTFontTextStyleTitle1";
UIFontTextStyle const UIFontTextStyleTitle2 = @"UICTFontTextStyleTitle2";
UIFontTextStyle const UIFontTextStyleTitle3 = @"UICTFontTextStyleTitle3";
UIFontTextStyle const UIFontTextStyleHeadline = @"UICTFontTextStyleHeadline";
UIFontTextStyle const UIFontTextStyleSubheadline = @"UICTFontTextStyleSubhead";
UIFontTextStyle const UIFontTextStyleBody = @"UICTFontTextStyleBody";
UIFontTextStyle const UIFontTextStyleCallout = @"UICTFontTextStyleCallout";
UIFontTextStyle const UIFontTextStyleFootnote = @"UICTFontTextStyleFootnote";
UIFontTextStyle const UIFontTextStyleCaption1 = @"UICTFontTextStyleCaption1";
UIFontTextStyle const UIFontTextStyleCaption2 = @"UICTFontTextStyleCaption2";

namespace {

struct NamedWeight {
  UIFontWeight weight;
  int number;
  NSString *name;
};

const std::array<NamedWeight, 9> kWeights{{
    {-0.8, 100, @"Ultralight"},
    {-0.6, 200, @"Thin"},
    {-0.4, 300, @"Light"},
    {0, 400, @"Regular"},
    {0.23, 500, @"Medium"},
    {0.3, 600, @"Semibold"},
    {0.4, 700, @"Bold"},
    {0.56, 800, @"Heavy"},
    {0.62, 900, @"Black"},
}};

const NamedWeight &nearest(UIFontWeight weight) {
  return *std::min_element(kWeights.begin(), kWeights.end(), [&](const auto &one, const auto &other) {
    return std::abs(one.weight - weight) < std::abs(other.weight - weight);
  });
}

struct StyleSize {
  NSString *style;
  CGFloat size;
  UIFontWeight weight;
};

const std::array<StyleSize, 11> kStyleSizes{{
    {UIFontTextStyleLargeTitle, 34, 0},
    {UIFontTextStyleTitle1, 28, 0},
    {UIFontTextStyleTitle2, 22, 0},
    {UIFontTextStyleTitle3, 20, 0},
    {UIFontTextStyleHeadline, 17, 0.3},
    {UIFontTextStyleSubheadline, 15, 0},
    {UIFontTextStyleBody, 17, 0},
    {UIFontTextStyleCallout, 16, 0},
    {UIFontTextStyleFootnote, 13, 0},
    {UIFontTextStyleCaption1, 12, 0},
    {UIFontTextStyleCaption2, 11, 0},
}};

// The system font's vertical metrics as shares of its size.
constexpr CGFloat kAscenderShare = 0.9521484375;
constexpr CGFloat kDescenderShare = -0.2412109375;
constexpr CGFloat kCapHeightShare = 0.70458984375;
constexpr CGFloat kXHeightShare = 0.5263671875;

}  // namespace

@implementation UIFont

+ (UIFont *)sim_fontOfSize:(CGFloat)size weight:(UIFontWeight)weight italic:(BOOL)italic {
  UIFont *font = [[[UIFont alloc] init] autorelease];
  font->_pointSize = size > 0 && std::isfinite(size) ? size : [self systemFontSize];
  font->_weight = weight;
  font->_italic = italic;
  return font;
}

+ (UIFont *)systemFontOfSize:(CGFloat)size {
  return [self sim_fontOfSize:size weight:UIFontWeightRegular italic:NO];
}

+ (UIFont *)systemFontOfSize:(CGFloat)size weight:(UIFontWeight)weight {
  return [self sim_fontOfSize:size weight:weight italic:NO];
}

+ (UIFont *)boldSystemFontOfSize:(CGFloat)size {
  return [self sim_fontOfSize:size weight:UIFontWeightSemibold italic:NO];
}

+ (UIFont *)italicSystemFontOfSize:(CGFloat)size {
  return [self sim_fontOfSize:size weight:UIFontWeightRegular italic:YES];
}

+ (UIFont *)preferredFontForTextStyle:(UIFontTextStyle)style {
  for (const StyleSize &entry : kStyleSizes) {
    if ([entry.style isEqualToString:style]) return [self systemFontOfSize:entry.size weight:entry.weight];
  }
  return [self preferredFontForTextStyle:UIFontTextStyleBody];
}

- (UIFont *)fontWithSize:(CGFloat)size {
  return [UIFont sim_fontOfSize:size weight:_weight italic:_italic];
}

+ (CGFloat)labelFontSize {
  return 17;
}

+ (CGFloat)buttonFontSize {
  return 18;
}

+ (CGFloat)smallSystemFontSize {
  return 12;
}

+ (CGFloat)systemFontSize {
  return 14;
}

- (NSString *)familyName {
  return @".AppleSystemUIFont";
}

- (NSString *)fontName {
  const NamedWeight &weight = nearest(_weight);
  if (!_italic) return [@".SFUI-" stringByAppendingString:weight.name];
  return [NSString stringWithFormat:@".SFUI-%@Italic", weight.number == 400 ? @"" : weight.name];
}

@synthesize pointSize = _pointSize;

- (CGFloat)ascender {
  return _pointSize * kAscenderShare;
}

- (CGFloat)descender {
  return _pointSize * kDescenderShare;
}

- (CGFloat)capHeight {
  return _pointSize * kCapHeightShare;
}

- (CGFloat)xHeight {
  return _pointSize * kXHeightShare;
}

- (CGFloat)lineHeight {
  return _pointSize * (kAscenderShare - kDescenderShare);
}

- (CGFloat)leading {
  return 0;
}

- (BOOL)isEqual:(id)object {
  if (![object isKindOfClass:[UIFont class]]) return NO;
  const UIFont *other = object;
  return _pointSize == other->_pointSize && _weight == other->_weight && !_italic == !other->_italic;
}

- (NSUInteger)hash {
  return NSUInteger(_pointSize * 8) + NSUInteger(nearest(_weight).number);
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (sim::TextStyle)sim_textStyle {
  return {_pointSize, nearest(_weight).number, bool(_italic)};
}

@end

namespace sim {

TextStyle textStyle(UIFont *font) {
  if (!font) font = [UIFont preferredFontForTextStyle:UIFontTextStyleBody];
  return [font sim_textStyle];
}

}  // namespace sim
