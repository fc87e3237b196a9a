// Shapes: a path that is filled and stroked.
#pragma once

#import <QuartzCore/CALayer.h>

SIM_STATE_TYPE(CAShapeLayerState);

typedef NSString *CAShapeLayerFillRule;
typedef NSString *CAShapeLayerLineJoin;
typedef NSString *CAShapeLayerLineCap;
CA_EXTERN CAShapeLayerFillRule const kCAFillRuleNonZero;
CA_EXTERN CAShapeLayerFillRule const kCAFillRuleEvenOdd;
CA_EXTERN CAShapeLayerLineJoin const kCALineJoinMiter;
CA_EXTERN CAShapeLayerLineJoin const kCALineJoinRound;
CA_EXTERN CAShapeLayerLineJoin const kCALineJoinBevel;
CA_EXTERN CAShapeLayerLineCap const kCALineCapButt;
CA_EXTERN CAShapeLayerLineCap const kCALineCapRound;
CA_EXTERN CAShapeLayerLineCap const kCALineCapSquare;

@interface CAShapeLayer : CALayer {
 @private
  SIM_STATE(CAShapeLayerState, _shapeState);
}
/// In the layer's coordinates; copied.
@property CGPathRef path;
/// Opaque black until set.
@property CGColorRef fillColor;
@property(copy) CAShapeLayerFillRule fillRule;
/// NULL until set.
@property CGColorRef strokeColor;
/// The part of the path that is stroked, of its length: 0 and 1 until set.
@property CGFloat strokeStart;
@property CGFloat strokeEnd;
/// Points; 1 until set.
@property CGFloat lineWidth;
/// 10 until set.
@property CGFloat miterLimit;
@property(copy) CAShapeLayerLineCap lineCap;
@property(copy) CAShapeLayerLineJoin lineJoin;
@property CGFloat lineDashPhase;
/// Lengths of what is drawn and left out in turn; nil: a solid line.
@property(copy) NSArray<NSNumber *> *lineDashPattern;
@end
