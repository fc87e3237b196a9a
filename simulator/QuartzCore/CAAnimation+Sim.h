// What animations leave behind.
#pragma once

#import <QuartzCore/CAAnimation.h>

@interface CAAnimation (Sim)
/// Sets what the animation ends at on `layer`, a copy of the animated one's look.
- (void)sim_applyEndToLayer:(CALayer *)layer;
/// Whether it goes on for ever.
- (BOOL)sim_isEndless;
/// Whether its end value stays on the screen.
- (BOOL)sim_staysAtItsEnd;
@end
