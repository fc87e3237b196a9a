// The responder chain and the first responder. Main thread only.
#pragma once

#import <UIKit/UIKitDefines.h>

@interface UIResponder : NSObject
/// The next one in the chain; nil here.
- (UIResponder *)nextResponder;
- (BOOL)canBecomeFirstResponder;
- (BOOL)canResignFirstResponder;
/// YES when the receiver is the first responder afterwards. The former one is asked to resign first and can refuse.
- (BOOL)becomeFirstResponder;
- (BOOL)resignFirstResponder;
- (BOOL)isFirstResponder;
@end
