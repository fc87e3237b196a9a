// What a finger does to a segmented control.
#pragma once

#import <UIKit/UISegmentedControl.h>

@interface UISegmentedControl (Sim)
/// Selects the segment and sends the actions. NO, with nothing done, when the control or the segment is disabled,
/// cannot be reached, is not there, or is selected already (and the control is not momentary).
- (BOOL)sim_selectByUser:(NSInteger)index;
@end
