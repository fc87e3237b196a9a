// What a finger does to a control.
#pragma once

#import <UIKit/UIControl.h>

@interface UIControl (Sim)
/// Touches down and up inside. NO, with nothing done, when the control is disabled or cannot be reached.
- (BOOL)sim_tapByUser;
/// Whether a finger can work the control.
- (BOOL)sim_acceptsUser;
@end
