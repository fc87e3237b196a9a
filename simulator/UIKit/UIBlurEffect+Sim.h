// Blurs as they are drawn.
#pragma once

#import <UIKit/UIBlurEffect.h>
#import <UIKit/UIColor.h>

@interface UIBlurEffect (Sim)
- (UIBlurEffectStyle)sim_style;
/// What lies over the blur, under either appearance.
- (UIColor *)sim_tint;
/// Points: how far the blur reaches, as a standard deviation.
- (CGFloat)sim_radius;
/// How much stronger colours are behind it; 1 leaves them.
- (CGFloat)sim_saturation;
@end
