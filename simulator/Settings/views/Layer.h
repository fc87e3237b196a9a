// What a layer adds to the look of what it belongs to.
#pragma once

#import <UIKit/UIKit.h>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;

/// Writes corners, border, shadow, contents, gradient, shape and mask of a view's layer; null when it adds nothing.
void writeLayer(JsonText &out, UIView *view, ImageStore &images);
void writeLayer(JsonText &out, CALayer *layer, ImageStore &images);

/// Writes the shadow alone; null when the layer casts none.
void writeShadow(JsonText &out, UIView *view);

/// Writes where the layer lies: the frame, and under "transform" and "boundsOrigin" what else there is to it.
void writePlace(JsonText &out, CALayer *layer);
/// The same of a view, without making its layer.
void writePlace(JsonText &out, UIView *view);

/// The views in `view`, and the layers in its layer that belong to no view in it, back to front as they are drawn.
NSArray *childrenOf(UIView *view);

}  // namespace sim
