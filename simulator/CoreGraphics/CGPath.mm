#import <CoreGraphics/CGPath+Sim.h>

@interface SIMPath : NSObject {
 @public
  sim::Path _path;
}
@end

@implementation SIMPath

- (BOOL)isEqual:(id)other {
  return [other isKindOfClass:[SIMPath class]] && ((SIMPath *)other)->_path == _path;
}

- (NSUInteger)hash {
  return _path.elements().size();
}

@end

namespace {

sim::Transform transformOf(const CGAffineTransform *m) { return m ? sim::transformOf(*m) : sim::Transform(); }

CGRect rectOf(const std::optional<sim::Box> &box) {
  return box ? CGRectMake(box->left, box->top, box->width, box->height) : CGRectNull;
}

void refuse(const char *function) { NSLog(@"%s: no current point.", function); }

}  // namespace

namespace sim {

CGMutablePathRef createPath(Path path) {
  SIMPath *object = [[SIMPath alloc] init];
  object->_path = std::move(path);
  return (CGMutablePathRef)object;
}

Path &pathOf(CGPathRef path) { return ((SIMPath *)(void *)path)->_path; }

}  // namespace sim

CGMutablePathRef CGPathCreateMutable(void) { return sim::createPath({}); }
CGPathRef CGPathCreateCopy(CGPathRef path) { return CGPathCreateMutableCopy(path); }
CGMutablePathRef CGPathCreateMutableCopy(CGPathRef path) { return path ? sim::createPath(sim::pathOf(path)) : nullptr; }

CGPathRef CGPathCreateWithRect(CGRect rect, const CGAffineTransform *m) {
  const CGMutablePathRef path = CGPathCreateMutable();
  CGPathAddRect(path, m, rect);
  return path;
}

CGPathRef CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform *m) {
  const CGMutablePathRef path = CGPathCreateMutable();
  CGPathAddEllipseInRect(path, m, rect);
  return path;
}

CGPathRef CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                      const CGAffineTransform *m) {
  const CGMutablePathRef path = CGPathCreateMutable();
  CGPathAddRoundedRect(path, m, rect, cornerWidth, cornerHeight);
  return path;
}

CGPathRef CGPathRetain(CGPathRef path) { return (CGPathRef)[(id)path retain]; }
void CGPathRelease(CGPathRef path) { [(id)path release]; }

void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x, CGFloat y) {
  if (path) sim::pathOf(path).move(transformOf(m)({x, y}));
}

void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x, CGFloat y) {
  if (path && !sim::pathOf(path).line(transformOf(m)({x, y}))) refuse(__func__);
}

void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat cpx, CGFloat cpy, CGFloat x,
                               CGFloat y) {
  const auto t = transformOf(m);
  if (path && !sim::pathOf(path).quad(t({cpx, cpy}), t({x, y}))) refuse(__func__);
}

void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x,
                           CGFloat cp2y, CGFloat x, CGFloat y) {
  const auto t = transformOf(m);
  if (path && !sim::pathOf(path).curve(t({cp1x, cp1y}), t({cp2x, cp2y}), t({x, y}))) refuse(__func__);
}

void CGPathCloseSubpath(CGMutablePathRef path) {
  if (path) sim::pathOf(path).close();
}

void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform *m, CGRect rect) {
  if (path && !CGRectIsNull(rect)) sim::pathOf(path).rect(sim::boxOf(CGRectStandardize(rect)), transformOf(m));
}

void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform *m, CGRect rect) {
  if (path && !CGRectIsNull(rect)) sim::pathOf(path).ellipse(sim::boxOf(CGRectStandardize(rect)), transformOf(m));
}

void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform *m, CGRect rect, CGFloat cornerWidth,
                          CGFloat cornerHeight) {
  if (!path || CGRectIsNull(rect)) return;
  sim::pathOf(path).roundedRect(sim::boxOf(CGRectStandardize(rect)), cornerWidth, cornerHeight, transformOf(m));
}

void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x, CGFloat y, CGFloat radius,
                  CGFloat startAngle, CGFloat endAngle, bool clockwise) {
  if (path) sim::pathOf(path).arc({x, y}, radius, startAngle, endAngle, clockwise, transformOf(m));
}

void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform *m, CGPathRef added) {
  if (path && added) sim::pathOf(path).append(sim::pathOf(added), transformOf(m));
}

bool CGPathIsEmpty(CGPathRef path) { return !path || sim::pathOf(path).empty(); }

bool CGPathEqualToPath(CGPathRef a, CGPathRef b) { return a == b || (a && b && sim::pathOf(a) == sim::pathOf(b)); }

CGPoint CGPathGetCurrentPoint(CGPathRef path) {
  const auto point = path ? sim::pathOf(path).current() : std::nullopt;
  return point ? CGPointMake(point->x, point->y) : CGPointZero;
}

CGRect CGPathGetBoundingBox(CGPathRef path) { return path ? rectOf(sim::pathOf(path).controlBox()) : CGRectNull; }
CGRect CGPathGetPathBoundingBox(CGPathRef path) { return path ? rectOf(sim::pathOf(path).outlineBox()) : CGRectNull; }

bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform *m, CGPoint point, bool eoFill) {
  if (!path) return false;
  if (!m) return sim::pathOf(path).contains({point.x, point.y}, eoFill);
  sim::Path moved = sim::pathOf(path);
  moved.transform(sim::transformOf(*m));
  return moved.contains({point.x, point.y}, eoFill);
}
