// Layers as views and the host need them. Objective-C++.
#pragma once

#import <QuartzCore/CALayer.h>
#import <QuartzCore/LayerGeometry.h>

/// What a layer shares with the view that it is made for: the view keeps it.
@protocol SIMLayerOwner <NSObject>
- (BOOL)clipsToBounds;
- (void)setClipsToBounds:(BOOL)clips;
- (CGFloat)alpha;
- (void)setAlpha:(CGFloat)alpha;
- (BOOL)isHidden;
- (void)setHidden:(BOOL)hidden;
/// Not owned by the caller; NULL for none.
- (CGColorRef)sim_layerColor;
- (void)sim_setLayerColor:(CGColorRef)color;
- (sim::LayerGeometry &)sim_layerGeometry;
/// The bounds have been changed by the layer; they were `old`.
- (void)sim_layerBoundsDidChange:(CGRect)old;
- (void)sim_layerSetNeedsLayout;
- (void)sim_layerLayoutIfNeeded;
/// The layers of the subviews, back to front, made where there were none.
- (NSArray *)sim_subviewLayers;
/// The layer of the superview; nil without one.
- (CALayer *)sim_superviewLayer;
/// Whether the view draws its contents: else there are none.
- (BOOL)sim_drawsItself;
/// Draws what the view shows itself, as a label its text, .
- (void)sim_drawContentInContext:(CGContextRef)context;
@end

@interface CALayer (Sim)
/// Not owned; nil once it is gone.
- (void)sim_setOwner:(id<SIMLayerOwner>)owner;
- (id<SIMLayerOwner>)sim_owner;
/// Where the layer lies; the view's where the layer belongs to one.
- (sim::LayerGeometry &)sim_geometry;
/// Whether the layer has sublayers that are not those of its view's subviews, or has them in another order: else the
/// subviews say what lies in it.
- (BOOL)sim_hasOwnSublayers;
/// Back to front as they are drawn.
- (NSArray *)sim_sublayersInDrawingOrder;
/// The layer's view has got that subview below the sibling (nil: in front of all), or has lost it.
- (void)sim_addSubviewLayer:(CALayer *)layer below:(CALayer *)sibling;
- (void)sim_removeSubviewLayer:(CALayer *)layer;
/// Those that `removeFromSuperlayer` does not take from a view.
- (void)sim_setSuperlayer:(CALayer *)layer;
/// What is on the screen: the layer itself, or a copy of its look where animations left something else.
- (CALayer *)sim_shown;
/// What the host made of the contents for itself; forgotten when they change.
- (id)sim_madeOfContents;
- (void)sim_setMadeOfContents:(id)object;
/// For subclasses: what the kind of layer draws between background and contents.
- (void)sim_drawOwnLookInContext:(CGContextRef)context;
@end
