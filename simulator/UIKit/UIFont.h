// Fonts: the system's, and those of a device's families, for which fonts of the same widths or kind stand in. Sizes and
// metrics are in points.
#pragma once

#import <CoreGraphics/CGBase.h>
#import <UIKit/UIKitDefines.h>

typedef CGFloat UIFontWeight;
UIKIT_EXTERN const UIFontWeight UIFontWeightUltraLight;
UIKIT_EXTERN const UIFontWeight UIFontWeightThin;
UIKIT_EXTERN const UIFontWeight UIFontWeightLight;
UIKIT_EXTERN const UIFontWeight UIFontWeightRegular;
UIKIT_EXTERN const UIFontWeight UIFontWeightMedium;
UIKIT_EXTERN const UIFontWeight UIFontWeightSemibold;
UIKIT_EXTERN const UIFontWeight UIFontWeightBold;
UIKIT_EXTERN const UIFontWeight UIFontWeightHeavy;
UIKIT_EXTERN const UIFontWeight UIFontWeightBlack;

typedef NSString *UIFontTextStyle;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleLargeTitle;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleTitle1;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleTitle2;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleTitle3;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleHeadline;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleSubheadline;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleBody;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleCallout;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleFootnote;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleCaption1;
UIKIT_EXTERN UIFontTextStyle const UIFontTextStyleCaption2;

@class UIFontDescriptor;

/// Immutable.
@interface UIFont : NSObject <NSCopying> {
 @private
  CGFloat _pointSize;
  UIFontWeight _weight;
  BOOL _italic;
  BOOL _tabularDigits;
  NSInteger _typeface;
  const void *_family;
}
/// By the name of a face, or of a family for its plain face. nil for a name that no font of a device has.
+ (UIFont *)fontWithName:(NSString *)fontName size:(CGFloat)fontSize;
@property(class, nonatomic, readonly) NSArray<NSString *> *familyNames;
/// Empty for an unknown family.
+ (NSArray<NSString *> *)fontNamesForFamilyName:(NSString *)familyName;
/// A size of 0 or less: the descriptor's.
+ (UIFont *)fontWithDescriptor:(UIFontDescriptor *)descriptor size:(CGFloat)pointSize;
@property(nonatomic, readonly) UIFontDescriptor *fontDescriptor;
/// A size of 0 or less gives 14 points (the system size).
+ (UIFont *)systemFontOfSize:(CGFloat)size;
+ (UIFont *)systemFontOfSize:(CGFloat)size weight:(UIFontWeight)weight;
+ (UIFont *)boldSystemFontOfSize:(CGFloat)size;
+ (UIFont *)italicSystemFontOfSize:(CGFloat)size;
/// All digits are of one width.
+ (UIFont *)monospacedDigitSystemFontOfSize:(CGFloat)fontSize weight:(UIFontWeight)weight;
+ (UIFont *)monospacedSystemFontOfSize:(CGFloat)fontSize weight:(UIFontWeight)weight;
/// At the standard text size. An unknown style gives the body font.
+ (UIFont *)preferredFontForTextStyle:(UIFontTextStyle)style;
- (UIFont *)fontWithSize:(CGFloat)size;

+ (CGFloat)labelFontSize;
+ (CGFloat)buttonFontSize;
+ (CGFloat)smallSystemFontSize;
+ (CGFloat)systemFontSize;

@property(nonatomic, readonly) NSString *familyName;
@property(nonatomic, readonly) NSString *fontName;
@property(nonatomic, readonly) CGFloat pointSize;
@property(nonatomic, readonly) CGFloat ascender;
/// Negative.
@property(nonatomic, readonly) CGFloat descender;
@property(nonatomic, readonly) CGFloat capHeight;
@property(nonatomic, readonly) CGFloat xHeight;
@property(nonatomic, readonly) CGFloat lineHeight;
@property(nonatomic, readonly) CGFloat leading;
@end
