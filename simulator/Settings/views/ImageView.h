// Image views as they are drawn.
#pragma once

#import <UIKit/UIKit.h>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;

/// Writes the picture that `view` draws now, the highlighted one while it is highlighted and there is one. False, and
/// null is written, when it draws none.
bool writeShownImage(JsonText &out, UIImageView *view, ImageStore &images);

/// "scaleToFill", "scaleAspectFit", "topLeft" and so on.
const char *contentModeName(UIViewContentMode mode);

/// Writes how the picture lies in the view: "scaleToFill", "scaleAspectFit", "topLeft" and so on.
void writeContentMode(JsonText &out, UIImageView *view);

/// The colour that an image in `view` is drawn in when only its shape counts; nil when it is drawn as it is.
UIColor *templateTint(UIImage *image, UIView *view);

/// The same where the system draws images as templates in `color`, as in bars: nil only for one that is always
/// original.
UIColor *templateTint(UIImage *image, UIColor *color);

}  // namespace sim
