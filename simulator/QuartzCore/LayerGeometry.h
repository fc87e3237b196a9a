// Where a layer, or the view that it belongs to, lies in the one above. Objective-C++.
#pragma once

#import <QuartzCore/CATransform3D.h>

namespace sim {

struct LayerGeometry {
  /// The corner of the rectangle as it lies without the transform, in the coordinates above. Kept instead of the
  /// position, so that a frame without a transform is what it was set to, to the last bit.
  CGPoint origin = CGPointZero;
  CGRect bounds = CGRectZero;
  /// In parts of the bounds.
  CGPoint anchorPoint = {0.5, 0.5};
  /// About the anchor point.
  CATransform3D transform = CATransform3DIdentity;
};

/// Values that are not finite raise CALayerInvalidGeometry.
void requireFinite(CGRect rect);

/// Where the anchor point lies in the coordinates above.
CGPoint positionOf(const LayerGeometry &geometry);
void setPosition(LayerGeometry &geometry, CGPoint position);
/// The position stays where it is.
void setBounds(LayerGeometry &geometry, CGRect bounds);
void setAnchorPoint(LayerGeometry &geometry, CGPoint anchorPoint);
/// The box around the transformed rectangle.
CGRect frameOf(const LayerGeometry &geometry);
/// With a transform: the position and the size with which the box becomes `frame`, as far as there are any.
void setFrame(LayerGeometry &geometry, CGRect frame);

/// From own coordinates to those above; of a transform in space the part in the plane.
CGAffineTransform transformToParent(const LayerGeometry &geometry);
/// The rectangle under `transform`: of a translation with its size untouched.
CGRect apply(CGRect rect, CGAffineTransform transform);

}  // namespace sim
