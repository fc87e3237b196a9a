// What a view's layer adds to its look.
#pragma once

#import <UIKit/UIKit.h>

#include "base/JsonText.hpp"

namespace sim {

/// Writes corners, border and shadow; null when the layer adds nothing.
void writeLayer(JsonText &out, UIView *view);

/// Writes the shadow alone; null when the layer casts none.
void writeShadow(JsonText &out, UIView *view);

}  // namespace sim
