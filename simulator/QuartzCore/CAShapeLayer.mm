#import <CoreGraphics/CGPath+Sim.h>
#import <QuartzCore/CALayer+Sim.h>
#import <QuartzCore/CAShapeLayer+Sim.h>

#include <CoreGraphics/CGContext.h>
#include <objcxx/Retained.h>

#include <algorithm>
#include <vector>

CAShapeLayerFillRule const kCAFillRuleNonZero = @"non-zero";
CAShapeLayerFillRule const kCAFillRuleEvenOdd = @"even-odd";
CAShapeLayerLineJoin const kCALineJoinMiter = @"miter";
CAShapeLayerLineJoin const kCALineJoinRound = @"round";
CAShapeLayerLineJoin const kCALineJoinBevel = @"bevel";
CAShapeLayerLineCap const kCALineCapButt = @"butt";
CAShapeLayerLineCap const kCALineCapRound = @"round";
CAShapeLayerLineCap const kCALineCapSquare = @"square";

namespace sim {

struct CAShapeLayerState {
  objcxx::Retained<NSObject> path;
  objcxx::Retained<NSObject> fillColor;
  objcxx::Retained<NSString> fillRule = objcxx::share((NSString *)kCAFillRuleNonZero);
  objcxx::Retained<NSObject> strokeColor;
  CGFloat strokeStart = 0;
  CGFloat strokeEnd = 1;
  CGFloat lineWidth = 1;
  CGFloat miterLimit = 10;
  objcxx::Retained<NSString> lineCap = objcxx::share((NSString *)kCALineCapButt);
  objcxx::Retained<NSString> lineJoin = objcxx::share((NSString *)kCALineJoinMiter);
  CGFloat lineDashPhase = 0;
  objcxx::Retained<NSArray> lineDashPattern;
};

Path strokedPath(CAShapeLayer *layer) {
  if (![layer path]) return {};
  const double start = std::clamp<double>([layer strokeStart], 0, 1);
  const double end = std::clamp<double>([layer strokeEnd], 0, 1);
  return start <= 0 && end >= 1 ? pathOf([layer path]) : pathOf([layer path]).part(start, end);
}

}  // namespace sim

namespace {

CGLineCap capOf(NSString *name) {
  if ([name isEqualToString:kCALineCapRound]) return kCGLineCapRound;
  return [name isEqualToString:kCALineCapSquare] ? kCGLineCapSquare : kCGLineCapButt;
}

CGLineJoin joinOf(NSString *name) {
  if ([name isEqualToString:kCALineJoinRound]) return kCGLineJoinRound;
  return [name isEqualToString:kCALineJoinBevel] ? kCGLineJoinBevel : kCGLineJoinMiter;
}

}  // namespace

@implementation CAShapeLayer

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _shapeState = std::make_unique<sim::CAShapeLayerState>();
  _shapeState->fillColor = objcxx::adopt((NSObject *)CGColorCreateGenericGray(0, 1));
  return self;
}

- (instancetype)initWithLayer:(id)layer {
  if (!(self = [super initWithLayer:layer])) return nil;
  if ([layer isKindOfClass:[CAShapeLayer class]]) *_shapeState = *((CAShapeLayer *)layer)->_shapeState;
  return self;
}

- (CGPathRef)path {
  return (CGPathRef)_shapeState->path.get();
}

- (void)setPath:(CGPathRef)path {
  _shapeState->path = objcxx::adopt((NSObject *)(void *)CGPathCreateCopy(path));
}

- (CAShapeLayerFillRule)fillRule {
  return _shapeState->fillRule.get();
}

- (void)setFillRule:(CAShapeLayerFillRule)fillRule {
  _shapeState->fillRule = objcxx::adopt((NSString *)[fillRule copy]);
}

- (CGColorRef)fillColor {
  return (CGColorRef)_shapeState->fillColor.get();
}

- (void)setFillColor:(CGColorRef)fillColor {
  _shapeState->fillColor = objcxx::share((NSObject *)(void *)fillColor);
}

- (CGColorRef)strokeColor {
  return (CGColorRef)_shapeState->strokeColor.get();
}

- (void)setStrokeColor:(CGColorRef)strokeColor {
  _shapeState->strokeColor = objcxx::share((NSObject *)(void *)strokeColor);
}

- (CGFloat)strokeStart {
  return _shapeState->strokeStart;
}

- (void)setStrokeStart:(CGFloat)strokeStart {
  _shapeState->strokeStart = strokeStart;
}

- (CGFloat)strokeEnd {
  return _shapeState->strokeEnd;
}

- (void)setStrokeEnd:(CGFloat)strokeEnd {
  _shapeState->strokeEnd = strokeEnd;
}

- (CGFloat)lineWidth {
  return _shapeState->lineWidth;
}

- (void)setLineWidth:(CGFloat)lineWidth {
  _shapeState->lineWidth = lineWidth;
}

- (CGFloat)miterLimit {
  return _shapeState->miterLimit;
}

- (void)setMiterLimit:(CGFloat)miterLimit {
  _shapeState->miterLimit = miterLimit;
}

- (CAShapeLayerLineCap)lineCap {
  return _shapeState->lineCap.get();
}

- (void)setLineCap:(CAShapeLayerLineCap)lineCap {
  _shapeState->lineCap = objcxx::adopt((NSString *)[lineCap copy]);
}

- (CAShapeLayerLineJoin)lineJoin {
  return _shapeState->lineJoin.get();
}

- (void)setLineJoin:(CAShapeLayerLineJoin)lineJoin {
  _shapeState->lineJoin = objcxx::adopt((NSString *)[lineJoin copy]);
}

- (CGFloat)lineDashPhase {
  return _shapeState->lineDashPhase;
}

- (void)setLineDashPhase:(CGFloat)lineDashPhase {
  _shapeState->lineDashPhase = lineDashPhase;
}

- (NSArray *)lineDashPattern {
  return _shapeState->lineDashPattern.get();
}

- (void)setLineDashPattern:(NSArray *)lineDashPattern {
  _shapeState->lineDashPattern = objcxx::adopt((NSArray *)[lineDashPattern copy]);
}

- (id)valueForKey:(NSString *)key {
  if ([key isEqualToString:@"path"]) return (id)[self path];
  if ([key isEqualToString:@"fillColor"]) return (id)[self fillColor];
  return [key isEqualToString:@"strokeColor"] ? (id)[self strokeColor] : [super valueForKey:key];
}

- (void)setValue:(id)value forKey:(NSString *)key {
  if ([key isEqualToString:@"path"]) return [self setPath:(CGPathRef)value];
  if ([key isEqualToString:@"fillColor"]) return [self setFillColor:(CGColorRef)value];
  if ([key isEqualToString:@"strokeColor"]) return [self setStrokeColor:(CGColorRef)value];
  [super setValue:value forKey:key];
}

- (void)sim_drawOwnLookInContext:(CGContextRef)context {
  if (![self path]) return;
  if ([self fillColor]) {
    CGContextSetFillColorWithColor(context, [self fillColor]);
    CGContextBeginPath(context);
    CGContextAddPath(context, [self path]);
    CGContextDrawPath(context, [[self fillRule] isEqualToString:kCAFillRuleEvenOdd] ? kCGPathEOFill : kCGPathFill);
  }
  if (![self strokeColor] || [self lineWidth] <= 0) return;
  std::vector<CGFloat> dashes;
  for (NSNumber *length in [self lineDashPattern]) dashes.push_back([length doubleValue]);
  CGContextSetStrokeColorWithColor(context, [self strokeColor]);
  CGContextSetLineWidth(context, [self lineWidth]);
  CGContextSetLineCap(context, capOf([self lineCap]));
  CGContextSetLineJoin(context, joinOf([self lineJoin]));
  CGContextSetMiterLimit(context, [self miterLimit]);
  CGContextSetLineDash(context, [self lineDashPhase], dashes.data(), dashes.size());
  const CGPathRef stroked = sim::createPath(sim::strokedPath(self));
  CGContextBeginPath(context);
  CGContextAddPath(context, stroked);
  CGContextStrokePath(context);
  CGPathRelease(stroked);
}

@end
