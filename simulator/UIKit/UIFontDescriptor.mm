#import <UIKit/UIFont+Sim.h>

UIFontDescriptorAttributeName const UIFontDescriptorFamilyAttribute = @"NSFontFamilyAttribute";
UIFontDescriptorAttributeName const UIFontDescriptorNameAttribute = @"NSFontNameAttribute";
UIFontDescriptorAttributeName const UIFontDescriptorSizeAttribute = @"NSFontSizeAttribute";
UIFontDescriptorAttributeName const UIFontDescriptorTraitsAttribute = @"NSCTFontTraitsAttribute";
UIFontDescriptorTraitKey const UIFontSymbolicTrait = @"NSCTFontSymbolicTrait";
UIFontDescriptorTraitKey const UIFontWeightTrait = @"NSCTFontWeightTrait";
UIFontDescriptorSystemDesign const UIFontDescriptorSystemDesignDefault = @"NSCTFontUIFontDesignDefault";
UIFontDescriptorSystemDesign const UIFontDescriptorSystemDesignRounded = @"NSCTFontUIFontDesignRounded";
UIFontDescriptorSystemDesign const UIFontDescriptorSystemDesignSerif = @"NSCTFontUIFontDesignSerif";
UIFontDescriptorSystemDesign const UIFontDescriptorSystemDesignMonospaced = @"NSCTFontUIFontDesignMonospaced";

namespace {

constexpr CGFloat kPlainSize = 12;
/// From here on a weight counts as bold: that of the system's own bold font.
constexpr UIFontWeight kBold = 0.3;

UIFont *withTraits(UIFont *font, UIFontDescriptorSymbolicTraits traits) {
  const bool wasBold = [font sim_weight] >= kBold;
  const bool isBold = traits & UIFontDescriptorTraitBold;
  const UIFontWeight weight = wasBold == isBold ? [font sim_weight] : isBold ? UIFontWeightBold : UIFontWeightRegular;
  return [font sim_fontWithSize:[font pointSize] weight:weight italic:(traits & UIFontDescriptorTraitItalic) != 0];
}

UIFont *withAttributes(UIFont *font, NSDictionary *attributes) {
  NSString *name = [attributes objectForKey:UIFontDescriptorNameAttribute]
                       ?: [attributes objectForKey:UIFontDescriptorFamilyAttribute];
  if (name) font = [UIFont fontWithName:name size:[font pointSize]] ?: font;
  if (NSNumber *size = [attributes objectForKey:UIFontDescriptorSizeAttribute]) {
    font = [font fontWithSize:[size doubleValue]];
  }
  NSDictionary *traits = [attributes objectForKey:UIFontDescriptorTraitsAttribute];
  if (NSNumber *symbolic = [traits objectForKey:UIFontSymbolicTrait]) {
    font = withTraits(font, [symbolic unsignedIntValue]);
  }
  if (NSNumber *weight = [traits objectForKey:UIFontWeightTrait]) {
    font = [font sim_fontWithSize:[font pointSize] weight:[weight doubleValue] italic:sim::textStyle(font).italic];
  }
  return font;
}

}  // namespace

@implementation UIFontDescriptor

+ (UIFontDescriptor *)sim_descriptorOfFont:(UIFont *)font {
  UIFontDescriptor *descriptor = [[[self alloc] init] autorelease];
  [descriptor->_font release];
  descriptor->_font = [font retain];
  return descriptor;
}

+ (UIFontDescriptor *)fontDescriptorWithFontAttributes:(NSDictionary *)attributes {
  return [[[self alloc] initWithFontAttributes:attributes] autorelease];
}

+ (UIFontDescriptor *)fontDescriptorWithName:(NSString *)fontName size:(CGFloat)size {
  return [self sim_descriptorOfFont:[UIFont fontWithName:fontName size:size] ?: [UIFont systemFontOfSize:size]];
}

+ (UIFontDescriptor *)preferredFontDescriptorWithTextStyle:(UIFontTextStyle)style {
  return [self sim_descriptorOfFont:[UIFont preferredFontForTextStyle:style]];
}

- (instancetype)init {
  return [self initWithFontAttributes:nil];
}

- (instancetype)initWithFontAttributes:(NSDictionary *)attributes {
  if (!(self = [super init])) return nil;
  _font = [withAttributes([UIFont systemFontOfSize:kPlainSize], attributes) retain];
  return self;
}

- (void)dealloc {
  [_font release];
  [super dealloc];
}

- (UIFont *)sim_font {
  return _font;
}

- (NSString *)postscriptName {
  return [_font fontName];
}

- (CGFloat)pointSize {
  return [_font pointSize];
}

- (UIFontDescriptorSymbolicTraits)symbolicTraits {
  const sim::TextStyle style = sim::textStyle(_font);
  UIFontDescriptorSymbolicTraits traits = 0;
  if (style.italic) traits |= UIFontDescriptorTraitItalic;
  if ([_font sim_weight] >= kBold) traits |= UIFontDescriptorTraitBold;
  if (style.typeface == sim::Typeface::mono) traits |= UIFontDescriptorTraitMonoSpace;
  if (style.typeface == sim::Typeface::sans) traits |= UIFontDescriptorClassSansSerif;
  return traits;
}

- (NSDictionary *)fontAttributes {
  NSDictionary *traits = [NSDictionary
      dictionaryWithObjectsAndKeys:[NSNumber numberWithUnsignedInt:[self symbolicTraits]], UIFontSymbolicTrait,
                                   [NSNumber numberWithDouble:[_font sim_weight]], UIFontWeightTrait, nil];
  return [NSDictionary
      dictionaryWithObjectsAndKeys:[_font familyName], UIFontDescriptorFamilyAttribute, [_font fontName],
                                   UIFontDescriptorNameAttribute, [NSNumber numberWithDouble:[_font pointSize]],
                                   UIFontDescriptorSizeAttribute, traits, UIFontDescriptorTraitsAttribute, nil];
}

- (id)objectForKey:(UIFontDescriptorAttributeName)anAttribute {
  return anAttribute ? [[self fontAttributes] objectForKey:anAttribute] : nil;
}

- (UIFontDescriptor *)fontDescriptorByAddingAttributes:(NSDictionary *)attributes {
  return [UIFontDescriptor sim_descriptorOfFont:withAttributes(_font, attributes)];
}

- (UIFontDescriptor *)fontDescriptorWithSymbolicTraits:(UIFontDescriptorSymbolicTraits)symbolicTraits {
  return [UIFontDescriptor sim_descriptorOfFont:withTraits(_font, symbolicTraits)];
}

- (UIFontDescriptor *)fontDescriptorWithSize:(CGFloat)newPointSize {
  return [UIFontDescriptor sim_descriptorOfFont:[_font fontWithSize:newPointSize]];
}

- (UIFontDescriptor *)fontDescriptorWithFamily:(NSString *)newFamily {
  return [UIFontDescriptor sim_descriptorOfFont:[UIFont fontWithName:newFamily size:[_font pointSize]] ?: _font];
}

- (UIFontDescriptor *)fontDescriptorWithDesign:(UIFontDescriptorSystemDesign)design {
  if (![[_font familyName] hasPrefix:@"."]) return nil;
  sim::Typeface typeface = sim::Typeface::system;
  if ([design isEqualToString:UIFontDescriptorSystemDesignSerif]) typeface = sim::Typeface::serif;
  if ([design isEqualToString:UIFontDescriptorSystemDesignMonospaced]) typeface = sim::Typeface::mono;
  return [UIFontDescriptor sim_descriptorOfFont:[_font sim_fontOfTypeface:typeface]];
}

- (BOOL)isEqual:(id)object {
  return [object isKindOfClass:[UIFontDescriptor class]] && [((UIFontDescriptor *)object)->_font isEqual:_font];
}

- (NSUInteger)hash {
  return [_font hash];
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

@end
