// An on/off switch, 51 × 31 points whatever size it is given.
#pragma once

#import <UIKit/UIControl.h>

namespace sim {
struct UISwitchState;
}

@interface UISwitch : UIControl {
 @private
  std::unique_ptr<sim::UISwitchState> _switchState;
}
/// Setting it sends no action.
@property(nonatomic, getter=isOn) BOOL on;
@property(nonatomic, retain) UIColor *onTintColor;
@property(nonatomic, retain) UIColor *thumbTintColor;
- (void)setOn:(BOOL)on animated:(BOOL)animated;
@end
