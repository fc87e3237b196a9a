// Geometric paths.
#pragma once

#include <CoreFoundation/CFBase.h>
#include <CoreGraphics/CGAffineTransform.h>

/// Core Foundation objects; ownership by CGPathRetain/Release or CFRetain/CFRelease.
typedef const struct CGPath *CGPathRef;
typedef struct CGPath *CGMutablePathRef;

/// In every function `m`, where it is not NULL, is applied to what is added. NULL paths are ignored.
CG_EXTERN CGMutablePathRef CGPathCreateMutable(void);
CG_EXTERN CGPathRef CGPathCreateCopy(CGPathRef path);
CG_EXTERN CGMutablePathRef CGPathCreateMutableCopy(CGPathRef path);
CG_EXTERN CGPathRef CGPathCreateWithRect(CGRect rect, const CGAffineTransform *m);
CG_EXTERN CGPathRef CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform *m);
CG_EXTERN CGPathRef CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                                const CGAffineTransform *m);
CG_EXTERN CGPathRef CGPathCreateCopyByTransformingPath(CGPathRef path, const CGAffineTransform *transform);
CG_EXTERN CGMutablePathRef CGPathCreateMutableCopyByTransformingPath(CGPathRef path,
                                                                     const CGAffineTransform *transform);
CG_EXTERN CGPathRef CGPathRetain(CGPathRef path);
CG_EXTERN void CGPathRelease(CGPathRef path);

CG_EXTERN void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x, CGFloat y);
CG_EXTERN void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x, CGFloat y);
CG_EXTERN void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat cpx, CGFloat cpy,
                                         CGFloat x, CGFloat y);
CG_EXTERN void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat cp1x, CGFloat cp1y,
                                     CGFloat cp2x, CGFloat cp2y, CGFloat x, CGFloat y);
CG_EXTERN void CGPathCloseSubpath(CGMutablePathRef path);
CG_EXTERN void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform *m, CGRect rect);
CG_EXTERN void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform *m, CGRect rect);
CG_EXTERN void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform *m, CGRect rect, CGFloat cornerWidth,
                                    CGFloat cornerHeight);
/// Angles in radians; `clockwise` in a coordinate system whose y axis points up.
CG_EXTERN void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x, CGFloat y, CGFloat radius,
                            CGFloat startAngle, CGFloat endAngle, bool clockwise);
/// A line to where a circle of `radius` touches the way to (x1, y1), and round it to where it touches the way from
/// there to (x2, y2).
CG_EXTERN void CGPathAddArcToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x1, CGFloat y1,
                                   CGFloat x2, CGFloat y2, CGFloat radius);
/// Counted from `startAngle`; below 0 clockwise in a coordinate system whose y axis points up.
CG_EXTERN void CGPathAddRelativeArc(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x, CGFloat y,
                                    CGFloat radius, CGFloat startAngle, CGFloat delta);
/// From the first point on, one line after the other.
CG_EXTERN void CGPathAddLines(CGMutablePathRef path, const CGAffineTransform *m, const CGPoint *points, size_t count);
CG_EXTERN void CGPathAddRects(CGMutablePathRef path, const CGAffineTransform *m, const CGRect *rects, size_t count);
CG_EXTERN void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform *m, CGPathRef added);

CG_EXTERN bool CGPathIsEmpty(CGPathRef path);
CG_EXTERN bool CGPathEqualToPath(CGPathRef a, CGPathRef b);
CG_EXTERN CGPoint CGPathGetCurrentPoint(CGPathRef path);
/// The box around every point, control points included; CGRectNull for an empty path.
CG_EXTERN CGRect CGPathGetBoundingBox(CGPathRef path);
/// The box around the drawn outline; CGRectNull for an empty path.
CG_EXTERN CGRect CGPathGetPathBoundingBox(CGPathRef path);
CG_EXTERN bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform *m, CGPoint point, bool eoFill);

typedef NS_ENUM(int32_t, CGPathElementType) {
  kCGPathElementMoveToPoint,
  kCGPathElementAddLineToPoint,
  kCGPathElementAddQuadCurveToPoint,
  kCGPathElementAddCurveToPoint,
  kCGPathElementCloseSubpath,
};

/// The points are those of the call: one for a move or a line, three for a curve, none for a close. A quadratic curve
/// that was added is told as the cubic one that it is kept as.
typedef struct CGPathElement {
  CGPathElementType type;
  CGPoint *points;
} CGPathElement;

typedef void (*CGPathApplierFunction)(void *info, const CGPathElement *element);
CG_EXTERN void CGPathApply(CGPathRef path, void *info, CGPathApplierFunction function);
typedef void (^CGPathApplyBlock)(const CGPathElement *element);
CG_EXTERN void CGPathApplyWithBlock(CGPathRef path, CGPathApplyBlock CF_NOESCAPE block);
