// Where a layer lies.
#import <QuartzCore/CALayerState.h>

#include <objcxx/Retained.h>

namespace {

/// From the layer's coordinates to those of the outermost layer; the identity for nil.
CGAffineTransform transformToRoot(CALayer *layer) {
  CGAffineTransform transform = CGAffineTransformIdentity;
  for (; layer; layer = [layer superlayer]) {
    transform = CGAffineTransformConcat(transform, sim::transformToParent([layer sim_geometry]));
  }
  return transform;
}

CGAffineTransform between(CALayer *from, CALayer *to) {
  return CGAffineTransformConcat(transformToRoot(from), CGAffineTransformInvert(transformToRoot(to)));
}

}  // namespace

@implementation CALayer (Geometry)

/// Runs `change` on the geometry, and tells who has to hear of new bounds.
- (void)sim_changeGeometry:(void (^)(sim::LayerGeometry &geometry))change {
  sim::LayerGeometry &geometry = [self sim_geometry];
  const CGRect old = geometry.bounds;
  change(geometry);
  if (CGRectEqualToRect(old, geometry.bounds)) return;
  if (id<SIMLayerOwner> owner = [self sim_owner]) return [owner sim_layerBoundsDidChange:old];
  [self setNeedsLayout];
  if ([self needsDisplayOnBoundsChange]) [self setNeedsDisplay];
}

- (CGRect)frame {
  return sim::frameOf([self sim_geometry]);
}

- (void)setFrame:(CGRect)frame {
  [self sim_changeGeometry:^(sim::LayerGeometry &geometry) {
    sim::setFrame(geometry, frame);
  }];
}

- (CGRect)bounds {
  return [self sim_geometry].bounds;
}

- (void)setBounds:(CGRect)bounds {
  [self sim_changeGeometry:^(sim::LayerGeometry &geometry) {
    sim::setBounds(geometry, bounds);
  }];
}

- (CGPoint)position {
  return sim::positionOf([self sim_geometry]);
}

- (void)setPosition:(CGPoint)position {
  sim::setPosition([self sim_geometry], position);
}

- (CGPoint)anchorPoint {
  return [self sim_geometry].anchorPoint;
}

- (void)setAnchorPoint:(CGPoint)anchorPoint {
  sim::setAnchorPoint([self sim_geometry], anchorPoint);
}

- (CATransform3D)transform {
  return [self sim_geometry].transform;
}

- (void)setTransform:(CATransform3D)transform {
  [self sim_geometry].transform = transform;
}

- (CGAffineTransform)affineTransform {
  return CATransform3DGetAffineTransform([self transform]);
}

- (void)setAffineTransform:(CGAffineTransform)m {
  [self setTransform:CATransform3DMakeAffineTransform(m)];
}

- (CGPoint)convertPoint:(CGPoint)p fromLayer:(CALayer *)l {
  return CGPointApplyAffineTransform(p, between(l, self));
}

- (CGPoint)convertPoint:(CGPoint)p toLayer:(CALayer *)l {
  return CGPointApplyAffineTransform(p, between(self, l));
}

- (CGRect)convertRect:(CGRect)r fromLayer:(CALayer *)l {
  return sim::apply(r, between(l, self));
}

- (CGRect)convertRect:(CGRect)r toLayer:(CALayer *)l {
  return sim::apply(r, between(self, l));
}

- (BOOL)containsPoint:(CGPoint)p {
  return CGRectContainsPoint([self bounds], p);
}

- (CALayer *)hitTest:(CGPoint)p {
  if ([self isHidden]) return nil;
  const CGAffineTransform toParent = sim::transformToParent([self sim_geometry]);
  const CGPoint own = CGPointApplyAffineTransform(p, CGAffineTransformInvert(toParent));
  const BOOL holds = [self containsPoint:own];
  if (!holds && [self masksToBounds]) return nil;
  for (CALayer *sublayer in [[self sim_sublayersInDrawingOrder] reverseObjectEnumerator]) {
    if (CALayer *found = [sublayer hitTest:own]) return found;
  }
  return holds ? self : nil;
}

@end
