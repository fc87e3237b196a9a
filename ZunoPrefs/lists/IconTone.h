// Whether an icon is dark, and its inversion. Both list editors offer these.
#pragma once

#import <UIKit/UIKit.h>

namespace zuno {

/// Whether the image counts as dark: its dark pixels are at least 45 % of its area in points (not in pixels, so the
/// share of pixels that it takes falls with the image's scale).
///
/// The bitmap is walked as red, green, blue and one more byte per pixel, whatever its layout says. An image without a
/// bitmap has no dark pixels.
bool isImageDark(UIImage *image);

/// The image with inverted colours, autoreleased. Only an image that was made from a Core Image image has one; nil
/// otherwise. Neither scale nor orientation is carried over.
UIImage *invertedImage(UIImage *image);

}  // namespace zuno
