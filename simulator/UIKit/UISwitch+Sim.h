// What a finger does to a switch.
#pragma once

#import <UIKit/UISwitch.h>

@interface UISwitch (Sim)
/// Flips the switch to `on` and sends its actions. NO, with nothing done, when it is disabled, cannot be reached or is
/// that way already.
- (BOOL)sim_setOnByUser:(BOOL)on;
@end
