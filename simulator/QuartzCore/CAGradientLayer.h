// Gradients.
#pragma once

#import <QuartzCore/CALayer.h>

SIM_STATE_TYPE(CAGradientLayerState);

typedef NSString *CAGradientLayerType;
CA_EXTERN CAGradientLayerType const kCAGradientLayerAxial;
CA_EXTERN CAGradientLayerType const kCAGradientLayerRadial;
CA_EXTERN CAGradientLayerType const kCAGradientLayerConic;

/// Points are parts of the bounds; the colours are drawn in a unit square that is stretched to the bounds.
@interface CAGradientLayer : CALayer {
 @private
  SIM_STATE(CAGradientLayerState, _gradientState);
}
/// CGColorRefs; fewer than two draw nothing.
@property(copy) NSArray *colors;
/// Where each colour stands, growing from 0 to 1; nil: evenly.
@property(copy) NSArray<NSNumber *> *locations;
/// (0.5, 0) until set; the centre of a radial or conic gradient.
@property CGPoint startPoint;
/// (0.5, 1) until set; of a radial gradient a corner of the box around it, of a conic one where it begins.
@property CGPoint endPoint;
@property(copy) CAGradientLayerType type;
@end
