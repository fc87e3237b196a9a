// Dragging from an edge of the screen. Main thread only.
#pragma once

#import <UIKit/UIGeometry.h>
#import <UIKit/UIPanGestureRecognizer.h>

SIM_STATE_TYPE(ScreenEdgeState);

@interface UIScreenEdgePanGestureRecognizer : UIPanGestureRecognizer {
 @private
  SIM_STATE(ScreenEdgeState, _edgeState);
}
/// None at first, with which nothing is recognised.
@property(nonatomic) UIRectEdge edges;
@end
