// What makes content stand out from the blur that it lies on.
#pragma once

#import <UIKit/UIVisualEffect.h>

@class UIBlurEffect;

typedef NS_ENUM(NSInteger, UIVibrancyEffectStyle) {
  /// The content keeps its colours; in the other styles only its shape counts.
  UIVibrancyEffectStyleLabel,
  UIVibrancyEffectStyleSecondaryLabel,
  UIVibrancyEffectStyleTertiaryLabel,
  UIVibrancyEffectStyleQuaternaryLabel,
  UIVibrancyEffectStyleFill,
  UIVibrancyEffectStyleSecondaryFill,
  UIVibrancyEffectStyleTertiaryFill,
  UIVibrancyEffectStyleSeparator,
};

/// For the view in the content view of one that blurs. It is drawn in black or white, as opaque as the style wants.
@interface UIVibrancyEffect : UIVisualEffect {
 @private
  UIBlurEffect *_blurEffect;
  UIVibrancyEffectStyle _style;
}
/// Of the style for labels.
+ (UIVibrancyEffect *)effectForBlurEffect:(UIBlurEffect *)blurEffect;
+ (UIVibrancyEffect *)effectForBlurEffect:(UIBlurEffect *)blurEffect style:(UIVibrancyEffectStyle)style;
@end
