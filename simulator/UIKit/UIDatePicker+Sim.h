// What a date picker shows.
#pragma once

#import <UIKit/UIDatePicker.h>
#import <UIKit/UIPickerView.h>

@interface UIDatePicker (Sim)
/// Its wheels, as large as it is, which tell it when they are turned. They are in no view.
- (UIPickerView *)sim_wheels;
@end
