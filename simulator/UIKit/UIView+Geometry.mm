// Frames, bounds, conversion and autoresizing. Everything reads the stored rectangle, never an overridden `frame`.
#import <UIKit/LayoutProblem.h>
#import <UIKit/UIViewLayout.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewState.h>

#include <algorithm>

namespace {

// Along one axis: where a view starts and how long it is.
struct Span {
  CGFloat start, length;
};

// Shares `newLength - oldLength` out in proportion to the parts that may change, evenly where they are all zero.
Span shared(Span span, CGFloat oldLength, CGFloat newLength, bool startFlexes, bool lengthFlexes, bool endFlexes) {
  const CGFloat start = startFlexes ? span.start : 0;
  const CGFloat length = lengthFlexes ? span.length : 0;
  const CGFloat end = endFlexes ? oldLength - span.start - span.length : 0;
  const int flexible = int(startFlexes) + int(lengthFlexes) + int(endFlexes);
  if (flexible == 0) return span;
  const CGFloat total = start + length + end;
  const CGFloat change = newLength - oldLength;
  const auto share = [&](bool flexes, CGFloat part) {
    if (!flexes) return CGFloat(0);
    return total == 0 ? change / flexible : change * part / total;
  };
  return {span.start + share(startFlexes, start), std::max(CGFloat(0), span.length + share(lengthFlexes, length))};
}

// From the view's coordinates to those of its window, which is its outermost ancestor; the identity for nil.
CGAffineTransform transformToWindow(UIView *view) {
  CGAffineTransform transform = CGAffineTransformIdentity;
  for (;[view superview]; view = [view superview]) {
    transform = CGAffineTransformConcat(transform, sim::transformToParent([view sim_state]));
  }
  return transform;
}

// The same to those that the window lies in.
CGAffineTransform transformToScreen(UIView *view) {
  UIView *outermost = view;
  while ([outermost superview]) outermost = [outermost superview];
  return CGAffineTransformConcat(transformToWindow(view), sim::transformToParent([outermost sim_state]));
}

// nil: the window of the other, wherever that lies.
CGAffineTransform between(UIView *from, UIView *to) {
  if (!to) return transformToWindow(from);
  if (!from) return CGAffineTransformInvert(transformToWindow(to));
  return CGAffineTransformConcat(transformToScreen(from), CGAffineTransformInvert(transformToScreen(to)));
}

}  // namespace

@implementation UIView (UIViewGeometry)

- (CGRect)frame {
  return sim::frameOf(*_state);
}

- (void)setFrame:(CGRect)frame {
  const CGRect old = _state->bounds;
  const CGPoint origin = _state->origin;
  sim::setFrame(*_state, frame);
  if (!CGPointEqualToPoint(origin, _state->origin)) [self sim_geometryChanged];
  [self sim_layerBoundsDidChange:old];
}

- (CGRect)bounds {
  return _state->bounds;
}

- (void)setBounds:(CGRect)bounds {
  const CGRect old = _state->bounds;
  sim::setBounds(*_state, bounds);
  [self sim_layerBoundsDidChange:old];
}

- (void)sim_layerBoundsDidChange:(CGRect)old {
  const CGRect &bounds = _state->bounds;
  if (!CGPointEqualToPoint(old.origin, bounds.origin)) {
    [self setNeedsLayout];
    sim::layoutInputsChanged();
    [self sim_geometryChanged];
  }
  if (CGSizeEqualToSize(old.size, bounds.size)) return;
  [self setNeedsLayout];
  [self sim_geometryChanged];
  if (_state->contentMode == UIViewContentModeRedraw) [self setNeedsDisplay];
  if (!_state->autoresizesSubviews) return;
  for (UIView *subview in [self subviews]) [subview sim_resizeWithOldSuperviewSize:old.size];
}

- (CGPoint)center {
  return sim::positionOf(*_state);
}

- (void)setCenter:(CGPoint)center {
  sim::setPosition(*_state, center);
  [self sim_geometryChanged];
}

- (CGAffineTransform)transform {
  return CATransform3DGetAffineTransform(_state->transform);
}

- (void)setTransform:(CGAffineTransform)transform {
  _state->transform = CATransform3DMakeAffineTransform(transform);
}

- (CATransform3D)transform3D {
  return _state->transform;
}

- (void)setTransform3D:(CATransform3D)transform {
  _state->transform = transform;
}

- (BOOL)autoresizesSubviews {
  return _state->autoresizesSubviews;
}

- (void)setAutoresizesSubviews:(BOOL)autoresizes {
  _state->autoresizesSubviews = autoresizes;
}

- (UIViewAutoresizing)autoresizingMask {
  return _state->autoresizingMask;
}

- (void)setAutoresizingMask:(UIViewAutoresizing)mask {
  _state->autoresizingMask = mask;
}

- (CGSize)sizeThatFits:(CGSize)size {
  (void)size;
  return _state->bounds.size;
}

- (void)sizeToFit {
  const CGSize size = [self sizeThatFits:_state->bounds.size];
  [self setFrame:{[self frame].origin, size}];
}

- (CGPoint)convertPoint:(CGPoint)point toView:(UIView *)view {
  return CGPointApplyAffineTransform(point, between(self, view));
}

- (CGPoint)convertPoint:(CGPoint)point fromView:(UIView *)view {
  return CGPointApplyAffineTransform(point, between(view, self));
}

- (CGRect)convertRect:(CGRect)rect toView:(UIView *)view {
  return sim::apply(rect, between(self, view));
}

- (CGRect)convertRect:(CGRect)rect fromView:(UIView *)view {
  return sim::apply(rect, between(view, self));
}

- (void)sim_resizeWithOldSuperviewSize:(CGSize)oldSize {
  const UIViewAutoresizing mask = _state->autoresizingMask;
  if (mask == UIViewAutoresizingNone || !_state->superview) return;
  if (![self translatesAutoresizingMaskIntoConstraints]) return;
  const CGSize newSize = _state->superview->_state->bounds.size;
  const CGRect frame = {_state->origin, _state->bounds.size};
  const Span x = shared({frame.origin.x, frame.size.width}, oldSize.width, newSize.width,
                        mask & UIViewAutoresizingFlexibleLeftMargin, mask & UIViewAutoresizingFlexibleWidth,
                        mask & UIViewAutoresizingFlexibleRightMargin);
  const Span y = shared({frame.origin.y, frame.size.height}, oldSize.height, newSize.height,
                        mask & UIViewAutoresizingFlexibleTopMargin, mask & UIViewAutoresizingFlexibleHeight,
                        mask & UIViewAutoresizingFlexibleBottomMargin);
  const CGRect resized = CGRectMake(x.start, y.start, x.length, y.length);
  if (CATransform3DIsIdentity(_state->transform)) return [self setFrame:resized];
  // The frame would be the box around the transformed view.
  [self setBounds:{_state->bounds.origin, resized.size}];
  _state->origin = resized.origin;
}

@end
