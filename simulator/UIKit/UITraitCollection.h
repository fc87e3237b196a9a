// Traits: the appearance, the kind of device and the scale.
#pragma once

#import <CoreGraphics/CGBase.h>
#import <UIKit/UIDevice.h>

typedef NS_ENUM(NSInteger, UIUserInterfaceStyle) {
  UIUserInterfaceStyleUnspecified,
  UIUserInterfaceStyleLight,
  UIUserInterfaceStyleDark,
};

typedef NS_ENUM(NSInteger, UIUserInterfaceSizeClass) {
  UIUserInterfaceSizeClassUnspecified = 0,
  UIUserInterfaceSizeClassCompact = 1,
  UIUserInterfaceSizeClassRegular = 2,
};

/// Immutable.
@interface UITraitCollection : NSObject <NSCopying> {
 @private
  UIUserInterfaceStyle _userInterfaceStyle;
  UIUserInterfaceIdiom _userInterfaceIdiom;
  UIUserInterfaceSizeClass _horizontalSizeClass;
  UIUserInterfaceSizeClass _verticalSizeClass;
  CGFloat _displayScale;
}
/// The traits of the main screen. While a dynamic colour is being resolved: those that it is resolved for.
+ (UITraitCollection *)currentTraitCollection;
+ (UITraitCollection *)traitCollectionWithUserInterfaceStyle:(UIUserInterfaceStyle)style;
@property(nonatomic, readonly) UIUserInterfaceStyle userInterfaceStyle;
@property(nonatomic, readonly) UIUserInterfaceIdiom userInterfaceIdiom;
@property(nonatomic, readonly) UIUserInterfaceSizeClass horizontalSizeClass;
@property(nonatomic, readonly) UIUserInterfaceSizeClass verticalSizeClass;
@property(nonatomic, readonly) CGFloat displayScale;
/// Whether a dynamic colour may look different under the two.
- (BOOL)hasDifferentColorAppearanceComparedToTraitCollection:(UITraitCollection *)other;
@end

@protocol UITraitEnvironment <NSObject>
- (UITraitCollection *)traitCollection;
- (void)traitCollectionDidChange:(UITraitCollection *)previous;
@end
