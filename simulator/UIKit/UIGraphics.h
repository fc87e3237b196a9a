// Image contexts: a stack of bitmaps, of which the last opened is drawn into. Main thread only.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIImage.h>

/// At scale 1, not opaque.
UIKIT_EXTERN void UIGraphicsBeginImageContext(CGSize size);
/// `size` in points; scale 0 means the main screen's. A size without area opens a context that draws nowhere and gives
/// no image; so does one of more than 100 million pixels, with a log line.
UIKIT_EXTERN void UIGraphicsBeginImageContextWithOptions(CGSize size, BOOL opaque, CGFloat scale);
/// nil without an image context.
UIKIT_EXTERN UIImage *UIGraphicsGetImageFromCurrentImageContext(void);
/// Harmless without a context.
UIKIT_EXTERN void UIGraphicsEndImageContext(void);

/// NULL without a context. Not owned.
UIKIT_EXTERN CGContextRef UIGraphicsGetCurrentContext(void);
UIKIT_EXTERN void UIGraphicsPushContext(CGContextRef context);
UIKIT_EXTERN void UIGraphicsPopContext(void);

UIKIT_EXTERN void UIRectFill(CGRect rect);
UIKIT_EXTERN void UIRectFillUsingBlendMode(CGRect rect, CGBlendMode mode);
/// A frame of one point inside `rect`, in the fill colour.
UIKIT_EXTERN void UIRectFrame(CGRect rect);
UIKIT_EXTERN void UIRectClip(CGRect rect);
