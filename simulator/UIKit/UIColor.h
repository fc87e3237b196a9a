// Colours, fixed or dependent on the appearance.
#pragma once

#import <CoreGraphics/CGColor.h>
#import <UIKit/UIKitDefines.h>

#include <objcxx/HiddenState.h>

@class UITraitCollection;

SIM_STATE_TYPE(UIColorState);

/// Immutable. A dynamic colour answers component questions for the current traits (see UITraitCollection).
@interface UIColor : NSObject <NSCopying> {
 @private
  SIM_STATE(UIColorState, _state);
}
+ (UIColor *)colorWithWhite:(CGFloat)white alpha:(CGFloat)alpha;
+ (UIColor *)colorWithRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha;
+ (UIColor *)colorWithHue:(CGFloat)hue
               saturation:(CGFloat)saturation
               brightness:(CGFloat)brightness
                    alpha:(CGFloat)alpha;
+ (UIColor *)colorWithCGColor:(CGColorRef)color;
/// `provider` is copied and asked each time the colour is resolved; it must give a colour.
+ (UIColor *)colorWithDynamicProvider:(UIColor * (^)(UITraitCollection *traits))provider;
- (instancetype)initWithWhite:(CGFloat)white alpha:(CGFloat)alpha;
- (instancetype)initWithRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha;
- (instancetype)initWithCGColor:(CGColorRef)color;
- (instancetype)initWithDynamicProvider:(UIColor * (^)(UITraitCollection *traits))provider;

+ (UIColor *)blackColor;
+ (UIColor *)darkGrayColor;
+ (UIColor *)lightGrayColor;
+ (UIColor *)whiteColor;
+ (UIColor *)grayColor;
+ (UIColor *)redColor;
+ (UIColor *)greenColor;
+ (UIColor *)blueColor;
+ (UIColor *)cyanColor;
+ (UIColor *)yellowColor;
+ (UIColor *)magentaColor;
+ (UIColor *)orangeColor;
+ (UIColor *)purpleColor;
+ (UIColor *)brownColor;
+ (UIColor *)clearColor;

/// Out-of-range components are clamped in the results. Each pointer may be NULL. Always YES.
- (BOOL)getRed:(CGFloat *)red green:(CGFloat *)green blue:(CGFloat *)blue alpha:(CGFloat *)alpha;
/// NO, and nothing written, for a colour that is not grey.
- (BOOL)getWhite:(CGFloat *)white alpha:(CGFloat *)alpha;
- (BOOL)getHue:(CGFloat *)hue saturation:(CGFloat *)saturation brightness:(CGFloat *)brightness alpha:(CGFloat *)alpha;
- (UIColor *)colorWithAlphaComponent:(CGFloat)alpha;
- (UIColor *)resolvedColorWithTraitCollection:(UITraitCollection *)traits;
/// For the current traits; lives as long as the autorelease pool of the caller.
@property(nonatomic, readonly) CGColorRef CGColor;

/// Fill, stroke or both colours of the current image context.
- (void)set;
- (void)setFill;
- (void)setStroke;
@end

/// Colours that follow the appearance.
@interface UIColor (UIColorSystemColors)
+ (UIColor *)systemRedColor;
+ (UIColor *)systemGreenColor;
+ (UIColor *)systemBlueColor;
+ (UIColor *)systemOrangeColor;
+ (UIColor *)systemYellowColor;
+ (UIColor *)systemPinkColor;
+ (UIColor *)systemPurpleColor;
+ (UIColor *)systemTealColor;
+ (UIColor *)systemIndigoColor;
+ (UIColor *)systemBrownColor;
+ (UIColor *)systemMintColor;
+ (UIColor *)systemCyanColor;
+ (UIColor *)systemGrayColor;
+ (UIColor *)systemGray2Color;
+ (UIColor *)systemGray3Color;
+ (UIColor *)systemGray4Color;
+ (UIColor *)systemGray5Color;
+ (UIColor *)systemGray6Color;
+ (UIColor *)tintColor;

+ (UIColor *)labelColor;
+ (UIColor *)secondaryLabelColor;
+ (UIColor *)tertiaryLabelColor;
+ (UIColor *)quaternaryLabelColor;
+ (UIColor *)linkColor;
+ (UIColor *)placeholderTextColor;
+ (UIColor *)separatorColor;
+ (UIColor *)opaqueSeparatorColor;

+ (UIColor *)systemBackgroundColor;
+ (UIColor *)secondarySystemBackgroundColor;
+ (UIColor *)tertiarySystemBackgroundColor;
+ (UIColor *)systemGroupedBackgroundColor;
+ (UIColor *)secondarySystemGroupedBackgroundColor;
+ (UIColor *)tertiarySystemGroupedBackgroundColor;

+ (UIColor *)systemFillColor;
+ (UIColor *)secondarySystemFillColor;
+ (UIColor *)tertiarySystemFillColor;
+ (UIColor *)quaternarySystemFillColor;
+ (UIColor *)lightTextColor;
+ (UIColor *)darkTextColor;
+ (UIColor *)groupTableViewBackgroundColor;
@end
