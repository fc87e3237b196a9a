// Dragging. Main thread only.
#pragma once

#import <UIKit/UIGestureRecognizer.h>

SIM_STATE_TYPE(PanState);

@interface UIPanGestureRecognizer : UIGestureRecognizer {
 @private
  SIM_STATE(PanState, _panState);
}
/// 1 at first. There is one finger: what takes more is never recognised.
@property(nonatomic) NSUInteger minimumNumberOfTouches;
/// NSUIntegerMax at first.
@property(nonatomic) NSUInteger maximumNumberOfTouches;
/// How far the finger is from where it came down, or from what was set, in points in the coordinates of `view`; nil
/// stands for the window.
- (CGPoint)translationInView:(UIView *)view;
- (void)setTranslation:(CGPoint)translation inView:(UIView *)view;
/// Points in a second.
- (CGPoint)velocityInView:(UIView *)view;
@end
