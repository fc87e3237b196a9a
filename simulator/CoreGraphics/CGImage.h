// Bitmap images.
#pragma once

#include <CoreGraphics/CGColorSpace.h>
#include <CoreGraphics/CGDataProvider.h>
#include <CoreGraphics/CGGeometry.h>

/// A Core Foundation object; ownership by CGImageRetain/Release or CFRetain/CFRelease. Immutable.
typedef struct CGImage *CGImageRef;

typedef NS_ENUM(uint32_t, CGImageAlphaInfo) {
  kCGImageAlphaNone,
  kCGImageAlphaPremultipliedLast,
  kCGImageAlphaPremultipliedFirst,
  kCGImageAlphaLast,
  kCGImageAlphaFirst,
  kCGImageAlphaNoneSkipLast,
  kCGImageAlphaNoneSkipFirst,
  kCGImageAlphaOnly,
};

typedef NS_OPTIONS(uint32_t, CGBitmapInfo) {
  kCGBitmapAlphaInfoMask = 0x1F,
  kCGBitmapByteOrderMask = 0x7000,
  kCGBitmapByteOrderDefault = 0 << 12,
  kCGBitmapByteOrder32Little = 2 << 12,
  kCGBitmapByteOrder32Big = 4 << 12,
};

typedef NS_ENUM(int32_t, CGColorRenderingIntent) { kCGRenderingIntentDefault };

/// An image over the provider's bytes. Carried, with 8 bits a component: 32 bits a pixel, an RGB space, alpha first or
/// last (straight, premultiplied or skipped), byte order default, 32 big or 32 little; 8 bits a pixel, a grey space and
/// kCGImageAlphaNone; 8 bits a pixel and kCGImageAlphaOnly. Anything else, rows that are too short, or a size of zero
/// gives NULL and a log line. `decode` must be NULL.
CG_EXTERN CGImageRef CGImageCreate(size_t width, size_t height, size_t bitsPerComponent, size_t bitsPerPixel,
                                   size_t bytesPerRow, CGColorSpaceRef space, CGBitmapInfo bitmapInfo,
                                   CGDataProviderRef provider, const CGFloat *decode, bool shouldInterpolate,
                                   CGColorRenderingIntent intent);
/// A mask of 8 bits a pixel, which lets through where it is 0; with a `decode` of {1, 0} where it is 255. NULL as
/// above.
CG_EXTERN CGImageRef CGImageMaskCreate(size_t width, size_t height, size_t bitsPerComponent, size_t bitsPerPixel,
                                       size_t bytesPerRow, CGDataProviderRef provider, const CGFloat *decode,
                                       bool shouldInterpolate);
/// `image` where the mask, stretched over it, lets through: an image mask as above, another image as it is bright. NULL
/// when the pixels of either cannot be had.
CG_EXTERN CGImageRef CGImageCreateWithMask(CGImageRef image, CGImageRef mask);
CG_EXTERN bool CGImageIsMask(CGImageRef image);
/// The part of `image` below `rect` (pixels, origin at the top left), cut to the image's bounds; NULL when nothing is
/// left.
CG_EXTERN CGImageRef CGImageCreateWithImageInRect(CGImageRef image, CGRect rect);
CG_EXTERN CGImageRef CGImageCreateCopy(CGImageRef image);
CG_EXTERN CGImageRef CGImageRetain(CGImageRef image);
CG_EXTERN void CGImageRelease(CGImageRef image);

/// Pixels; 0 for NULL.
CG_EXTERN size_t CGImageGetWidth(CGImageRef image);
CG_EXTERN size_t CGImageGetHeight(CGImageRef image);
CG_EXTERN size_t CGImageGetBitsPerComponent(CGImageRef image);
CG_EXTERN size_t CGImageGetBitsPerPixel(CGImageRef image);
CG_EXTERN size_t CGImageGetBytesPerRow(CGImageRef image);
CG_EXTERN CGImageAlphaInfo CGImageGetAlphaInfo(CGImageRef image);
CG_EXTERN CGBitmapInfo CGImageGetBitmapInfo(CGImageRef image);
/// Both are owned by the image.
CG_EXTERN CGColorSpaceRef CGImageGetColorSpace(CGImageRef image);
CG_EXTERN CGDataProviderRef CGImageGetDataProvider(CGImageRef image);
