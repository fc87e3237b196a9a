// Geometric paths.
#pragma once

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
CG_EXTERN void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform *m, CGPathRef added);

CG_EXTERN bool CGPathIsEmpty(CGPathRef path);
CG_EXTERN bool CGPathEqualToPath(CGPathRef a, CGPathRef b);
CG_EXTERN CGPoint CGPathGetCurrentPoint(CGPathRef path);
/// The box around every point, control points included; CGRectNull for an empty path.
CG_EXTERN CGRect CGPathGetBoundingBox(CGPathRef path);
/// The box around the drawn outline; CGRectNull for an empty path.
CG_EXTERN CGRect CGPathGetPathBoundingBox(CGPathRef path);
CG_EXTERN bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform *m, CGPoint point, bool eoFill);
