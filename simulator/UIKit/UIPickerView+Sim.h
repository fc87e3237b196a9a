// What a picker shows, and what a finger does to it.
#pragma once

#import <UIKit/UIPickerView.h>

@class UIColor;

@interface UIPickerView (Sim)
/// The rows of a component that are near enough to the selected one to be shown: views are made for those.
- (NSRange)sim_shownRowsInComponent:(NSInteger)component;
/// Makes the view of a row that is shown; nil where the delegate makes none.
- (UIView *)sim_makeViewForRow:(NSInteger)row inComponent:(NSInteger)component;
/// The text of a row without a view; its colour at `color`, nil for the system's.
- (NSString *)sim_titleOfRow:(NSInteger)row inComponent:(NSInteger)component color:(UIColor **)color;
/// Turns the wheel. NO, with nothing done, when there is no such row or the picker cannot be reached.
- (BOOL)sim_selectByUser:(NSInteger)row inComponent:(NSInteger)component;
@end
