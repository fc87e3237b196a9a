// Sources of bytes for images.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CGBase.h>

/// A Core Foundation object; ownership by CGDataProviderRetain/Release or CFRetain/CFRelease.
typedef struct CGDataProvider* CGDataProviderRef;

/// Called once, when the provider no longer needs the bytes.
typedef void (*CGDataProviderReleaseDataCallback)(void* info, const void* data, size_t size);

/// Retains `data`. NULL for NULL.
CG_EXTERN CGDataProviderRef CGDataProviderCreateWithCFData(CFDataRef data);
/// Reads `data` in place until `releaseData` is called.
CG_EXTERN CGDataProviderRef CGDataProviderCreateWithData(void* info, const void* data, size_t size,
                                                         CGDataProviderReleaseDataCallback releaseData);
CG_EXTERN CGDataProviderRef CGDataProviderRetain(CGDataProviderRef provider);
CG_EXTERN void CGDataProviderRelease(CGDataProviderRef provider);
/// The bytes at +1; NULL for NULL, and for an image whose pixels cannot be decoded. The provider of an image that was
/// read from a file or drawn in an image context gives four bytes a pixel, red first, without padding between rows.
CG_EXTERN CFDataRef CGDataProviderCopyData(CGDataProviderRef provider);
