// A blur of what lies behind a view, under a tint.
#pragma once

#import <UIKit/UIVisualEffect.h>

typedef NS_ENUM(NSInteger, UIBlurEffectStyle) {
  UIBlurEffectStyleExtraLight,
  UIBlurEffectStyleLight,
  UIBlurEffectStyleDark,
  /// Light or dark, as the appearance is.
  UIBlurEffectStyleRegular = 4,
  /// Extra light or dark.
  UIBlurEffectStyleProminent,
  /// These go by the appearance,
  UIBlurEffectStyleSystemUltraThinMaterial,
  UIBlurEffectStyleSystemThinMaterial,
  UIBlurEffectStyleSystemMaterial,
  UIBlurEffectStyleSystemThickMaterial,
  UIBlurEffectStyleSystemChromeMaterial,
  /// these are always light,
  UIBlurEffectStyleSystemUltraThinMaterialLight,
  UIBlurEffectStyleSystemThinMaterialLight,
  UIBlurEffectStyleSystemMaterialLight,
  UIBlurEffectStyleSystemThickMaterialLight,
  UIBlurEffectStyleSystemChromeMaterialLight,
  /// and these always dark.
  UIBlurEffectStyleSystemUltraThinMaterialDark,
  UIBlurEffectStyleSystemThinMaterialDark,
  UIBlurEffectStyleSystemMaterialDark,
  UIBlurEffectStyleSystemThickMaterialDark,
  UIBlurEffectStyleSystemChromeMaterialDark,
};

@interface UIBlurEffect : UIVisualEffect {
 @private
  UIBlurEffectStyle _style;
}
/// A style that there is not counts as regular.
+ (UIBlurEffect *)effectWithStyle:(UIBlurEffectStyle)style;
@end
