#import <UIKit/UIScreenEdgePanGestureRecognizer.h>

#import <UIKit/GestureMeasures.h>
#import <UIKit/UIGestureRecognizerSubclass.h>
#import <UIKit/UIScreen.h>

namespace sim {

struct ScreenEdgeState {
  UIRectEdge edges = UIRectEdgeNone;
};

}  // namespace sim

@implementation UIScreenEdgePanGestureRecognizer

- (instancetype)initWithTarget:(id)target action:(SEL)action {
  if (!(self = [super initWithTarget:target action:action])) return nil;
  _edgeState = std::make_unique<sim::ScreenEdgeState>();
  return self;
}

- (UIRectEdge)edges {
  return _edgeState->edges;
}

- (void)setEdges:(UIRectEdge)edges {
  _edgeState->edges = edges;
}

- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesBegan:touches withEvent:event];
  const CGPoint place = [[touches anyObject] locationInView:nil];
  const CGSize screen = [[UIScreen mainScreen] bounds].size;
  UIRectEdge touched = UIRectEdgeNone;
  if (place.x < sim::kScreenEdge) touched |= UIRectEdgeLeft;
  if (place.x > screen.width - sim::kScreenEdge) touched |= UIRectEdgeRight;
  if (place.y < sim::kScreenEdge) touched |= UIRectEdgeTop;
  if (place.y > screen.height - sim::kScreenEdge) touched |= UIRectEdgeBottom;
  if (!(touched & _edgeState->edges)) [self setState:UIGestureRecognizerStateFailed];
}

@end
