// Views as the automation interface shows them.
#pragma once

#import <UIKit/UIKit.h>

#include <string_view>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;

/// Writes a view and everything in it: class, frame (points, in its superview), text, picture, colours, layer.
void writeView(JsonText& out, UIView* view, ImageStore& images);

/// The same; null for nil.
void writeOptionalView(JsonText& out, UIView* view, ImageStore& images);

/// Writes what a view's layer adds to its look: corners, border, shadow; null when it adds nothing.
void writeLayer(JsonText& out, UIView* view);

/// Writes the shadow of a view's layer; null when it casts none.
void writeShadow(JsonText& out, UIView* view);

/// The text's colour as it is drawn: highlighted, disabled or plain. nil for nil.
UIColor* shownColor(UILabel* label);

/// The image as it is drawn: the highlighted one while it is highlighted and there is one.
UIImage* shownImage(UIImageView* view);

/// The colour that an image in `view` is drawn in when only its shape counts; nil when it is drawn as it is.
UIColor* templateTint(UIImage* image, UIView* view);

/// The same where the system draws images as templates in `color`, as in bars: nil only for one that is always
/// original.
UIColor* templateTint(UIImage* image, UIColor* color);

/// The class's name.
std::string_view classNameOf(id object);

void writeFrame(JsonText& out, CGRect frame);

/// "left", "center" and so on, for a text alignment.
const char* alignmentName(NSTextAlignment alignment);

/// "scaleToFill", "scaleAspectFit" and so on.
const char* contentModeName(UIViewContentMode mode);

}  // namespace sim
