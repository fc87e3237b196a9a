// Taps. Main thread only.
#pragma once

#import <UIKit/UIGestureRecognizer.h>

SIM_STATE_TYPE(TapState);

@interface UITapGestureRecognizer : UIGestureRecognizer {
 @private
  SIM_STATE(TapState, _tapState);
}
/// 1 at first.
@property(nonatomic) NSUInteger numberOfTapsRequired;
/// 1 at first. There is one finger: what takes more is never recognised.
@property(nonatomic) NSUInteger numberOfTouchesRequired;
@end
