// What text fields and text views share.
#pragma once

#import <UIKit/UIKit.h>

#include "Settings/controls/ControlAdapter.hpp"

namespace sim {

/// Writes what the field asks of the keyboard.
void writeInputTraits(JsonText& out, id<UITextInputTraits> field);

/// Why `value` is no text to enter, or nullptr with the text, autoreleased, at `text`.
const char* textToEnter(const Json& value, NSString** text);

}  // namespace sim
