// What a finger does to a stepper.
#pragma once

#import <UIKit/UIStepper.h>

@interface UIStepper (Sim)
/// Whether a press of one of the buttons changes anything.
- (BOOL)sim_canStep:(BOOL)up;
/// Presses a button once; `finished` when the finger lifts. NO, with nothing done, when the stepper is disabled, cannot
/// be reached or has no such step.
- (BOOL)sim_stepByUser:(BOOL)up finished:(BOOL)finished;
/// The finger lifts: what was not told yet is.
- (void)sim_finishByUser;
@end
