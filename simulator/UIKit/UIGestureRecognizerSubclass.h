// For subclasses of recognisers: a maker's own gesture.
#pragma once

#import <UIKit/UIGestureRecognizer.h>
#import <UIKit/UITouch.h>

@interface UIGestureRecognizer (UIGestureRecognizerProtected)
/// Setting it asks for the change. A gesture that begins is first looked at: by its delegate, by those that were
/// recognised already, by those that have to fail before. In the end targets are told, except of a failure.
@property(nonatomic, readwrite) UIGestureRecognizerState state;
/// The touch is none of this gesture's.
- (void)ignoreTouch:(UITouch *)touch forEvent:(UIEvent *)event;
/// An attempt is over, recognised or not. Subclasses forget it here, and call super.
- (void)reset;
/// YES here.
- (BOOL)canPreventGestureRecognizer:(UIGestureRecognizer *)preventedGestureRecognizer;
- (BOOL)canBePreventedByGestureRecognizer:(UIGestureRecognizer *)preventingGestureRecognizer;
/// NO here.
- (BOOL)shouldRequireFailureOfGestureRecognizer:(UIGestureRecognizer *)otherGestureRecognizer;
- (BOOL)shouldBeRequiredToFailByGestureRecognizer:(UIGestureRecognizer *)otherGestureRecognizer;
/// YES here.
- (BOOL)shouldReceiveEvent:(UIEvent *)event;
/// They do nothing here.
- (void)touchesBegan:(NSSet<UITouch *> *)touches withEvent:(UIEvent *)event;
- (void)touchesMoved:(NSSet<UITouch *> *)touches withEvent:(UIEvent *)event;
- (void)touchesEnded:(NSSet<UITouch *> *)touches withEvent:(UIEvent *)event;
- (void)touchesCancelled:(NSSet<UITouch *> *)touches withEvent:(UIEvent *)event;
@end
