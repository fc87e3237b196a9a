// Transforms in space, row vectors: [x' y' z' w'] = [x y z w]·m.
#pragma once

#import <CoreGraphics/CoreGraphics.h>

#if defined(__cplusplus)
#define CA_EXTERN extern "C"
#else
#define CA_EXTERN extern
#endif

typedef struct CATransform3D {
  CGFloat m11, m12, m13, m14;
  CGFloat m21, m22, m23, m24;
  CGFloat m31, m32, m33, m34;
  CGFloat m41, m42, m43, m44;
} CATransform3D;

CA_EXTERN const CATransform3D CATransform3DIdentity;

CA_EXTERN bool CATransform3DIsIdentity(CATransform3D t);
CA_EXTERN bool CATransform3DEqualToTransform(CATransform3D a, CATransform3D b);
CA_EXTERN CATransform3D CATransform3DMakeTranslation(CGFloat tx, CGFloat ty, CGFloat tz);
CA_EXTERN CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz);
/// `angle` in radians about the axis (x, y, z). The identity about an axis of no length.
CA_EXTERN CATransform3D CATransform3DMakeRotation(CGFloat angle, CGFloat x, CGFloat y, CGFloat z);
/// These three put the change before `t`.
CA_EXTERN CATransform3D CATransform3DTranslate(CATransform3D t, CGFloat tx, CGFloat ty, CGFloat tz);
CA_EXTERN CATransform3D CATransform3DScale(CATransform3D t, CGFloat sx, CGFloat sy, CGFloat sz);
CA_EXTERN CATransform3D CATransform3DRotate(CATransform3D t, CGFloat angle, CGFloat x, CGFloat y, CGFloat z);
/// First `a`, then `b`.
CA_EXTERN CATransform3D CATransform3DConcat(CATransform3D a, CATransform3D b);
/// `t` itself when it has no inverse.
CA_EXTERN CATransform3D CATransform3DInvert(CATransform3D t);
CA_EXTERN CATransform3D CATransform3DMakeAffineTransform(CGAffineTransform m);
/// Whether `t` is a transform of the plane alone.
CA_EXTERN bool CATransform3DIsAffine(CATransform3D t);
/// The part of `t` in the plane; only of use for one that is affine.
CA_EXTERN CGAffineTransform CATransform3DGetAffineTransform(CATransform3D t);

@interface NSValue (CATransform3DAdditions)
+ (NSValue *)valueWithCATransform3D:(CATransform3D)t;
@property(readonly) CATransform3D CATransform3DValue;
@end
