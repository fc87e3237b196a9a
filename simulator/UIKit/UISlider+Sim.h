// What a finger does to a slider.
#pragma once

#import <UIKit/UISlider.h>

@interface UISlider (Sim)
/// Drags the thumb to `value`; `finished` when the finger lifts. Sends value-changed for a step of the drag when the
/// slider is continuous, and at the end in any case; besides, touch-drag-inside for a step and touch-up-inside at the
/// end, when the slider has its new value. NO, with nothing done, when it is disabled or cannot be reached or `value`
/// is not a number.
- (BOOL)sim_setValueByUser:(float)value finished:(BOOL)finished;
@end
