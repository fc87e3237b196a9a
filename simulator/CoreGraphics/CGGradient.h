// Colours that go over into each other.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CGColor.h>

/// A Core Foundation object; ownership by CGGradientRetain/Release or CFRetain/CFRelease. Immutable.
typedef struct CGGradient *CGGradientRef;

typedef NS_OPTIONS(uint32_t, CGGradientDrawingOptions) {
  kCGGradientDrawsBeforeStartLocation = 1 << 0,
  kCGGradientDrawsAfterEndLocation = 1 << 1,
};

/// `colors` are CGColorRefs. `locations`, from 0 to 1, as many as there are colours; NULL: evenly from 0 to 1. NULL for
/// no colours and for what is no colour. `space` is taken for that of the colours.
CG_EXTERN CGGradientRef CGGradientCreateWithColors(CGColorSpaceRef space, CFArrayRef colors, const CGFloat *locations);
/// `components` hold `count` colours, each with as many numbers as the space has components, and alpha.
CG_EXTERN CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef space, const CGFloat *components,
                                                            const CGFloat *locations, size_t count);
CG_EXTERN CGGradientRef CGGradientRetain(CGGradientRef gradient);
CG_EXTERN void CGGradientRelease(CGGradientRef gradient);
