#import <UIKit/UIResponder+Sim.h>

namespace {

UIResponder *firstResponder = nil;  // Not owned; cleared by its -dealloc.

}  // namespace

UIResponder *SIMFirstResponder(void) { return firstResponder; }

@implementation UIResponder

- (void)dealloc {
  if (firstResponder == self) firstResponder = nil;
  [super dealloc];
}

- (UIResponder *)nextResponder {
  return nil;
}

- (BOOL)canBecomeFirstResponder {
  return NO;
}

- (BOOL)canResignFirstResponder {
  return YES;
}

- (BOOL)becomeFirstResponder {
  if (firstResponder == self) return YES;
  if (![self canBecomeFirstResponder]) return NO;
  if (firstResponder && ![firstResponder resignFirstResponder]) return NO;
  firstResponder = self;
  return YES;
}

- (BOOL)resignFirstResponder {
  if (firstResponder != self) return YES;
  if (![self canResignFirstResponder]) return NO;
  firstResponder = nil;
  return YES;
}

- (BOOL)isFirstResponder {
  return firstResponder == self;
}

- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  [[self nextResponder] touchesBegan:touches withEvent:event];
}

- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  [[self nextResponder] touchesMoved:touches withEvent:event];
}

- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  [[self nextResponder] touchesEnded:touches withEvent:event];
}

- (void)touchesCancelled:(NSSet *)touches withEvent:(UIEvent *)event {
  [[self nextResponder] touchesCancelled:touches withEvent:event];
}

@end
