// Images over the simulator's own pixels.
#pragma once

#include <CoreGraphics/Bitmap.hpp>
#include <CoreGraphics/CGImage.h>
#include <CoreGraphics/ImageDecoder.hpp>

#import <Foundation/Foundation.h>

namespace sim {

/// An image of the pixels that `source` gives, at +1; NULL for null.
CGImageRef createImage(PixelSourcePtr source);
/// Where the image's pixels come from; null for NULL.
PixelSourcePtr sourceOf(CGImageRef image);
/// Whether `object` is a CGImageRef; false for nil.
bool isImage(id object);

/// The bytes of `data`, which stay as they are now: a copy of data that can change, else `data` itself. None for nil
/// and for data without bytes.
SharedBytes sharedBytes(NSData *data);

}  // namespace sim
