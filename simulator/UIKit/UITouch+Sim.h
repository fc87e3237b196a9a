// How a touch is made and moved. For the sources of UIKit.
#pragma once

#import <UIKit/UIEvent.h>
#import <UIKit/UITouch.h>

@interface UITouch (Sim)
/// A finger that comes down on `view` at `location`, in the coordinates of the outermost view.
- (instancetype)sim_initOnView:(UIView *)view
                      location:(CGPoint)location
                          time:(NSTimeInterval)time
                      tapCount:(NSUInteger)tapCount;
- (void)sim_moveTo:(CGPoint)location time:(NSTimeInterval)time phase:(UITouchPhase)phase;
- (void)sim_setPhase:(UITouchPhase)phase;
- (void)sim_setGestureRecognizers:(NSArray *)recognizers;
@end

@interface UIEvent (Sim)
/// The event of one touch; of none for nil.
- (instancetype)sim_initWithTouch:(UITouch *)touch;
@end
