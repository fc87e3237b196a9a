#import <QuartzCore/CATransform3D.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

const CATransform3D CATransform3DIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

namespace {

using Matrix = std::array<std::array<CGFloat, 4>, 4>;

Matrix matrixOf(const CATransform3D &t) { return std::bit_cast<Matrix>(t); }
CATransform3D transformOf(const Matrix &m) { return std::bit_cast<CATransform3D>(m); }

/// Solved by elimination with the largest pivot; false for a matrix without an inverse.
bool invert(Matrix left, Matrix &right) {
  right = matrixOf(CATransform3DIdentity);
  for (std::size_t column = 0; column < 4; ++column) {
    std::size_t pivot = column;
    for (std::size_t row = column + 1; row < 4; ++row) {
      if (std::abs(left[row][column]) > std::abs(left[pivot][column])) pivot = row;
    }
    const CGFloat divisor = left[pivot][column];
    if (divisor == 0 || !std::isfinite(divisor)) return false;
    std::swap(left[pivot], left[column]);
    std::swap(right[pivot], right[column]);
    for (std::size_t at = 0; at < 4; ++at) left[column][at] /= divisor, right[column][at] /= divisor;
    for (std::size_t row = 0; row < 4; ++row) {
      const CGFloat factor = left[row][column];
      if (row == column || factor == 0) continue;
      for (std::size_t at = 0; at < 4; ++at) {
        left[row][at] -= factor * left[column][at];
        right[row][at] -= factor * right[column][at];
      }
    }
  }
  return true;
}

}  // namespace

bool CATransform3DIsIdentity(CATransform3D t) { return CATransform3DEqualToTransform(t, CATransform3DIdentity); }

bool CATransform3DEqualToTransform(CATransform3D a, CATransform3D b) { return matrixOf(a) == matrixOf(b); }

CATransform3D CATransform3DMakeTranslation(CGFloat tx, CGFloat ty, CGFloat tz) {
  return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, tx, ty, tz, 1};
}

CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz) {
  return {sx, 0, 0, 0, 0, sy, 0, 0, 0, 0, sz, 0, 0, 0, 0, 1};
}

CATransform3D CATransform3DMakeRotation(CGFloat angle, CGFloat x, CGFloat y, CGFloat z) {
  const CGFloat length = std::hypot(x, y, z);
  if (!(length > 0)) return CATransform3DIdentity;
  x /= length, y /= length, z /= length;
  const CGFloat sine = std::sin(angle);
  const CGFloat cosine = std::cos(angle);
  const CGFloat rest = 1 - cosine;
  return {x * x * rest + cosine,
          x * y * rest + z * sine,
          x * z * rest - y * sine,
          0,
          x * y * rest - z * sine,
          y * y * rest + cosine,
          y * z * rest + x * sine,
          0,
          x * z * rest + y * sine,
          y * z * rest - x * sine,
          z * z * rest + cosine,
          0,
          0,
          0,
          0,
          1};
}

CATransform3D CATransform3DTranslate(CATransform3D t, CGFloat tx, CGFloat ty, CGFloat tz) {
  return CATransform3DConcat(CATransform3DMakeTranslation(tx, ty, tz), t);
}

CATransform3D CATransform3DScale(CATransform3D t, CGFloat sx, CGFloat sy, CGFloat sz) {
  return CATransform3DConcat(CATransform3DMakeScale(sx, sy, sz), t);
}

CATransform3D CATransform3DRotate(CATransform3D t, CGFloat angle, CGFloat x, CGFloat y, CGFloat z) {
  return CATransform3DConcat(CATransform3DMakeRotation(angle, x, y, z), t);
}

CATransform3D CATransform3DConcat(CATransform3D a, CATransform3D b) {
  const Matrix one = matrixOf(a);
  const Matrix other = matrixOf(b);
  Matrix product{};
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      for (std::size_t at = 0; at < 4; ++at) product[row][column] += one[row][at] * other[at][column];
    }
  }
  return transformOf(product);
}

CATransform3D CATransform3DInvert(CATransform3D t) {
  Matrix inverse;
  return invert(matrixOf(t), inverse) ? transformOf(inverse) : t;
}

CATransform3D CATransform3DMakeAffineTransform(CGAffineTransform m) {
  return {m.a, m.b, 0, 0, m.c, m.d, 0, 0, 0, 0, 1, 0, m.tx, m.ty, 0, 1};
}

bool CATransform3DIsAffine(CATransform3D t) {
  return CATransform3DEqualToTransform(t, CATransform3DMakeAffineTransform(CATransform3DGetAffineTransform(t)));
}

CGAffineTransform CATransform3DGetAffineTransform(CATransform3D t) {
  return CGAffineTransformMake(t.m11, t.m12, t.m21, t.m22, t.m41, t.m42);
}

@implementation NSValue (CATransform3DAdditions)

+ (NSValue *)valueWithCATransform3D:(CATransform3D)t {
  return [NSValue valueWithBytes:&t objCType:@encode(CATransform3D)];
}

- (CATransform3D)CATransform3DValue {
  CATransform3D t = CATransform3DIdentity;
  if (strcmp([self objCType], @encode(CATransform3D)) == 0) [self getValue:&t];
  return t;
}

@end
