// Colour spaces. Pixels are not colour-managed: every RGB space is taken as sRGB.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
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
/// NULL for a name that is not carried.
CG_EXTERN CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name);
CG_EXTERN CFStringRef const kCGColorSpaceSRGB;
CG_EXTERN CFStringRef const kCGColorSpaceDisplayP3;
CG_EXTERN CFStringRef const kCGColorSpaceExtendedSRGB;
CG_EXTERN CFStringRef const kCGColorSpaceGenericGrayGamma2_2;
CG_EXTERN CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space);
CG_EXTERN void CGColorSpaceRelease(CGColorSpaceRef space);
CG_EXTERN CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space);
/// Without alpha: 1 for grey, 3 for RGB.
CG_EXTERN size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space);
