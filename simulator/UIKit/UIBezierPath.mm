#import <CoreGraphics/CGPath+Sim.h>
#import <UIKit/UIBezierPath.h>
#import <UIKit/UIGraphics.h>

#include <algorithm>
#include <vector>

namespace sim {

struct UIBezierPathState {
  Path path;
  CGFloat lineWidth = 1;
  CGLineCap lineCapStyle = kCGLineCapButt;
  CGLineJoin lineJoinStyle = kCGLineJoinMiter;
  CGFloat miterLimit = 10;
  bool usesEvenOddFillRule = false;
  std::vector<CGFloat> dashes;
  CGFloat dashPhase = 0;
};

}  // namespace sim

@implementation UIBezierPath

+ (instancetype)bezierPath {
  return [[[self alloc] init] autorelease];
}

+ (instancetype)bezierPathWithRect:(CGRect)rect {
  UIBezierPath *path = [self bezierPath];
  path->_state->path.rect(sim::boxOf(rect));
  return path;
}

+ (instancetype)bezierPathWithOvalInRect:(CGRect)rect {
  UIBezierPath *path = [self bezierPath];
  path->_state->path.ellipse(sim::boxOf(rect));
  return path;
}

+ (instancetype)bezierPathWithRoundedRect:(CGRect)rect cornerRadius:(CGFloat)cornerRadius {
  return [self bezierPathWithRoundedRect:rect
                       byRoundingCorners:UIRectCornerAllCorners
                             cornerRadii:CGSizeMake(cornerRadius, cornerRadius)];
}

+ (instancetype)bezierPathWithRoundedRect:(CGRect)rect
                        byRoundingCorners:(UIRectCorner)corners
                              cornerRadii:(CGSize)radii {
  UIBezierPath *path = [self bezierPath];
  const auto radius = [&](UIRectCorner corner) { return corners & corner ? radii.width : 0.0; };
  path->_state->path.roundedRect(sim::boxOf(CGRectStandardize(rect)),
                                 {radius(UIRectCornerTopLeft), radius(UIRectCornerTopRight),
                                  radius(UIRectCornerBottomRight), radius(UIRectCornerBottomLeft)});
  return path;
}

+ (instancetype)bezierPathWithArcCenter:(CGPoint)center
                                 radius:(CGFloat)radius
                             startAngle:(CGFloat)startAngle
                               endAngle:(CGFloat)endAngle
                              clockwise:(BOOL)clockwise {
  UIBezierPath *path = [self bezierPath];
  [path addArcWithCenter:center radius:radius startAngle:startAngle endAngle:endAngle clockwise:clockwise];
  return path;
}

+ (instancetype)bezierPathWithCGPath:(CGPathRef)cgPath {
  UIBezierPath *path = [self bezierPath];
  [path setCGPath:cgPath];
  return path;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _state = std::make_unique<sim::UIBezierPathState>();
  return self;
}

- (id)copyWithZone:(NSZone *)zone {
  UIBezierPath *copy = [[UIBezierPath allocWithZone:zone] init];
  *copy->_state = *_state;
  return copy;
}

- (CGPathRef)CGPath {
  return (CGPathRef)[(id)sim::createPath(_state->path) autorelease];
}

- (void)setCGPath:(CGPathRef)path {
  _state->path = path ? sim::pathOf(path) : sim::Path();
}

- (CGFloat)lineWidth {
  return _state->lineWidth;
}

- (void)setLineWidth:(CGFloat)width {
  _state->lineWidth = width;
}

- (CGLineCap)lineCapStyle {
  return _state->lineCapStyle;
}

- (void)setLineCapStyle:(CGLineCap)cap {
  _state->lineCapStyle = cap;
}

- (CGLineJoin)lineJoinStyle {
  return _state->lineJoinStyle;
}

- (void)setLineJoinStyle:(CGLineJoin)join {
  _state->lineJoinStyle = join;
}

- (CGFloat)miterLimit {
  return _state->miterLimit;
}

- (void)setMiterLimit:(CGFloat)limit {
  _state->miterLimit = limit;
}

- (BOOL)usesEvenOddFillRule {
  return _state->usesEvenOddFillRule;
}

- (void)setUsesEvenOddFillRule:(BOOL)evenOdd {
  _state->usesEvenOddFillRule = evenOdd;
}

- (BOOL)isEmpty {
  return _state->path.empty();
}

- (CGRect)bounds {
  const auto box = _state->path.outlineBox();
  return box ? CGRectMake(box->left, box->top, box->width, box->height) : CGRectNull;
}

- (CGPoint)currentPoint {
  const auto point = _state->path.current();
  return point ? CGPointMake(point->x, point->y) : CGPointZero;
}

- (void)moveToPoint:(CGPoint)point {
  _state->path.move({point.x, point.y});
}

- (void)addLineToPoint:(CGPoint)point {
  if (!_state->path.line({point.x, point.y})) NSLog(@"UIBezierPath: a line without a current point.");
}

- (void)setLineDash:(const CGFloat *)pattern count:(NSInteger)count phase:(CGFloat)phase {
  _state->dashes.assign(pattern, pattern + (pattern ? std::max<NSInteger>(count, 0) : 0));
  _state->dashPhase = phase;
}

- (void)getLineDash:(CGFloat *)pattern count:(NSInteger *)count phase:(CGFloat *)phase {
  if (pattern) std::ranges::copy(_state->dashes, pattern);
  if (count) *count = NSInteger(_state->dashes.size());
  if (phase) *phase = _state->dashPhase;
}

- (void)addCurveToPoint:(CGPoint)end controlPoint1:(CGPoint)first controlPoint2:(CGPoint)second {
  if (!_state->path.curve({first.x, first.y}, {second.x, second.y}, {end.x, end.y})) {
    NSLog(@"UIBezierPath: a curve without a current point.");
  }
}

- (void)addQuadCurveToPoint:(CGPoint)end controlPoint:(CGPoint)control {
  if (!_state->path.quad({control.x, control.y}, {end.x, end.y})) {
    NSLog(@"UIBezierPath: a curve without a current point.");
  }
}

- (void)addArcWithCenter:(CGPoint)center
                  radius:(CGFloat)radius
              startAngle:(CGFloat)startAngle
                endAngle:(CGFloat)endAngle
               clockwise:(BOOL)clockwise {
  // Clockwise as it is seen with the y axis pointing down: the angles grow.
  _state->path.arc({center.x, center.y}, radius, startAngle, endAngle, !clockwise);
}

- (void)closePath {
  _state->path.close();
}

- (void)removeAllPoints {
  _state->path = {};
}

- (void)appendPath:(UIBezierPath *)path {
  if (path) _state->path.append(path->_state->path);
}

- (void)applyTransform:(CGAffineTransform)transform {
  _state->path.transform(sim::transformOf(transform));
}

- (UIBezierPath *)bezierPathByReversingPath {
  UIBezierPath *reversed = [[self copy] autorelease];
  reversed->_state->path = _state->path.reversed();
  return reversed;
}

- (BOOL)containsPoint:(CGPoint)point {
  return _state->path.contains({point.x, point.y}, _state->usesEvenOddFillRule);
}

- (void)fill {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextBeginPath(context);
  CGContextAddPath(context, [self CGPath]);
  CGContextDrawPath(context, _state->usesEvenOddFillRule ? kCGPathEOFill : kCGPathFill);
}

- (void)stroke {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSaveGState(context);
  CGContextSetLineWidth(context, _state->lineWidth);
  CGContextSetLineCap(context, _state->lineCapStyle);
  CGContextSetLineJoin(context, _state->lineJoinStyle);
  CGContextSetMiterLimit(context, _state->miterLimit);
  CGContextSetLineDash(context, _state->dashPhase, _state->dashes.data(), _state->dashes.size());
  CGContextBeginPath(context);
  CGContextAddPath(context, [self CGPath]);
  CGContextStrokePath(context);
  CGContextRestoreGState(context);
}

- (void)fillWithBlendMode:(CGBlendMode)mode alpha:(CGFloat)alpha {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSaveGState(context);
  CGContextSetBlendMode(context, mode);
  CGContextSetAlpha(context, alpha);
  [self fill];
  CGContextRestoreGState(context);
}

- (void)strokeWithBlendMode:(CGBlendMode)mode alpha:(CGFloat)alpha {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSaveGState(context);
  CGContextSetBlendMode(context, mode);
  CGContextSetAlpha(context, alpha);
  [self stroke];
  CGContextRestoreGState(context);
}

- (void)addClip {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextBeginPath(context);
  CGContextAddPath(context, [self CGPath]);
  if (_state->usesEvenOddFillRule) CGContextEOClip(context);
  else CGContextClip(context);
}

@end
