// Working a control the way a person does.
#pragma once

#import <UIKit/UIKit.h>

#include "Settings/JsonValues.hpp"

namespace sim {

/// Sets the control at or below `view` to `value`: a truth value for a switch, a number for a slider, a segment's
/// number or title, text for a field. Returns nullptr, or why nothing was done. `isFinished` is whether the finger
/// lifts afterwards; a finger that stays can only drag a slider.
const char* setControl(UIView* view, const Json& value, bool isFinished);

/// Adds the pasteboard's string to the text of the field at or below `view`. Returns nullptr, or why nothing was done.
const char* pasteIntoControl(UIView* view);

}  // namespace sim
