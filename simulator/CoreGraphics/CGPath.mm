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

CGMutablePathRef CGPathCreateMutableCopyByTransformingPath(CGPathRef path, const CGAffineTransform *transform) {
  const CGMutablePathRef copy = CGPathCreateMutableCopy(path);
  if (copy && transform) sim::pathOf(copy).transform(transformOf(transform));
  return copy;
}

CGPathRef CGPathCreateCopyByTransformingPath(CGPathRef path, const CGAffineTransform *transform) {
  return CGPathCreateMutableCopyByTransformingPath(path, transform);
}

void CGPathAddArcToPoint(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x1, CGFloat y1, CGFloat x2,
                         CGFloat y2, CGFloat radius) {
  if (!path) return;
  if (sim::pathOf(path).empty()) return refuse("CGPathAddArcToPoint");
  const sim::Transform transform = transformOf(m);
  sim::pathOf(path).arcTo(transform({x1, y1}), transform({x2, y2}), radius);
}

void CGPathAddRelativeArc(CGMutablePathRef path, const CGAffineTransform *m, CGFloat x, CGFloat y, CGFloat radius,
                          CGFloat startAngle, CGFloat delta) {
  CGPathAddArc(path, m, x, y, radius, startAngle, startAngle + delta, delta < 0);
}

void CGPathAddLines(CGMutablePathRef path, const CGAffineTransform *m, const CGPoint *points, size_t count) {
  for (size_t at = 0; at < count; ++at) {
    at == 0 ? CGPathMoveToPoint(path, m, points[at].x, points[at].y)
            : CGPathAddLineToPoint(path, m, points[at].x, points[at].y);
  }
}

void CGPathAddRects(CGMutablePathRef path, const CGAffineTransform *m, const CGRect *rects, size_t count) {
  for (size_t at = 0; at < count; ++at) CGPathAddRect(path, m, rects[at]);
}

void CGPathApplyWithBlock(CGPathRef path, CGPathApplyBlock CF_NOESCAPE block) {
  if (!path) return;
  const sim::Path kept = sim::pathOf(path);  // The block may change it.
  for (const sim::Path::Element &element : kept.elements()) {
    CGPoint points[3];
    for (std::size_t at = 0; at < 3; ++at) points[at] = CGPointMake(element.points[at].x, element.points[at].y);
    CGPathElement told{kCGPathElementCloseSubpath, points};
    if (element.verb == sim::Path::Verb::move) told.type = kCGPathElementMoveToPoint;
    if (element.verb == sim::Path::Verb::line) told.type = kCGPathElementAddLineToPoint;
    if (element.verb == sim::Path::Verb::curve) told.type = kCGPathElementAddCurveToPoint;
    block(&told);
  }
}

void CGPathApply(CGPathRef path, void *info, CGPathApplierFunction function) {
  CGPathApplyWithBlock(path, ^(const CGPathElement *element) {
    function(info, element);
  });
}
