// The system's colour picker.
#pragma once

#import <UIKit/UIViewController.h>

#include <objcxx/HiddenState.h>

@class UIColor;
@class UIColorPickerViewController;

@protocol UIColorPickerViewControllerDelegate <NSObject>
@optional
/// Each time the selected colour changes; called only for a delegate without the method that follows.
- (void)colorPickerViewControllerDidSelectColor:(UIColorPickerViewController *)viewController;
/// Each time the user changes the selected colour: with `continuously` YES while a finger drags, and once more with NO
/// when it is lifted; with NO alone for what takes a single touch.
- (void)colorPickerViewController:(UIColorPickerViewController *)viewController
                   didSelectColor:(UIColor *)color
                     continuously:(BOOL)continuously;
/// When the close button was tapped, after the picker has begun to dismiss itself.
- (void)colorPickerViewControllerDidFinish:(UIColorPickerViewController *)viewController;
@end

SIM_STATE_TYPE(ColorPickerState);

/// The selected colour changes before the delegate hears of it, and can be observed. Main thread.
@interface UIColorPickerViewController : UIViewController {
 @private
  SIM_STATE(ColorPickerState, _colorPickerState);
}
- (instancetype)init;
/// Not owned; a device forgets one that has gone.
@property(nonatomic, assign) id<UIColorPickerViewControllerDelegate> delegate;
/// Opaque black at first, and for nil. Setting it tells the delegate nothing.
@property(nonatomic, retain) UIColor *selectedColor;
/// YES at first. With NO the user picks opaque colours only.
@property(nonatomic) BOOL supportsAlpha;
@end
