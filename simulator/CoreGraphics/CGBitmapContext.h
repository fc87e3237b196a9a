// Contexts whose pixels lie in memory that the caller reads and writes.
#pragma once

#include <CoreGraphics/CGContext.h>

/// Called once, when the context no longer needs the memory.
typedef void (*CGBitmapContextReleaseDataCallback)(void* releaseInfo, void* data);

/// At +1. Its y axis points up. Carried, with 8 bits a component: an RGB space with premultiplied or skipped alpha,
/// first or last, byte order default, 32 big or 32 little; a grey space with kCGImageAlphaNone; no space with
/// kCGImageAlphaOnly. Anything else, a size of zero, or rows that are too short give NULL and a log line.
/// `data` NULL: memory of the context's own, cleared. `bytesPerRow` 0: as short as they can be, where `data` is NULL.
CG_EXTERN CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent,
                                             size_t bytesPerRow, CGColorSpaceRef space, uint32_t bitmapInfo);
CG_EXTERN CGContextRef CGBitmapContextCreateWithData(void* data, size_t width, size_t height, size_t bitsPerComponent,
                                                     size_t bytesPerRow, CGColorSpaceRef space, uint32_t bitmapInfo,
                                                     CGBitmapContextReleaseDataCallback releaseCallback,
                                                     void* releaseInfo);
/// What has been drawn so far, at +1, in the context's layout.
CG_EXTERN CGImageRef CGBitmapContextCreateImage(CGContextRef context);

/// Of an image context that UIKit opened: as of one with premultiplied alpha first, 32 little. 0 and NULL for NULL.
/// The memory belongs to the context; what is written there is drawn upon.
CG_EXTERN void* CGBitmapContextGetData(CGContextRef context);
/// Pixels.
CG_EXTERN size_t CGBitmapContextGetWidth(CGContextRef context);
CG_EXTERN size_t CGBitmapContextGetHeight(CGContextRef context);
CG_EXTERN size_t CGBitmapContextGetBitsPerComponent(CGContextRef context);
CG_EXTERN size_t CGBitmapContextGetBitsPerPixel(CGContextRef context);
CG_EXTERN size_t CGBitmapContextGetBytesPerRow(CGContextRef context);
/// Owned by the context; NULL for alpha only.
CG_EXTERN CGColorSpaceRef CGBitmapContextGetColorSpace(CGContextRef context);
CG_EXTERN CGImageAlphaInfo CGBitmapContextGetAlphaInfo(CGContextRef context);
CG_EXTERN CGBitmapInfo CGBitmapContextGetBitmapInfo(CGContextRef context);
