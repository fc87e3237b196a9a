// Image files, read as far as they are asked for. Carried: thumbnails of one image.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CGImage.h>

/// A Core Foundation object; ownership by CFRetain/CFRelease.
typedef struct CGImageSource* CGImageSourceRef;

/// Keys of `options`. The thumbnail is made of the image (true), or taken out of the file (not carried).
CG_EXTERN const CFStringRef kCGImageSourceCreateThumbnailFromImageAlways;
/// The most pixels that a side may have, a number; without it the image's own.
CG_EXTERN const CFStringRef kCGImageSourceThumbnailMaxPixelSize;
/// Whether the thumbnail is turned as the camera was held; it is not until this is true.
CG_EXTERN const CFStringRef kCGImageSourceCreateThumbnailWithTransform;

/// A source over `data`, which it retains; owned by the caller. NULL for NULL. Data that are no image give a source
/// without images. `options` are not read.
CG_EXTERN CGImageSourceRef CGImageSourceCreateWithData(CFDataRef data, CFDictionaryRef options);

/// The image made smaller, with its proportions kept, never larger; owned by the caller. The image's pixels are not
/// kept. NULL for NULL, for data that are no image or whose pixels cannot be decoded, for an `index` other than 0, and
/// without kCGImageSourceCreateThumbnailFromImageAlways: no thumbnail is taken out of a file.
CG_EXTERN CGImageRef CGImageSourceCreateThumbnailAtIndex(CGImageSourceRef source, size_t index,
                                                         CFDictionaryRef options);
