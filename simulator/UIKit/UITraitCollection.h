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
/// Each part that is not unspecified as in the last of the collections that specifies it.
+ (UITraitCollection *)traitCollectionWithTraitsFromCollections:(NSArray<UITraitCollection *> *)traitCollections;
+ (UITraitCollection *)traitCollectionWithUserInterfaceStyle:(UIUserInterfaceStyle)style;
+ (UITraitCollection *)traitCollectionWithUserInterfaceIdiom:(UIUserInterfaceIdiom)idiom;
+ (UITraitCollection *)traitCollectionWithHorizontalSizeClass:(UIUserInterfaceSizeClass)sizeClass;
+ (UITraitCollection *)traitCollectionWithVerticalSizeClass:(UIUserInterfaceSizeClass)sizeClass;
+ (UITraitCollection *)traitCollectionWithDisplayScale:(CGFloat)scale;
@property(nonatomic, readonly) UIUserInterfaceStyle userInterfaceStyle;
@property(nonatomic, readonly) UIUserInterfaceIdiom userInterfaceIdiom;
@property(nonatomic, readonly) UIUserInterfaceSizeClass horizontalSizeClass;
@property(nonatomic, readonly) UIUserInterfaceSizeClass verticalSizeClass;
@property(nonatomic, readonly) CGFloat displayScale;
/// Whether everything that `trait` specifies is the same here. YES for nil.
- (BOOL)containsTraitsInCollection:(UITraitCollection *)trait;
/// Whether a dynamic colour may look different under the two.
- (BOOL)hasDifferentColorAppearanceComparedToTraitCollection:(UITraitCollection *)other;
@end

@interface UITraitCollection (CurrentTraitCollection)
/// What dynamic colours are resolved for. The main screen's, except while a view draws, is laid out or is told of new
/// traits: then the view's; while a dynamic colour is being resolved: those that it is resolved for. What is set lasts
/// until the main queue's next turn, or until what it is set in has ended.
@property(class, nonatomic, strong) UITraitCollection *currentTraitCollection;
/// Runs `actions` at once with the receiver as the current traits.
- (void)performAsCurrentTraitCollection:(void (^)(void))actions;
@end

@protocol UITraitEnvironment <NSObject>
- (UITraitCollection *)traitCollection;
- (void)traitCollectionDidChange:(UITraitCollection *)previous;
@end
