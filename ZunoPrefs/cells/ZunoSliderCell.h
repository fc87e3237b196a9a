#import <Preferences/PSSliderTableCell.h>
#import <UIKit/UIKit.h>

/// A slider with its value beside it, which follows the drag: with a unit, and with as many decimals as are of use.
///
/// Properties of its specifier: "unit" (text behind the number), "spokenUnit" (the same for VoiceOver; "unit" when it
/// is missing) and "decimals" (0 when it is missing). "showValue" has to be left out: the number that it draws has
/// neither. The value is stored when the slider is let go, as by its superclass. A stored value that is no finite
/// number shows as the row's "default", which is what its readers take it for. Main thread only.
@interface ZunoSliderCell : PSSliderTableCell {
  UILabel *_number;
}
@end
