// Immutable colours. Components lie between 0 and 1, alpha last.
#pragma once

#include <CoreGraphics/CGColorSpace.h>

/// A Core Foundation object; ownership by CGColorRetain/Release or CFRetain/CFRelease.
typedef struct CGColor *CGColorRef;

/// `components` holds as many numbers as the space has components, and alpha. NULL when either argument is NULL.
CG_EXTERN CGColorRef CGColorCreate(CGColorSpaceRef space, const CGFloat *components);
CG_EXTERN CGColorRef CGColorCreateSRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
CG_EXTERN CGColorRef CGColorCreateGenericGray(CGFloat gray, CGFloat alpha);
CG_EXTERN CGColorRef CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha);
CG_EXTERN CGColorRef CGColorRetain(CGColorRef color);
CG_EXTERN void CGColorRelease(CGColorRef color);
CG_EXTERN bool CGColorEqualToColor(CGColorRef a, CGColorRef b);
/// With alpha: 2 for grey, 4 for RGB.
CG_EXTERN size_t CGColorGetNumberOfComponents(CGColorRef color);
/// Owned by the colour.
CG_EXTERN const CGFloat *CGColorGetComponents(CGColorRef color);
CG_EXTERN CGFloat CGColorGetAlpha(CGColorRef color);
CG_EXTERN CGColorSpaceRef CGColorGetColorSpace(CGColorRef color);
