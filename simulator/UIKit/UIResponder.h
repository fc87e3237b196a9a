// The responder chain and the first responder. Main thread only.
#pragma once

#import <UIKit/UIKitDefines.h>

@class UIEvent;
@class UITouch;

@interface UIResponder : NSObject
/// The next one in the chain; nil here.
- (UIResponder *)nextResponder;
- (BOOL)canBecomeFirstResponder;
- (BOOL)canResignFirstResponder;
/// YES when the receiver is the first responder afterwards. The former one is asked to resign first and can refuse.
- (BOOL)becomeFirstResponder;
- (BOOL)resignFirstResponder;
- (BOOL)isFirstResponder;

/// A finger touched the receiver, or what comes before it in the chain and passed it on. Here: passes it on.
- (void)touchesBegan:(NSSet<UITouch *> *)touches withEvent:(UIEvent *)event;
- (void)touchesMoved:(NSSet<UITouch *> *)touches withEvent:(UIEvent *)event;
- (void)touchesEnded:(NSSet<UITouch *> *)touches withEvent:(UIEvent *)event;
- (void)touchesCancelled:(NSSet<UITouch *> *)touches withEvent:(UIEvent *)event;
@end
