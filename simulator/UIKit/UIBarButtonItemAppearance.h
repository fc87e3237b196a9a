// What the buttons of a bar look like.
#pragma once

#import <UIKit/UIBarButtonItem.h>
#import <UIKit/UIGeometry.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(BarButtonStateAppearanceState);
SIM_STATE_TYPE(BarButtonItemAppearanceState);

/// A button's look in one of its states. Made by UIBarButtonItemAppearance only.
@interface UIBarButtonItemStateAppearance : NSObject {
 @private
  SIM_STATE(BarButtonStateAppearanceState, _stateAppearanceState);
}
/// NSFontAttributeName and NSForegroundColorAttributeName are drawn. Empty at first.
@property(nonatomic, readwrite, copy) NSDictionary *titleTextAttributes;
/// How far the title is moved, in points.
@property(nonatomic, readwrite, assign) UIOffset titlePositionAdjustment;
@end

/// What a state leaves open is as in the normal one; the colour of a disabled button is then the system's grey.
@interface UIBarButtonItemAppearance : NSObject <NSCopying> {
 @private
  SIM_STATE(BarButtonItemAppearanceState, _itemAppearanceState);
}
/// Of the plain style.
- (instancetype)init;
- (instancetype)initWithStyle:(UIBarButtonItemStyle)style;
/// Everything as in a new one of that style.
- (void)configureWithDefaultForStyle:(UIBarButtonItemStyle)style;
@property(nonatomic, readonly, strong) UIBarButtonItemStateAppearance *normal;
@property(nonatomic, readonly, strong) UIBarButtonItemStateAppearance *highlighted;
@property(nonatomic, readonly, strong) UIBarButtonItemStateAppearance *disabled;
/// Kept: the focus is the browser's, which draws its own ring.
@property(nonatomic, readonly, strong) UIBarButtonItemStateAppearance *focused;
@end
