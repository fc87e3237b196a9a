#import <Preferences/PSTableCell.h>

/// A number with a stepper beside it. The specifier's "min" and "max" bound it.
@interface TidelineStepperCell : PSTableCell

@end
