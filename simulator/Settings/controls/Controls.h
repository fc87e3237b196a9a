// The controls on a page, found by their class: shown, and worked the way a person does.
#pragma once

#import <UIKit/UIKit.h>

#include "base/JsonText.hpp"
#import "Settings/JsonValues.h"

namespace sim {

class ImageStore;

/// Whether the view is of one of the kinds of control that a row can have; a button is none.
bool isControl(UIView *view);

/// The control at or below `view` that a person works directly (switch, slider, segments, text field, text view), or a
/// spinner, depth first; nil when there is none.
UIView *findControl(UIView *view);

/// Writes a control's kind, its limits and its look; null for nil.
void writeControl(JsonText &out, UIView *control, ImageStore &images);

/// Writes what the control is set to now under the name "value". False, with nothing written, when it has no value.
bool writeControlValue(JsonText &out, UIView *control);

/// Sets the control at or below `view` to `value`: a truth value for a switch, a number for a slider, a segment's
/// number or title, text for a field. Returns nullptr, or why nothing was done. `isFinished` is whether the finger
/// lifts afterwards; a finger that stays can only drag a slider.
const char *setControl(UIView *view, const Json &value, bool isFinished);

/// Sets the text of the field at or below `view` and presses the return key. Returns nullptr, or why nothing was done.
const char *enterIntoControl(UIView *view, const Json &value);

/// Adds the pasteboard's string to the text of the field at or below `view`. Returns nullptr, or why nothing was done.
const char *pasteIntoControl(UIView *view);

/// Presses the clear button of the field at or below `view`. Returns nullptr, or why nothing was done.
const char *clearControl(UIView *view);

}  // namespace sim
