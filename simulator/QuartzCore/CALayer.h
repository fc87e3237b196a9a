// Layers: a tree of rectangles with a look. Main thread only.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>
#import <QuartzCore/CATransform3D.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(CALayerState);

@class CAAnimation;
@class CALayer;

typedef NS_OPTIONS(NSUInteger, CACornerMask) {
  kCALayerMinXMinYCorner = 1U << 0,
  kCALayerMaxXMinYCorner = 1U << 1,
  kCALayerMinXMaxYCorner = 1U << 2,
  kCALayerMaxXMaxYCorner = 1U << 3,
};

typedef NSString *CALayerContentsGravity;
CA_EXTERN CALayerContentsGravity const kCAGravityCenter;
CA_EXTERN CALayerContentsGravity const kCAGravityTop;
CA_EXTERN CALayerContentsGravity const kCAGravityBottom;
CA_EXTERN CALayerContentsGravity const kCAGravityLeft;
CA_EXTERN CALayerContentsGravity const kCAGravityRight;
CA_EXTERN CALayerContentsGravity const kCAGravityTopLeft;
CA_EXTERN CALayerContentsGravity const kCAGravityTopRight;
CA_EXTERN CALayerContentsGravity const kCAGravityBottomLeft;
CA_EXTERN CALayerContentsGravity const kCAGravityBottomRight;
CA_EXTERN CALayerContentsGravity const kCAGravityResize;
CA_EXTERN CALayerContentsGravity const kCAGravityResizeAspect;
CA_EXTERN CALayerContentsGravity const kCAGravityResizeAspectFill;

typedef NSString *CALayerCornerCurve;
CA_EXTERN CALayerCornerCurve const kCACornerCurveCircular;
CA_EXTERN CALayerCornerCurve const kCACornerCurveContinuous;

/// What a layer's delegate may implement.
@protocol CALayerDelegate <NSObject>
@optional
/// Gives the layer its contents itself; then nothing is drawn.
- (void)displayLayer:(CALayer *)layer;
/// In the layer's own coordinates, the y axis pointing down.
- (void)drawLayer:(CALayer *)layer inContext:(CGContextRef)context;
- (void)layoutSublayersOfLayer:(CALayer *)layer;
@end

/// A view's layer shares what both have with the view, which keeps it: geometry, `masksToBounds` (`clipsToBounds`),
/// `opacity` (`alpha`), `backgroundColor`, `hidden`; the layers of its subviews are among its sublayers.
@interface CALayer : NSObject {
 @private
  SIM_STATE(CALayerState, _state);
}
+ (instancetype)layer;
- (instancetype)init;
/// A copy of the other layer's look, without its place in the tree.
- (instancetype)initWithLayer:(id)layer;

/// Not owned. A view's layer has the view.
@property(assign) id<CALayerDelegate> delegate;
@property(copy) NSString *name;

/// kCAGravityResize until set. Top and bottom are those of a y axis that points up, as on a device.
@property(copy) CALayerContentsGravity contentsGravity;
/// Pixels a point of the contents: 1 until set, in a view's layer the screen's.
@property CGFloat contentsScale;
/// NO until set: contents are stretched to new bounds.
@property BOOL needsDisplayOnBoundsChange;

/// Of siblings the greater lies in front; equal ones in their order.
@property CGFloat zPosition;
@property CGFloat cornerRadius;
@property CACornerMask maskedCorners;
/// Corners are drawn as parts of circles.
@property(copy) CALayerCornerCurve cornerCurve;
@property BOOL masksToBounds;
@property CGFloat borderWidth;
/// Opaque black until set.
@property CGColorRef borderColor;

/// Opaque black until set.
@property CGColorRef shadowColor;
/// 0 until set: no shadow.
@property float shadowOpacity;
/// (0, -3) until set.
@property CGSize shadowOffset;
/// 3 until set.
@property CGFloat shadowRadius;
/// What casts the shadow instead of what the layer shows; NULL until set.
@property CGPathRef shadowPath;

@property CGColorRef backgroundColor;
@property float opacity;
@property(getter=isHidden) BOOL hidden;
/// Hints for the sake of speed, without a look.
@property(getter=isOpaque) BOOL opaque;
@property BOOL shouldRasterize;
@property CGFloat rasterizationScale;
@property BOOL drawsAsynchronously;
@property BOOL allowsEdgeAntialiasing;
@end

@interface CALayer (Geometry)
/// In the superlayer's coordinates: the box around the transformed layer. Values that are not finite raise
/// CALayerInvalidGeometry.
@property CGRect frame;
@property CGRect bounds;
/// Where the anchor point lies in the superlayer.
@property CGPoint position;
/// In parts of the bounds; (0.5, 0.5) until set.
@property CGPoint anchorPoint;
@property CATransform3D transform;
- (CGAffineTransform)affineTransform;
- (void)setAffineTransform:(CGAffineTransform)m;
/// nil means the outermost layer's coordinates.
- (CGPoint)convertPoint:(CGPoint)p fromLayer:(CALayer *)l;
- (CGPoint)convertPoint:(CGPoint)p toLayer:(CALayer *)l;
- (CGRect)convertRect:(CGRect)r fromLayer:(CALayer *)l;
- (CGRect)convertRect:(CGRect)r toLayer:(CALayer *)l;
/// `p` in own coordinates.
- (BOOL)containsPoint:(CGPoint)p;
/// The farthest layer in front that is shown and holds `p`, which is in the superlayer's coordinates.
- (CALayer *)hitTest:(CGPoint)p;

@end

@interface CALayer (Hierarchy)
/// Not owned; nil for a layer in no other.
@property(readonly) CALayer *superlayer;
/// Back to front as they were added, whatever their `zPosition`; nil for none.
@property(copy) NSArray<__kindof CALayer *> *sublayers;
- (void)addSublayer:(CALayer *)layer;
/// An index past the end counts as the end.
- (void)insertSublayer:(CALayer *)layer atIndex:(unsigned)idx;
/// Beside what is no sublayer: as `addSublayer:`.
- (void)insertSublayer:(CALayer *)layer below:(CALayer *)sibling;
- (void)insertSublayer:(CALayer *)layer above:(CALayer *)sibling;
- (void)replaceSublayer:(CALayer *)oldLayer with:(CALayer *)newLayer;
- (void)removeFromSuperlayer;
/// What its alpha leaves of the layer and of everything in it is shown. Its superlayer is the layer that it masks.
@property(retain) CALayer *mask;

- (void)setNeedsLayout;
- (BOOL)needsLayout;
- (void)layoutIfNeeded;
/// The delegate's `layoutSublayersOfLayer:`.
- (void)layoutSublayers;

@end

@interface CALayer (Drawing)
/// A CGImageRef; anything else is not shown.
@property(retain) id contents;
- (void)setNeedsDisplay;
- (void)setNeedsDisplayInRect:(CGRect)r;
- (BOOL)needsDisplay;
- (void)displayIfNeeded;
/// Asks the delegate's `displayLayer:`, else draws with `drawInContext:` into new contents.
- (void)display;
/// The delegate's `drawLayer:inContext:`.
- (void)drawInContext:(CGContextRef)ctx;
/// Draws the layer and everything in it, with what a view shows. Shadows and transforms in space are left out.
- (void)renderInContext:(CGContextRef)ctx;

@end

/// Nothing moves.
@interface CALayer (Animation)
/// A copy with what finished animations that were not removed leave on the screen; the model otherwise.
- (instancetype)presentationLayer;
- (instancetype)modelLayer;
/// Copies the animation and runs it at once: its delegate is told on the main queue. The model is not changed. One that
/// is to stay (`removedOnCompletion` NO, filled forwards) goes on showing its last value.
- (void)addAnimation:(CAAnimation *)anim forKey:(NSString *)key;
- (void)removeAnimationForKey:(NSString *)key;
- (void)removeAllAnimations;
/// Those that stay; nil for none.
- (NSArray<NSString *> *)animationKeys;
- (__kindof CAAnimation *)animationForKey:(NSString *)key;
@end
