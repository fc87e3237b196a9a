// Drawing into image contexts. Every function is harmless with a NULL context.
#pragma once

#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/CGGradient.h>
#include <CoreGraphics/CGImage.h>
#include <CoreGraphics/CGPath.h>

/// A Core Foundation object, owned by whoever opened the context (UIGraphicsBeginImageContext, a renderer,
/// CGBitmapContextCreate).
typedef struct CGContext *CGContextRef;

typedef NS_ENUM(int32_t, CGLineCap) { kCGLineCapButt, kCGLineCapRound, kCGLineCapSquare };
typedef NS_ENUM(int32_t, CGLineJoin) { kCGLineJoinMiter, kCGLineJoinRound, kCGLineJoinBevel };
typedef NS_ENUM(int32_t, CGPathDrawingMode) {
  kCGPathFill,
  kCGPathEOFill,
  kCGPathStroke,
  kCGPathFillStroke,
  kCGPathEOFillStroke,
};
typedef NS_ENUM(int32_t, CGInterpolationQuality) {
  kCGInterpolationDefault = 0,
  kCGInterpolationNone = 1,
  kCGInterpolationLow = 2,
  kCGInterpolationMedium = 4,
  kCGInterpolationHigh = 3,
};
typedef NS_ENUM(int32_t, CGBlendMode) {
  kCGBlendModeNormal = 0,
  kCGBlendModeMultiply,
  kCGBlendModeScreen,
  kCGBlendModeOverlay,
  kCGBlendModeDarken,
  kCGBlendModeLighten,
  kCGBlendModeColorDodge,
  kCGBlendModeColorBurn,
  kCGBlendModeSoftLight,
  kCGBlendModeHardLight,
  kCGBlendModeDifference,
  kCGBlendModeExclusion,
  kCGBlendModeHue,
  kCGBlendModeSaturation,
  kCGBlendModeColor,
  kCGBlendModeLuminosity,
  kCGBlendModeClear,
  kCGBlendModeCopy,
  kCGBlendModeSourceIn,
  kCGBlendModeSourceOut,
  kCGBlendModeSourceAtop,
  kCGBlendModeDestinationOver,
  kCGBlendModeDestinationIn,
  kCGBlendModeDestinationOut,
  kCGBlendModeDestinationAtop,
  kCGBlendModeXOR,
  kCGBlendModePlusLighter = 27,
};

CG_EXTERN CGContextRef CGContextRetain(CGContextRef context);
CG_EXTERN void CGContextRelease(CGContextRef context);

CG_EXTERN void CGContextSaveGState(CGContextRef context);
/// Without a saved state: no effect.
CG_EXTERN void CGContextRestoreGState(CGContextRef context);

CG_EXTERN void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty);
/// A scale of zero is ignored with a log line.
CG_EXTERN void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy);
CG_EXTERN void CGContextRotateCTM(CGContextRef context, CGFloat angle);
CG_EXTERN void CGContextConcatCTM(CGContextRef context, CGAffineTransform transform);
/// From the coordinates of what is drawn now to pixels, counted from the bottom left corner; identity for NULL.
CG_EXTERN CGAffineTransform CGContextGetCTM(CGContextRef context);

CG_EXTERN void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color);
CG_EXTERN void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color);
CG_EXTERN void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
CG_EXTERN void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue,
                                          CGFloat alpha);
CG_EXTERN void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha);
CG_EXTERN void CGContextSetGrayStrokeColor(CGContextRef context, CGFloat gray, CGFloat alpha);
CG_EXTERN void CGContextSetShouldAntialias(CGContextRef context, bool shouldAntialias);
CG_EXTERN void CGContextSetAlpha(CGContextRef context, CGFloat alpha);
CG_EXTERN void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode);
CG_EXTERN void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality);
CG_EXTERN void CGContextSetLineWidth(CGContextRef context, CGFloat width);
CG_EXTERN void CGContextSetLineCap(CGContextRef context, CGLineCap cap);
CG_EXTERN void CGContextSetLineJoin(CGContextRef context, CGLineJoin join);
CG_EXTERN void CGContextSetMiterLimit(CGContextRef context, CGFloat limit);
/// `lengths` NULL or `count` 0: a solid line.
CG_EXTERN void CGContextSetLineDash(CGContextRef context, CGFloat phase, const CGFloat *lengths, size_t count);

/// A shadow below everything that is drawn from now on; NULL for the colour: none. `offset` and `blur` do not follow
/// the transform: they are in points, upwards in a bitmap context, downwards in one that UIKit opened. What lies
/// outside of the context or of its clip casts none.
CG_EXTERN void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur, CGColorRef color);
/// In black with a third of its opacity.
CG_EXTERN void CGContextSetShadow(CGContextRef context, CGSize offset, CGFloat blur);
/// What is drawn until the end is put onto the rest as a whole, with the shadow, alpha and blend mode of now. An end
/// without a begin: no effect.
CG_EXTERN void CGContextBeginTransparencyLayer(CGContextRef context, CFDictionaryRef auxiliaryInfo);
CG_EXTERN void CGContextEndTransparencyLayer(CGContextRef context);

CG_EXTERN void CGContextBeginPath(CGContextRef context);
CG_EXTERN void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y);
CG_EXTERN void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y);
CG_EXTERN void CGContextAddCurveToPoint(CGContextRef context, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x, CGFloat cp2y,
                                        CGFloat x, CGFloat y);
CG_EXTERN void CGContextAddQuadCurveToPoint(CGContextRef context, CGFloat cpx, CGFloat cpy, CGFloat x, CGFloat y);
/// A line to the point where a circle of `radius` touches the way to (x1, y1), and round it to where it touches the way
/// from there to (x2, y2).
CG_EXTERN void CGContextAddArcToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2,
                                      CGFloat radius);
/// From the first point on, one line after the other.
CG_EXTERN void CGContextAddLines(CGContextRef context, const CGPoint *points, size_t count);
CG_EXTERN void CGContextAddRects(CGContextRef context, const CGRect *rects, size_t count);
CG_EXTERN void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle,
                               CGFloat endAngle, int clockwise);
CG_EXTERN void CGContextAddRect(CGContextRef context, CGRect rect);
CG_EXTERN void CGContextAddEllipseInRect(CGContextRef context, CGRect rect);
CG_EXTERN void CGContextAddPath(CGContextRef context, CGPathRef path);
CG_EXTERN void CGContextClosePath(CGContextRef context);
CG_EXTERN bool CGContextIsPathEmpty(CGContextRef context);
/// (0, 0) without a current point.
CG_EXTERN CGPoint CGContextGetPathCurrentPoint(CGContextRef context);

/// These use the current path and begin a new one.
CG_EXTERN void CGContextDrawPath(CGContextRef context, CGPathDrawingMode mode);
CG_EXTERN void CGContextFillPath(CGContextRef context);
CG_EXTERN void CGContextEOFillPath(CGContextRef context);
CG_EXTERN void CGContextStrokePath(CGContextRef context);
CG_EXTERN void CGContextClip(CGContextRef context);
CG_EXTERN void CGContextEOClip(CGContextRef context);
CG_EXTERN void CGContextClipToRect(CGContextRef context, CGRect rect);

/// To where the mask lets through: an image mask where it is 0, another image where it is bright. Over `rect`, outside
/// of which nothing is drawn.
CG_EXTERN void CGContextClipToMask(CGContextRef context, CGRect rect, CGImageRef mask);
/// Without what masks cut.
CG_EXTERN CGRect CGContextGetClipBoundingBox(CGContextRef context);

CG_EXTERN void CGContextFillRect(CGContextRef context, CGRect rect);
CG_EXTERN void CGContextFillRects(CGContextRef context, const CGRect *rects, size_t count);
CG_EXTERN void CGContextStrokeRect(CGContextRef context, CGRect rect);
CG_EXTERN void CGContextStrokeRectWithWidth(CGContextRef context, CGRect rect, CGFloat width);
/// From each point with an even number to the one after it.
CG_EXTERN void CGContextStrokeLineSegments(CGContextRef context, const CGPoint *points, size_t count);
CG_EXTERN void CGContextClearRect(CGContextRef context, CGRect rect);
CG_EXTERN void CGContextFillEllipseInRect(CGContextRef context, CGRect rect);
CG_EXTERN void CGContextStrokeEllipseInRect(CGContextRef context, CGRect rect);
/// Over everything that is not clipped; before the start and after the end as the options say.
CG_EXTERN void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint startPoint,
                                           CGPoint endPoint, CGGradientDrawingOptions options);
CG_EXTERN void CGContextDrawRadialGradient(CGContextRef context, CGGradientRef gradient, CGPoint startCenter,
                                           CGFloat startRadius, CGPoint endCenter, CGFloat endRadius,
                                           CGGradientDrawingOptions options);
/// An image mask is drawn in the fill colour. The image's first row lies at the rectangle's greatest y, so in an image
/// context, whose y axis points down, the image appears upside down, as on a device.
CG_EXTERN void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image);
