// The alerts of the theme page and the presets screen.
#pragma once

#import <UIKit/UIKit.h>

namespace zuno {

/// An alert in the alert style, autoreleased.
UIAlertController *alertTitled(NSString *title, NSString *message);

/// Adds an action that runs `handler` (nil: only dismisses).
void addAction(UIAlertController *alert, NSString *title, UIAlertActionStyle style, void (^handler)(void));

/// Adds a field with a clear button while editing.
void addField(UIAlertController *alert, NSString *placeholder);

/// The text of the alert's field number `index`.
NSString *fieldText(UIAlertController *alert, NSUInteger index);

/// Presents an alert titled "Error" with the single action "OK": at once, or when what `page` presents has gone. That
/// is dismissed if it is not on its way out already.
void presentError(UIViewController *page, NSString *message, UIAlertActionStyle okStyle = UIAlertActionStyleDefault);

}  // namespace zuno
