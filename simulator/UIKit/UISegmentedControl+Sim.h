// What a finger does to a segmented control.
#pragma once

#import <UIKit/UIFont.h>
#import <UIKit/UISegmentedControl.h>

@interface UISegmentedControl (Sim)
/// The font of titles in that state, the system's where none is set.
- (UIFont *)sim_titleFontForState:(UIControlState)state;
/// Their colour; nil where it is left to the system.
- (UIColor *)sim_titleColorForState:(UIControlState)state;
/// Selects the segment and sends the actions. NO, with nothing done, when the control or the segment is disabled,
/// cannot be reached, is not there, or is selected already (and the control is not momentary).
- (BOOL)sim_selectByUser:(NSInteger)index;
@end
