// Controls as the automation interface shows them.
#pragma once

#import <UIKit/UIKit.h>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;

/// The control at or below `view` that a person works directly (switch, slider, segments, text field, text view), or a
/// spinner, depth first; nil when there is none.
UIView* findControl(UIView* view);

/// The button at or below `view` that can be seen, depth first; nil when there is none.
UIButton* findButton(UIView* view);

/// Writes a control's kind, its limits and its look; null for nil.
void writeControl(JsonText& out, UIView* control, ImageStore& images);

/// The text that a person edits in the control, autoreleased; nil for a control of another kind.
NSString* editableText(UIView* control);

/// Writes what a control without a text is set to now. False, with nothing written, when it has no value.
bool writeControlValue(JsonText& out, UIView* control);

}  // namespace sim
