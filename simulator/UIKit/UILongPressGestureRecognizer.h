// A finger that stays. Main thread only.
#pragma once

#import <UIKit/UIGestureRecognizer.h>

SIM_STATE_TYPE(PressState);

@interface UILongPressGestureRecognizer : UIGestureRecognizer {
 @private
  SIM_STATE(PressState, _pressState);
}
/// Taps before the press; 0 at first.
@property(nonatomic) NSUInteger numberOfTapsRequired;
/// 1 at first. There is one finger: what takes more is never recognised.
@property(nonatomic) NSUInteger numberOfTouchesRequired;
/// Seconds; 0.5 at first.
@property(nonatomic) NSTimeInterval minimumPressDuration;
/// Points that the finger may move before; 10 at first.
@property(nonatomic) CGFloat allowableMovement;
@end
