#import <UIKit/NSText+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIFontDescriptor.h>

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

const sim::FontFamily *familyOf(const void *family) { return static_cast<const sim::FontFamily *>(family); }

NSString *stringOf(std::string_view text) {
  return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding] autorelease];
}

UIFontWeight weightOf(int number) { return std::ranges::find(kWeights, number, &NamedWeight::number)->weight; }

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
  return [self sim_fontWithSize:size weight:_weight italic:_italic];
}

- (UIFont *)sim_fontWithSize:(CGFloat)size weight:(UIFontWeight)weight italic:(BOOL)italic {
  UIFont *font = [UIFont sim_fontOfSize:size weight:weight italic:italic];
  font->_tabularDigits = _tabularDigits;
  font->_typeface = _typeface;
  font->_family = _family;
  return font;
}

- (UIFont *)sim_fontOfTypeface:(sim::Typeface)typeface {
  UIFont *font = [self fontWithSize:_pointSize];
  font->_typeface = NSInteger(typeface);
  font->_family = nullptr;
  return font;
}

+ (UIFont *)fontWithName:(NSString *)fontName size:(CGFloat)fontSize {
  if ([fontName hasPrefix:@".SFUI"] || [fontName hasPrefix:@".AppleSystemUIFont"]) {
    return [self systemFontOfSize:fontSize];
  }
  const auto [family, face] = sim::fontNamed(sim::utf8(fontName));
  if (!face) return nil;
  UIFont *font = [self sim_fontOfSize:fontSize weight:weightOf(face->weight) italic:face->italic];
  font->_typeface = NSInteger(family->typeface);
  font->_family = family;
  return font;
}

+ (NSArray *)familyNames {
  NSMutableArray *names = [NSMutableArray array];
  for (const sim::FontFamily &family : sim::fontFamilies()) [names addObject:stringOf(family.name)];
  return names;
}

+ (NSArray *)fontNamesForFamilyName:(NSString *)familyName {
  NSMutableArray *names = [NSMutableArray array];
  if (const sim::FontFamily *family = sim::fontFamily(sim::utf8(familyName))) {
    for (const sim::FontFace &face : family->faces) [names addObject:stringOf(face.name)];
  }
  return names;
}

+ (UIFont *)monospacedDigitSystemFontOfSize:(CGFloat)fontSize weight:(UIFontWeight)weight {
  UIFont *font = [self systemFontOfSize:fontSize weight:weight];
  font->_tabularDigits = YES;
  return font;
}

+ (UIFont *)monospacedSystemFontOfSize:(CGFloat)fontSize weight:(UIFontWeight)weight {
  return [[self systemFontOfSize:fontSize weight:weight] sim_fontOfTypeface:sim::Typeface::mono];
}

+ (UIFont *)fontWithDescriptor:(UIFontDescriptor *)descriptor size:(CGFloat)pointSize {
  UIFont *font = [descriptor sim_font];
  return pointSize > 0 ? [font fontWithSize:pointSize] : font;
}

- (UIFontDescriptor *)fontDescriptor {
  return [UIFontDescriptor sim_descriptorOfFont:self];
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
  return _family ? stringOf(familyOf(_family)->name) : @".AppleSystemUIFont";
}

- (NSString *)fontName {
  const NamedWeight &weight = nearest(_weight);
  if (_family) return stringOf(sim::nearestFace(*familyOf(_family), weight.number, _italic).name);
  NSString *start = _typeface == NSInteger(sim::Typeface::mono) ? @".SFUIMono" : @".SFUI";
  if (!_italic) return [NSString stringWithFormat:@"%@-%@", start, weight.name];
  return [NSString stringWithFormat:@"%@-%@Italic", start, weight.number == 400 ? @"" : weight.name];
}

- (sim::FontShares)sim_shares {
  return sim::sharesOf(sim::Typeface(_typeface));
}

@synthesize pointSize = _pointSize;

- (CGFloat)ascender {
  return _pointSize * [self sim_shares].ascender;
}

- (CGFloat)descender {
  return _pointSize * [self sim_shares].descender;
}

- (CGFloat)capHeight {
  return _pointSize * [self sim_shares].capHeight;
}

- (CGFloat)xHeight {
  return _pointSize * [self sim_shares].xHeight;
}

- (CGFloat)lineHeight {
  return _pointSize * ([self sim_shares].ascender - [self sim_shares].descender);
}

- (CGFloat)leading {
  return _pointSize * [self sim_shares].leading;
}

- (BOOL)isEqual:(id)object {
  if (![object isKindOfClass:[UIFont class]]) return NO;
  const UIFont *other = object;
  return _pointSize == other->_pointSize && _weight == other->_weight && !_italic == !other->_italic &&
         !_tabularDigits == !other->_tabularDigits && _typeface == other->_typeface && _family == other->_family;
}

- (NSUInteger)hash {
  return NSUInteger(_pointSize * 8) + NSUInteger(nearest(_weight).number);
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (UIFontWeight)sim_weight {
  return _weight;
}

- (sim::TextStyle)sim_textStyle {
  return {_pointSize, nearest(_weight).number, bool(_italic), sim::Typeface(_typeface), bool(_tabularDigits)};
}

@end

namespace sim {

TextStyle textStyle(UIFont *font) {
  if (!font) font = [UIFont preferredFontForTextStyle:UIFontTextStyleBody];
  return [font sim_textStyle];
}

}  // namespace sim
