// Images over the simulator's own pixels.
#pragma once

#include <CoreGraphics/Bitmap.hpp>
#include <CoreGraphics/CGImage.h>
#include <CoreGraphics/ImageDecoder.hpp>
#include <CoreGraphics/PixelLayout.hpp>

#import <Foundation/Foundation.h>

#include <optional>

namespace sim {

/// An image of the pixels that `source` gives, at +1; NULL for null.
CGImageRef createImage(PixelSourcePtr source);
/// Where the image's pixels come from; null for NULL.
PixelSourcePtr sourceOf(CGImageRef image);
/// Whether `object` is a CGImageRef; false for nil.
bool isImage(id object);

/// How pixels of that kind lie in memory; nothing for one that is not carried.
std::optional<PixelLayout> layoutOf(CGColorSpaceRef space, std::uint32_t info, std::size_t bitsPerPixel);
/// What `mask` lets through, as the alpha of black; null for NULL and what cannot be decoded.
BitmapPtr coverageOf(CGImageRef mask);

/// The bytes of `data`, which stay as they are now: a copy of data that can change, else `data` itself. None for nil
/// and for data without bytes.
SharedBytes sharedBytes(NSData *data);

}  // namespace sim
