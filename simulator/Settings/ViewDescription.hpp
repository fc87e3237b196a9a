// Views as the automation interface shows them.
#pragma once

#import <UIKit/UIKit.h>

#include <string_view>

#include "Settings/JsonText.hpp"

namespace sim {

class ImageStore;

/// Writes a view and everything in it: class, frame (points, in its superview), text, picture, colours.
void writeView(JsonText &out, UIView *view, ImageStore &images);

/// The control at or below `view` that a person works directly (switch, slider, segments, text field, text view), or a
/// spinner, depth first; nil when there is none.
UIView *findControl(UIView *view);

/// Writes a control's kind and limits; null for nil.
void writeControl(JsonText &out, UIView *control);

/// The text that a person edits in the control, autoreleased; nil for a control of another kind.
NSString *editableText(UIView *control);

/// Writes what a control without a text is set to now. False, with nothing written, when it has no value.
bool writeControlValue(JsonText &out, UIView *control);

/// The class's name.
std::string_view classNameOf(id object);

void writeFrame(JsonText &out, CGRect frame);

/// "left", "center" and so on, for a text alignment.
const char *alignmentName(NSTextAlignment alignment);

}  // namespace sim
