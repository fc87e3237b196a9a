// Points, sizes and rectangles. Lengths are in points unless a function says otherwise.
#pragma once

#include <CoreGraphics/CGBase.h>

#include <float.h>
#include <math.h>
#include <stdbool.h>
#include <stdint.h>

#if !defined(CF_DEFINES_CG_TYPES)  // Newer Foundations bring these types themselves.
typedef struct CGPoint {
  CGFloat x;
  CGFloat y;
} CGPoint;

typedef struct CGSize {
  CGFloat width;
  CGFloat height;
} CGSize;

typedef struct CGRect {
  CGPoint origin;
  CGSize size;
} CGRect;

typedef struct CGVector {
  CGFloat dx;
  CGFloat dy;
} CGVector;

#define CGFLOAT_MAX DBL_MAX
#define CGFLOAT_MIN DBL_MIN
#define CGFLOAT_IS_DOUBLE 1
#endif

typedef NS_ENUM(uint32_t, CGRectEdge) { CGRectMinXEdge, CGRectMinYEdge, CGRectMaxXEdge, CGRectMaxYEdge };

static const CGPoint CGPointZero __attribute__((unused)) = {0, 0};
static const CGSize CGSizeZero __attribute__((unused)) = {0, 0};
static const CGRect CGRectZero __attribute__((unused)) = {{0, 0}, {0, 0}};
static const CGRect CGRectInfinite __attribute__((unused)) = {{-DBL_MAX / 2, -DBL_MAX / 2}, {DBL_MAX, DBL_MAX}};
/// The empty rectangle at infinity that CGRectIntersection answers for disjoint rectangles.
static const CGRect CGRectNull __attribute__((unused)) = {{INFINITY, INFINITY}, {0, 0}};

CG_INLINE CGPoint CGPointMake(CGFloat x, CGFloat y) {
  CGPoint point = {x, y};
  return point;
}
CG_INLINE CGSize CGSizeMake(CGFloat width, CGFloat height) {
  CGSize size = {width, height};
  return size;
}
CG_INLINE CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  CGRect rect = {{x, y}, {width, height}};
  return rect;
}
CG_INLINE CGVector CGVectorMake(CGFloat dx, CGFloat dy) {
  CGVector vector = {dx, dy};
  return vector;
}

CG_INLINE bool CGPointEqualToPoint(CGPoint a, CGPoint b) { return a.x == b.x && a.y == b.y; }
CG_INLINE bool CGSizeEqualToSize(CGSize a, CGSize b) { return a.width == b.width && a.height == b.height; }

/// The getters take a negative width or height as extending the other way, as CGRectStandardize does.
CG_EXTERN CGFloat CGRectGetMinX(CGRect rect);
CG_EXTERN CGFloat CGRectGetMidX(CGRect rect);
CG_EXTERN CGFloat CGRectGetMaxX(CGRect rect);
CG_EXTERN CGFloat CGRectGetMinY(CGRect rect);
CG_EXTERN CGFloat CGRectGetMidY(CGRect rect);
CG_EXTERN CGFloat CGRectGetMaxY(CGRect rect);
CG_EXTERN CGFloat CGRectGetWidth(CGRect rect);
CG_EXTERN CGFloat CGRectGetHeight(CGRect rect);

CG_EXTERN bool CGRectIsNull(CGRect rect);
CG_EXTERN bool CGRectIsEmpty(CGRect rect);
CG_EXTERN bool CGRectIsInfinite(CGRect rect);
CG_EXTERN bool CGRectEqualToRect(CGRect a, CGRect b);
CG_EXTERN CGRect CGRectStandardize(CGRect rect);
/// CGRectNull when the insets leave a negative width or height.
CG_EXTERN CGRect CGRectInset(CGRect rect, CGFloat dx, CGFloat dy);
CG_EXTERN CGRect CGRectOffset(CGRect rect, CGFloat dx, CGFloat dy);
/// The smallest rectangle with integer edges that holds `rect`.
CG_EXTERN CGRect CGRectIntegral(CGRect rect);
CG_EXTERN CGRect CGRectUnion(CGRect a, CGRect b);
CG_EXTERN CGRect CGRectIntersection(CGRect a, CGRect b);
CG_EXTERN bool CGRectIntersectsRect(CGRect a, CGRect b);
CG_EXTERN bool CGRectContainsPoint(CGRect rect, CGPoint point);
CG_EXTERN bool CGRectContainsRect(CGRect outer, CGRect inner);
/// Cuts `amount` off `rect` at `edge`; `slice` and `remainder` are both written.
CG_EXTERN void CGRectDivide(CGRect rect, CGRect *slice, CGRect *remainder, CGFloat amount, CGRectEdge edge);
