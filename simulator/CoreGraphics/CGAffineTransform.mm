#import <CoreGraphics/CGAffineTransform.h>

#include <algorithm>

CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) {
  return CGAffineTransformMake(1, 0, 0, 1, tx, ty);
}

CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) {
  return CGAffineTransformMake(sx, 0, 0, sy, 0, 0);
}

CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
  const CGFloat sine = std::sin(angle);
  const CGFloat cosine = std::cos(angle);
  return CGAffineTransformMake(cosine, sine, -sine, cosine, 0, 0);
}

CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty) {
  return CGAffineTransformConcat(CGAffineTransformMakeTranslation(tx, ty), t);
}

CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy) {
  return CGAffineTransformConcat(CGAffineTransformMakeScale(sx, sy), t);
}

CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle) {
  return CGAffineTransformConcat(CGAffineTransformMakeRotation(angle), t);
}

CGAffineTransform CGAffineTransformConcat(CGAffineTransform a, CGAffineTransform b) {
  return CGAffineTransformMake(a.a * b.a + a.b * b.c, a.a * b.b + a.b * b.d, a.c * b.a + a.d * b.c,
                               a.c * b.b + a.d * b.d, a.tx * b.a + a.ty * b.c + b.tx, a.tx * b.b + a.ty * b.d + b.ty);
}

CGAffineTransform CGAffineTransformInvert(CGAffineTransform t) {
  const CGFloat determinant = t.a * t.d - t.b * t.c;
  if (determinant == 0) return t;
  return CGAffineTransformMake(t.d / determinant, -t.b / determinant, -t.c / determinant, t.a / determinant,
                               (t.c * t.ty - t.d * t.tx) / determinant, (t.b * t.tx - t.a * t.ty) / determinant);
}

bool CGAffineTransformIsIdentity(CGAffineTransform t) {
  return CGAffineTransformEqualToTransform(t, CGAffineTransformIdentity);
}

bool CGAffineTransformEqualToTransform(CGAffineTransform a, CGAffineTransform b) {
  return a.a == b.a && a.b == b.b && a.c == b.c && a.d == b.d && a.tx == b.tx && a.ty == b.ty;
}

CGPoint CGPointApplyAffineTransform(CGPoint p, CGAffineTransform t) {
  return CGPointMake(t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty);
}

CGSize CGSizeApplyAffineTransform(CGSize s, CGAffineTransform t) {
  return CGSizeMake(t.a * s.width + t.c * s.height, t.b * s.width + t.d * s.height);
}

CGRect CGRectApplyAffineTransform(CGRect rect, CGAffineTransform t) {
  if (CGRectIsNull(rect)) return CGRectNull;
  const CGFloat x[] = {CGRectGetMinX(rect), CGRectGetMaxX(rect)};
  const CGFloat y[] = {CGRectGetMinY(rect), CGRectGetMaxY(rect)};
  CGPoint low = CGPointApplyAffineTransform(CGPointMake(x[0], y[0]), t);
  CGPoint high = low;
  for (const CGPoint corner : {CGPointMake(x[1], y[0]), CGPointMake(x[0], y[1]), CGPointMake(x[1], y[1])}) {
    const CGPoint p = CGPointApplyAffineTransform(corner, t);
    low = CGPointMake(std::min(low.x, p.x), std::min(low.y, p.y));
    high = CGPointMake(std::max(high.x, p.x), std::max(high.y, p.y));
  }
  return CGRectMake(low.x, low.y, high.x - low.x, high.y - low.y);
}
