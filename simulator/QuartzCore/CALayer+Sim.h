// Whom a layer is made for.
#pragma once

#import <QuartzCore/CALayer.h>

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
@end

@interface CALayer (Sim)
/// Not owned; nil once it is gone. A layer without an owner keeps nothing of what they would share.
- (void)sim_setOwner:(id<SIMLayerOwner>)owner;
@end
