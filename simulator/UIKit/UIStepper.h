// Two buttons that change a number in steps, 94 × 32 points whatever size it is given.
#pragma once

#import <UIKit/UIControl.h>
#import <UIKit/UIImage.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(StepperState);

@interface UIStepper : UIControl {
 @private
  SIM_STATE(StepperState, _stepperState);
}
/// YES at first: actions are sent for each step of a finger that stays, else when it is lifted.
@property(nonatomic, getter=isContinuous) BOOL continuous;
/// YES at first: a finger that stays goes on.
@property(nonatomic) BOOL autorepeat;
/// NO at first: a step beyond one end leads to the other.
@property(nonatomic) BOOL wraps;
/// 0 at first. What is beyond an end is that end. Setting it sends no action.
@property(nonatomic) double value;
/// 0 and 100 at first. A minimum that is not below the maximum raises NSInvalidArgumentException.
@property(nonatomic) double minimumValue;
@property(nonatomic) double maximumValue;
/// 1 at first. Anything that is not above 0 raises NSInvalidArgumentException.
@property(nonatomic) double stepValue;
/// Of the state, else of the normal one; nil for the system's plus and minus.
- (void)setIncrementImage:(UIImage *)image forState:(UIControlState)state;
- (UIImage *)incrementImageForState:(UIControlState)state;
- (void)setDecrementImage:(UIImage *)image forState:(UIControlState)state;
- (UIImage *)decrementImageForState:(UIControlState)state;
@end
