// Vibrancy as it is drawn.
#pragma once

#import <UIKit/UIColor.h>
#import <UIKit/UIVibrancyEffect.h>

@interface UIVibrancyEffect (Sim)
- (UIVibrancyEffectStyle)sim_style;
/// What the shape of the content is filled with, under either appearance; nil where it keeps its colours.
- (UIColor *)sim_color;
@end
