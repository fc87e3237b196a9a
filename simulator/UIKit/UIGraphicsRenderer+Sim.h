// How the renderers of the simulator are made.
#pragma once

#import <UIKit/UIGraphicsRenderer.h>

@interface UIGraphicsRendererContext (Sim)
/// Retains both.
- (instancetype)sim_initWithContext:(CGContextRef)context format:(UIGraphicsRendererFormat *)format;
@end

@interface UIGraphicsRenderer (Sim)
/// Copies the format.
- (instancetype)sim_initWithFormat:(UIGraphicsRendererFormat *)format;
@end
