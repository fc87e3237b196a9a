// The simulator's own face of the colour picker.
#pragma once

#import <UIKit/UIColorPickerViewController.h>

@interface UIColorPickerViewController (Sim)
/// What a finger on a colour does; `continuously` while it is dragged. NO, with nothing done, for a colour that is not
/// opaque in a picker without opacity.
- (BOOL)sim_selectColorByUser:(UIColor *)color continuously:(BOOL)continuously;
/// A tap on the close button.
- (void)sim_close;
@end
