// Colour spaces. Pixels are not colour-managed: every RGB space is taken as sRGB.
#pragma once

#include <CoreGraphics/CGBase.h>

/// A Core Foundation object; ownership by CGColorSpaceRetain/Release or CFRetain/CFRelease.
typedef struct CGColorSpace *CGColorSpaceRef;

typedef NS_ENUM(int32_t, CGColorSpaceModel) {
  kCGColorSpaceModelUnknown = -1,
  kCGColorSpaceModelMonochrome = 0,
  kCGColorSpaceModelRGB = 1,
};

CG_EXTERN CGColorSpaceRef CGColorSpaceCreateDeviceRGB(void);
CG_EXTERN CGColorSpaceRef CGColorSpaceCreateDeviceGray(void);
CG_EXTERN CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space);
CG_EXTERN void CGColorSpaceRelease(CGColorSpaceRef space);
CG_EXTERN CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space);
/// Without alpha: 1 for grey, 3 for RGB.
CG_EXTERN size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space);
