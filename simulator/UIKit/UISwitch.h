// An on/off switch, 51 × 31 points whatever size it is given.
#pragma once

#import <UIKit/UIControl.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UISwitchState);

@interface UISwitch : UIControl {
 @private
  SIM_STATE(UISwitchState, _switchState);
}
/// Setting it sends no action.
@property(nonatomic, getter=isOn) BOOL on;
@property(nonatomic, retain) UIColor *onTintColor;
@property(nonatomic, retain) UIColor *thumbTintColor;
- (void)setOn:(BOOL)on animated:(BOOL)animated;
@end
