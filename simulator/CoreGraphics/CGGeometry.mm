#import <CoreGraphics/CGGeometry.h>

#include <algorithm>

CGRect CGRectStandardize(CGRect rect) {
  if (CGRectIsNull(rect)) return CGRectNull;
  if (rect.size.width < 0) {
    rect.origin.x += rect.size.width;
    rect.size.width = -rect.size.width;
  }
  if (rect.size.height < 0) {
    rect.origin.y += rect.size.height;
    rect.size.height = -rect.size.height;
  }
  return rect;
}

CGFloat CGRectGetMinX(CGRect rect) { return CGRectStandardize(rect).origin.x; }
CGFloat CGRectGetMinY(CGRect rect) { return CGRectStandardize(rect).origin.y; }
CGFloat CGRectGetMidX(CGRect rect) { return rect.origin.x + rect.size.width / 2; }
CGFloat CGRectGetMidY(CGRect rect) { return rect.origin.y + rect.size.height / 2; }
CGFloat CGRectGetMaxX(CGRect rect) { return CGRectGetMinX(rect) + CGRectGetWidth(rect); }
CGFloat CGRectGetMaxY(CGRect rect) { return CGRectGetMinY(rect) + CGRectGetHeight(rect); }
CGFloat CGRectGetWidth(CGRect rect) { return std::abs(rect.size.width); }
CGFloat CGRectGetHeight(CGRect rect) { return std::abs(rect.size.height); }

bool CGRectIsNull(CGRect rect) { return rect.origin.x == INFINITY || rect.origin.y == INFINITY; }

bool CGRectIsEmpty(CGRect rect) { return CGRectIsNull(rect) || rect.size.width == 0 || rect.size.height == 0; }

bool CGRectIsInfinite(CGRect rect) {
  return rect.origin.x == CGRectInfinite.origin.x && rect.origin.y == CGRectInfinite.origin.y &&
         CGSizeEqualToSize(rect.size, CGRectInfinite.size);
}

bool CGRectEqualToRect(CGRect a, CGRect b) {
  if (CGRectIsNull(a) || CGRectIsNull(b)) return CGRectIsNull(a) && CGRectIsNull(b);
  const CGRect p = CGRectStandardize(a);
  const CGRect q = CGRectStandardize(b);
  return CGPointEqualToPoint(p.origin, q.origin) && CGSizeEqualToSize(p.size, q.size);
}

CGRect CGRectInset(CGRect rect, CGFloat dx, CGFloat dy) {
  if (CGRectIsNull(rect)) return CGRectNull;
  const CGRect r = CGRectStandardize(rect);
  const CGFloat width = r.size.width - 2 * dx;
  const CGFloat height = r.size.height - 2 * dy;
  if (width < 0 || height < 0) return CGRectNull;
  return CGRectMake(r.origin.x + dx, r.origin.y + dy, width, height);
}

CGRect CGRectOffset(CGRect rect, CGFloat dx, CGFloat dy) {
  if (CGRectIsNull(rect)) return CGRectNull;
  const CGRect r = CGRectStandardize(rect);
  return CGRectMake(r.origin.x + dx, r.origin.y + dy, r.size.width, r.size.height);
}

CGRect CGRectIntegral(CGRect rect) {
  if (CGRectIsNull(rect)) return CGRectNull;
  const CGFloat left = std::floor(CGRectGetMinX(rect));
  const CGFloat top = std::floor(CGRectGetMinY(rect));
  return CGRectMake(left, top, std::ceil(CGRectGetMaxX(rect)) - left, std::ceil(CGRectGetMaxY(rect)) - top);
}

CGRect CGRectUnion(CGRect a, CGRect b) {
  if (CGRectIsNull(a)) return b;
  if (CGRectIsNull(b)) return a;
  const CGFloat left = std::min(CGRectGetMinX(a), CGRectGetMinX(b));
  const CGFloat top = std::min(CGRectGetMinY(a), CGRectGetMinY(b));
  return CGRectMake(left, top, std::max(CGRectGetMaxX(a), CGRectGetMaxX(b)) - left,
                    std::max(CGRectGetMaxY(a), CGRectGetMaxY(b)) - top);
}

CGRect CGRectIntersection(CGRect a, CGRect b) {
  if (CGRectIsNull(a) || CGRectIsNull(b)) return CGRectNull;
  const CGFloat left = std::max(CGRectGetMinX(a), CGRectGetMinX(b));
  const CGFloat top = std::max(CGRectGetMinY(a), CGRectGetMinY(b));
  const CGFloat right = std::min(CGRectGetMaxX(a), CGRectGetMaxX(b));
  const CGFloat bottom = std::min(CGRectGetMaxY(a), CGRectGetMaxY(b));
  if (right < left || bottom < top) return CGRectNull;
  return CGRectMake(left, top, right - left, bottom - top);
}

bool CGRectIntersectsRect(CGRect a, CGRect b) { return !CGRectIsEmpty(CGRectIntersection(a, b)); }

bool CGRectContainsPoint(CGRect rect, CGPoint point) {
  if (CGRectIsNull(rect)) return false;
  return point.x >= CGRectGetMinX(rect) && point.x < CGRectGetMaxX(rect) && point.y >= CGRectGetMinY(rect) &&
         point.y < CGRectGetMaxY(rect);
}

bool CGRectContainsRect(CGRect outer, CGRect inner) { return CGRectEqualToRect(CGRectUnion(outer, inner), outer); }

void CGRectDivide(CGRect rect, CGRect *slice, CGRect *remainder, CGFloat amount, CGRectEdge edge) {
  const CGRect r = CGRectStandardize(rect);
  const bool horizontal = edge == CGRectMinXEdge || edge == CGRectMaxXEdge;
  const CGFloat length = horizontal ? r.size.width : r.size.height;
  const CGFloat cut = std::clamp(amount, CGFloat(0), length);
  CGRect near = r, far = r;
  const bool fromMin = edge == CGRectMinXEdge || edge == CGRectMinYEdge;
  const CGFloat first = fromMin ? cut : length - cut;
  if (horizontal) {
    near.size.width = first;
    far.origin.x += first;
    far.size.width = length - first;
  } else {
    near.size.height = first;
    far.origin.y += first;
    far.size.height = length - first;
  }
  if (slice) *slice = fromMin ? near : far;
  if (remainder) *remainder = fromMin ? far : near;
}
