// The button in the view at a row's end.
#pragma once

#import <UIKit/UIKit.h>

#include "Settings/EventResult.hpp"
#include "base/JsonText.hpp"

namespace sim {

/// Writes the first button in `accessory` that can be seen, and where it lies in it; null without one.
void writeAccessoryButton(JsonText &out, UIView *accessory);

/// What a finger on that button does.
EventResult tapAccessoryButton(UIView *accessory);

}  // namespace sim
