// What the ground and the lower edge of a bar look like.
#pragma once

#import <UIKit/UIDevice.h>
#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UIBlurEffect;
@class UIColor;
@class UIImage;

SIM_STATE_TYPE(BarAppearanceState);

/// A look that bars copy. A new one has the default background. Main thread.
@interface UIBarAppearance : NSObject <NSCopying> {
 @private
  SIM_STATE(BarAppearanceState, _barAppearanceState);
}
- (instancetype)init;
- (instancetype)initWithIdiom:(UIUserInterfaceIdiom)idiom;
/// Takes over what the two classes have in common; the rest is as in a new one.
- (instancetype)initWithBarAppearance:(UIBarAppearance *)barAppearance;
@property(nonatomic, readonly, assign) UIUserInterfaceIdiom idiom;

/// Blurs what lies below, and draws the system's line under the bar.
- (void)configureWithDefaultBackground;
/// Hides what lies below: the system's background, and its line under the bar.
- (void)configureWithOpaqueBackground;
/// Neither background nor line.
- (void)configureWithTransparentBackground;

/// nil for none, and for the system's own, which shows what lies below blurred. Any effect blurs as that does.
@property(nonatomic, readwrite, copy) UIBlurEffect *backgroundEffect;
/// Over the effect.
@property(nonatomic, readwrite, copy) UIColor *backgroundColor;
/// Over the colour, placed by `backgroundImageContentMode`, which is UIViewContentModeScaleToFill at first.
@property(nonatomic, readwrite, strong) UIImage *backgroundImage;
@property(nonatomic, readwrite, assign) UIViewContentMode backgroundImageContentMode;
/// Of the line under the bar, or of `shadowImage` where that is a template; nil for no line.
@property(nonatomic, readwrite, copy) UIColor *shadowColor;
/// In place of the line; an empty picture leaves it away.
@property(nonatomic, readwrite, strong) UIImage *shadowImage;
@end
