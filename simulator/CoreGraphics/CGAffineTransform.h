// Affine transforms: x' = a·x + c·y + tx, y' = b·x + d·y + ty.
#pragma once

#include <CoreGraphics/CGGeometry.h>

#if !defined(CF_DEFINES_CG_TYPES)  // As in CGGeometry.h.
typedef struct CGAffineTransform {
  CGFloat a, b, c, d;
  CGFloat tx, ty;
} CGAffineTransform;
#endif

static const CGAffineTransform CGAffineTransformIdentity __attribute__((unused)) = {1, 0, 0, 1, 0, 0};

CG_INLINE CGAffineTransform CGAffineTransformMake(CGFloat a, CGFloat b, CGFloat c, CGFloat d, CGFloat tx, CGFloat ty) {
  CGAffineTransform transform = {a, b, c, d, tx, ty};
  return transform;
}
CG_EXTERN CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty);
CG_EXTERN CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy);
/// `angle` in radians.
CG_EXTERN CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);
CG_EXTERN CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty);
CG_EXTERN CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy);
CG_EXTERN CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle);
/// First `a`, then `b`.
CG_EXTERN CGAffineTransform CGAffineTransformConcat(CGAffineTransform a, CGAffineTransform b);
/// `t` itself when it has no inverse.
CG_EXTERN CGAffineTransform CGAffineTransformInvert(CGAffineTransform t);
CG_EXTERN bool CGAffineTransformIsIdentity(CGAffineTransform t);
CG_EXTERN bool CGAffineTransformEqualToTransform(CGAffineTransform a, CGAffineTransform b);
CG_EXTERN CGPoint CGPointApplyAffineTransform(CGPoint point, CGAffineTransform t);
CG_EXTERN CGSize CGSizeApplyAffineTransform(CGSize size, CGAffineTransform t);
/// The bounding box of the transformed rectangle.
CG_EXTERN CGRect CGRectApplyAffineTransform(CGRect rect, CGAffineTransform t);
