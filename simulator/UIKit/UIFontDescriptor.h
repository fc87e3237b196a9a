// What a font is asked for by.
#pragma once

#import <UIKit/UIFont.h>

typedef NS_OPTIONS(uint32_t, UIFontDescriptorSymbolicTraits) {
  UIFontDescriptorTraitItalic = 1u << 0,
  UIFontDescriptorTraitBold = 1u << 1,
  UIFontDescriptorTraitMonoSpace = 1u << 10,
  UIFontDescriptorClassMask = 0xF0000000,
  UIFontDescriptorClassSansSerif = 8u << 28,
};

typedef NSString *UIFontDescriptorAttributeName;
UIKIT_EXTERN UIFontDescriptorAttributeName const UIFontDescriptorFamilyAttribute;
UIKIT_EXTERN UIFontDescriptorAttributeName const UIFontDescriptorNameAttribute;
UIKIT_EXTERN UIFontDescriptorAttributeName const UIFontDescriptorSizeAttribute;
UIKIT_EXTERN UIFontDescriptorAttributeName const UIFontDescriptorTraitsAttribute;

typedef NSString *UIFontDescriptorTraitKey;
UIKIT_EXTERN UIFontDescriptorTraitKey const UIFontSymbolicTrait;
UIKIT_EXTERN UIFontDescriptorTraitKey const UIFontWeightTrait;

typedef NSString *UIFontDescriptorSystemDesign;
UIKIT_EXTERN UIFontDescriptorSystemDesign const UIFontDescriptorSystemDesignDefault;
UIKIT_EXTERN UIFontDescriptorSystemDesign const UIFontDescriptorSystemDesignRounded;
UIKIT_EXTERN UIFontDescriptorSystemDesign const UIFontDescriptorSystemDesignSerif;
UIKIT_EXTERN UIFontDescriptorSystemDesign const UIFontDescriptorSystemDesignMonospaced;

/// Immutable. Of a family or name that no font has, the system's font comes out.
@interface UIFontDescriptor : NSObject <NSCopying> {
 @private
  UIFont *_font;
}
+ (UIFontDescriptor *)fontDescriptorWithFontAttributes:(NSDictionary<UIFontDescriptorAttributeName, id> *)attributes;
+ (UIFontDescriptor *)fontDescriptorWithName:(NSString *)fontName size:(CGFloat)size;
+ (UIFontDescriptor *)preferredFontDescriptorWithTextStyle:(UIFontTextStyle)style;
/// 12 points until told otherwise.
- (instancetype)initWithFontAttributes:(NSDictionary<UIFontDescriptorAttributeName, id> *)attributes;

@property(nonatomic, readonly) NSString *postscriptName;
@property(nonatomic, readonly) CGFloat pointSize;
@property(nonatomic, readonly) UIFontDescriptorSymbolicTraits symbolicTraits;
@property(nonatomic, readonly) NSDictionary<UIFontDescriptorAttributeName, id> *fontAttributes;
- (id)objectForKey:(UIFontDescriptorAttributeName)anAttribute;

- (UIFontDescriptor *)fontDescriptorByAddingAttributes:(NSDictionary<UIFontDescriptorAttributeName, id> *)attributes;
/// In place of the receiver's.
- (UIFontDescriptor *)fontDescriptorWithSymbolicTraits:(UIFontDescriptorSymbolicTraits)symbolicTraits;
- (UIFontDescriptor *)fontDescriptorWithSize:(CGFloat)newPointSize;
- (UIFontDescriptor *)fontDescriptorWithFamily:(NSString *)newFamily;
/// nil for a font that is not the system's. Rounded letters are not carried: they are the plain ones.
- (UIFontDescriptor *)fontDescriptorWithDesign:(UIFontDescriptorSystemDesign)design;
@end
