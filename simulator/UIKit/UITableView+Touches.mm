// A finger on a row that is followed, not told of as a whole.
#import "UITableViewState.h"

#import <UIKit/GestureMeasures.h>
#import <UIKit/UITouch.h>
#import <UIKit/UIView+Sim.h>

@implementation UITableView (Touches)

/// The row in which a touch is; nil beside the rows.
- (NSIndexPath *)sim_rowOfTouch:(UITouch *)touch {
  for (UIView *view = [touch view]; view && view != self; view = [view superview]) {
    if ([view isKindOfClass:[UITableViewCell class]]) return [self indexPathForCell:(UITableViewCell *)view];
  }
  return nil;
}

- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)event;
  UITouch *touch = [touches anyObject];
  auto &state = *_tableViewState;
  state.touchPlace = [touch locationInView:nil];
  // A touch closes a row that stands open, and is used up by it.
  state.touchSelects = ![self sim_closeSwipedRow] && [self sim_rowOfTouch:touch];
}

- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)event;
  auto &state = *_tableViewState;
  const CGPoint place = [[touches anyObject] locationInView:nil];
  if (sim::distance(state.touchPlace, place) >= sim::kDragBegins) state.touchSelects = false;
}

- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)event;
  if (!_tableViewState->touchSelects) return;
  _tableViewState->touchSelects = false;
  NSIndexPath *path = [self sim_rowOfTouch:[touches anyObject]];
  if (path) (void)[self sim_tapRowAtIndexPath:path];
}

- (void)touchesCancelled:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)touches;
  (void)event;
  _tableViewState->touchSelects = false;
}

@end
