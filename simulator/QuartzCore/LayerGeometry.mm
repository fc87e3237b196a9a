#import <QuartzCore/LayerGeometry.h>

namespace sim {
namespace {

CGPoint anchorIn(CGSize size, CGPoint anchor) { return CGPointMake(size.width * anchor.x, size.height * anchor.y); }

}  // namespace

void requireFinite(CGRect rect) {
  if (std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
      std::isfinite(rect.size.height)) {
    return;
  }
  [NSException raise:@"CALayerInvalidGeometry"
              format:@"A layer or view cannot have the rectangle {{%g, %g}, {%g, %g}}.", rect.origin.x, rect.origin.y,
                     rect.size.width, rect.size.height];
}

CGPoint positionOf(const LayerGeometry &geometry) {
  const CGPoint anchor = anchorIn(geometry.bounds.size, geometry.anchorPoint);
  return CGPointMake(geometry.origin.x + anchor.x, geometry.origin.y + anchor.y);
}

void setPosition(LayerGeometry &geometry, CGPoint position) {
  requireFinite({position, CGSizeZero});
  const CGPoint anchor = anchorIn(geometry.bounds.size, geometry.anchorPoint);
  geometry.origin = CGPointMake(position.x - anchor.x, position.y - anchor.y);
}

void setBounds(LayerGeometry &geometry, CGRect bounds) {
  requireFinite(bounds);
  const CGRect standard = CGRectStandardize(bounds);
  const CGSize old = geometry.bounds.size;
  geometry.origin.x += (old.width - standard.size.width) * geometry.anchorPoint.x;
  geometry.origin.y += (old.height - standard.size.height) * geometry.anchorPoint.y;
  geometry.bounds = standard;
}

void setAnchorPoint(LayerGeometry &geometry, CGPoint anchorPoint) {
  requireFinite({anchorPoint, CGSizeZero});
  const CGPoint position = positionOf(geometry);
  geometry.anchorPoint = anchorPoint;
  setPosition(geometry, position);
}

CGRect frameOf(const LayerGeometry &geometry) {
  if (CATransform3DIsIdentity(geometry.transform)) return {geometry.origin, geometry.bounds.size};
  return CGRectApplyAffineTransform(geometry.bounds, transformToParent(geometry));
}

void setFrame(LayerGeometry &geometry, CGRect frame) {
  requireFinite(frame);
  const CGRect standard = CGRectStandardize(frame);
  if (CATransform3DIsIdentity(geometry.transform)) {
    geometry.origin = standard.origin;
    geometry.bounds.size = standard.size;
    return;
  }
  CGAffineTransform turn = CATransform3DGetAffineTransform(geometry.transform);
  turn.tx = turn.ty = 0;
  geometry.bounds.size = CGRectApplyAffineTransform({CGPointZero, standard.size}, CGAffineTransformInvert(turn)).size;
  const CGRect now = frameOf(geometry);
  geometry.origin.x += CGRectGetMidX(standard) - CGRectGetMidX(now);
  geometry.origin.y += CGRectGetMidY(standard) - CGRectGetMidY(now);
}

CGAffineTransform transformToParent(const LayerGeometry &geometry) {
  const CGRect &bounds = geometry.bounds;
  if (CATransform3DIsIdentity(geometry.transform)) {
    return CGAffineTransformMakeTranslation(geometry.origin.x - bounds.origin.x, geometry.origin.y - bounds.origin.y);
  }
  const CGPoint anchor = anchorIn(bounds.size, geometry.anchorPoint);
  const CGPoint position = positionOf(geometry);
  const auto toAnchor = CGAffineTransformMakeTranslation(-bounds.origin.x - anchor.x, -bounds.origin.y - anchor.y);
  return CGAffineTransformConcat(CGAffineTransformConcat(toAnchor, CATransform3DGetAffineTransform(geometry.transform)),
                                 CGAffineTransformMakeTranslation(position.x, position.y));
}

CGRect apply(CGRect rect, CGAffineTransform t) {
  if (t.a == 1 && t.b == 0 && t.c == 0 && t.d == 1) return CGRectOffset(rect, t.tx, t.ty);
  return CGRectApplyAffineTransform(rect, t);
}

}  // namespace sim
