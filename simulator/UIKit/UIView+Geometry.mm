// Frames, bounds, conversion and autoresizing. Everything reads the stored rectangle, never an overridden `frame`.
#import <UIKit/UIView+Layout.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewState.h>

#include <algorithm>

namespace {

bool isFinite(CGRect rect) {
  return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
         std::isfinite(rect.size.height);
}

void requireFinite(CGRect rect) {
  if (!isFinite(rect)) {
    [NSException raise:@"CALayerInvalidGeometry"
                format:@"A view cannot have the rectangle %@.", NSStringFromCGRect(rect)];
  }
}

// Along one axis: where a view starts and how long it is.
struct Span {
  CGFloat start, length;
};

// Shares `newLength - oldLength` out in proportion to the parts that may change, evenly where they are all zero.
Span resized(Span span, CGFloat oldLength, CGFloat newLength, bool startFlexes, bool lengthFlexes, bool endFlexes) {
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

// The place of a view's bounds origin in the coordinates of its outermost ancestor.
CGPoint originInRoot(UIView *view) {
  CGPoint place = CGPointZero;
  for (; view; view = [view superview]) {
    const sim::UIViewState &state = [view sim_state];
    place.x += state.origin.x - state.bounds.origin.x;
    place.y += state.origin.y - state.bounds.origin.y;
  }
  return place;
}

}  // namespace

@implementation UIView (UIViewGeometry)

- (CGRect)frame {
  return {_state->origin, _state->bounds.size};
}

- (void)setFrame:(CGRect)frame {
  requireFinite(frame);
  const CGRect standard = CGRectStandardize(frame);
  const bool moves = !CGPointEqualToPoint(_state->origin, standard.origin);
  _state->origin = standard.origin;
  if (moves) [self sim_geometryChanged];
  [self sim_setSize:standard.size];
}

- (CGRect)bounds {
  return _state->bounds;
}

- (void)setBounds:(CGRect)bounds {
  requireFinite(bounds);
  const CGSize old = _state->bounds.size;
  const CGRect standard = CGRectStandardize(bounds);
  // The centre stays where it is.
  _state->origin.x += (old.width - standard.size.width) / 2;
  _state->origin.y += (old.height - standard.size.height) / 2;
  if (!CGPointEqualToPoint(_state->bounds.origin, standard.origin)) {
    [self setNeedsLayout];
    [self sim_geometryChanged];
  }
  _state->bounds.origin = standard.origin;
  [self sim_setSize:standard.size];
}

- (void)sim_setSize:(CGSize)size {
  const CGSize old = _state->bounds.size;
  if (CGSizeEqualToSize(old, size)) return;
  _state->bounds.size = size;
  [self setNeedsLayout];
  [self sim_geometryChanged];
  if (!_state->autoresizesSubviews) return;
  for (UIView *subview in [self subviews]) [subview sim_resizeWithOldSuperviewSize:old];
}

- (CGPoint)center {
  return CGPointMake(_state->origin.x + _state->bounds.size.width / 2,
                     _state->origin.y + _state->bounds.size.height / 2);
}

- (void)setCenter:(CGPoint)center {
  requireFinite({center, CGSizeZero});
  _state->origin.x = center.x - _state->bounds.size.width / 2;
  _state->origin.y = center.y - _state->bounds.size.height / 2;
  [self sim_geometryChanged];
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
  [self setFrame:{_state->origin, size}];
}

- (CGPoint)convertPoint:(CGPoint)point toView:(UIView *)view {
  const CGPoint from = originInRoot(self);
  const CGPoint to = originInRoot(view);
  return CGPointMake(point.x + from.x - to.x, point.y + from.y - to.y);
}

- (CGPoint)convertPoint:(CGPoint)point fromView:(UIView *)view {
  const CGPoint from = originInRoot(view);
  const CGPoint to = originInRoot(self);
  return CGPointMake(point.x + from.x - to.x, point.y + from.y - to.y);
}

- (CGRect)convertRect:(CGRect)rect toView:(UIView *)view {
  return {[self convertPoint:rect.origin toView:view], rect.size};
}

- (CGRect)convertRect:(CGRect)rect fromView:(UIView *)view {
  return {[self convertPoint:rect.origin fromView:view], rect.size};
}

- (void)sim_resizeWithOldSuperviewSize:(CGSize)oldSize {
  const UIViewAutoresizing mask = _state->autoresizingMask;
  if (mask == UIViewAutoresizingNone || !_state->superview) return;
  if (![self translatesAutoresizingMaskIntoConstraints]) return;
  const CGSize newSize = _state->superview->_state->bounds.size;
  const CGRect frame = {_state->origin, _state->bounds.size};
  const Span x = resized({frame.origin.x, frame.size.width}, oldSize.width, newSize.width,
                         mask & UIViewAutoresizingFlexibleLeftMargin, mask & UIViewAutoresizingFlexibleWidth,
                         mask & UIViewAutoresizingFlexibleRightMargin);
  const Span y = resized({frame.origin.y, frame.size.height}, oldSize.height, newSize.height,
                         mask & UIViewAutoresizingFlexibleTopMargin, mask & UIViewAutoresizingFlexibleHeight,
                         mask & UIViewAutoresizingFlexibleBottomMargin);
  [self setFrame:CGRectMake(x.start, y.start, x.length, y.length)];
}

@end
