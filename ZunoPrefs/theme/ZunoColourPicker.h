#import <Preferences/PSSpecifier.h>
#import <UIKit/UIKit.h>

/// The system's colour picker for the value of one row, which it opens with.
///
/// A colour is stored, through the row's own setter, when the finger that chose it is lifted, and at the latest when
/// the picker goes; a picker in which nothing was chosen stores nothing. It is its own delegate and keeps the row and
/// what the row writes to, so that neither a page that goes nor a cell that shows another row meanwhile matters to it.
/// Main thread only.
@interface ZunoColourPicker : UIColorPickerViewController <UIColorPickerViewControllerDelegate> {
  PSSpecifier *_row;
  id _owner;
  NSString *_chosen;
  NSString *_stored;
}

/// A picker with opacity, titled as `row`. It shows the row's colour or, while that is none, the one that the row's
/// property "placeholder" names, or else white.
+ (instancetype)pickerForRow:(PSSpecifier *)row;

@end
