// The size and weight of a symbol, as of the text that it goes with.
#pragma once

#import <UIKit/UIFont.h>
#import <UIKit/UIImageConfiguration.h>

typedef NS_ENUM(NSInteger, UIImageSymbolScale) {
  UIImageSymbolScaleDefault = -1,     ///< The system's, whatever stands around.
  UIImageSymbolScaleUnspecified = 0,  ///< Left to what stands around.
  UIImageSymbolScaleSmall,
  UIImageSymbolScaleMedium,
  UIImageSymbolScaleLarge,
};

typedef NS_ENUM(NSInteger, UIImageSymbolWeight) {
  UIImageSymbolWeightUnspecified = 0,
  UIImageSymbolWeightUltraLight = 1,
  UIImageSymbolWeightThin,
  UIImageSymbolWeightLight,
  UIImageSymbolWeightRegular,
  UIImageSymbolWeightMedium,
  UIImageSymbolWeightSemibold,
  UIImageSymbolWeightBold,
  UIImageSymbolWeightHeavy,
  UIImageSymbolWeightBlack,
};

/// The regular weight for an unspecified one.
UIKIT_EXTERN UIFontWeight UIFontWeightForImageSymbolWeight(UIImageSymbolWeight symbolWeight);
/// The nearest one.
UIKIT_EXTERN UIImageSymbolWeight UIImageSymbolWeightForFontWeight(UIFontWeight fontWeight);

/// Immutable. What is not specified is 17 points, regular and of the medium scale, unless a view or an image says
/// otherwise. A size that is no positive number counts as not specified.
@interface UIImageSymbolConfiguration : UIImageConfiguration {
 @private
  CGFloat _pointSize;
  UIImageSymbolWeight _weight;
  UIImageSymbolScale _scale;
  UIFontTextStyle _textStyle;
}
/// Says nothing.
@property(class, nonatomic, readonly) UIImageSymbolConfiguration *unspecifiedConfiguration;
+ (instancetype)configurationWithScale:(UIImageSymbolScale)scale;
/// Points, of the font that the symbol goes with.
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize;
+ (instancetype)configurationWithWeight:(UIImageSymbolWeight)weight;
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(UIImageSymbolWeight)weight;
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize
                                    weight:(UIImageSymbolWeight)weight
                                     scale:(UIImageSymbolScale)scale;
/// The size of the style's font, and its weight where no other is specified.
+ (instancetype)configurationWithTextStyle:(UIFontTextStyle)textStyle;
+ (instancetype)configurationWithTextStyle:(UIFontTextStyle)textStyle scale:(UIImageSymbolScale)scale;
/// The font's size and weight.
+ (instancetype)configurationWithFont:(UIFont *)font;
+ (instancetype)configurationWithFont:(UIFont *)font scale:(UIImageSymbolScale)scale;
- (instancetype)configurationWithoutTextStyle;
- (instancetype)configurationWithoutScale;
- (instancetype)configurationWithoutWeight;
- (instancetype)configurationWithoutPointSizeAndWeight;
- (BOOL)isEqualToConfiguration:(UIImageSymbolConfiguration *)otherConfiguration;
@end
