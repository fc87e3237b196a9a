// What happened to the screen. Main thread only.
#pragma once

#import <UIKit/UIKitDefines.h>

#include <objcxx/HiddenState.h>

@class UIGestureRecognizer;
@class UITouch;
@class UIView;
@class UIWindow;

typedef NS_ENUM(NSInteger, UIEventType) {
  UIEventTypeTouches,
  UIEventTypeMotion,
  UIEventTypeRemoteControl,
  UIEventTypePresses,
};

typedef NS_ENUM(NSInteger, UIEventSubtype) {
  UIEventSubtypeNone = 0,
  UIEventSubtypeMotionShake = 1,
};

SIM_STATE_TYPE(EventState);

/// Every event is of touches.
@interface UIEvent : NSObject {
 @private
  SIM_STATE(EventState, _eventState);
}
@property(nonatomic, readonly) UIEventType type;
@property(nonatomic, readonly) UIEventSubtype subtype;
/// That of its touch.
@property(nonatomic, readonly) NSTimeInterval timestamp;
@property(nonatomic, readonly) NSSet<UITouch *> *allTouches;
- (NSSet<UITouch *> *)touchesForWindow:(UIWindow *)window;
- (NSSet<UITouch *> *)touchesForView:(UIView *)view;
- (NSSet<UITouch *> *)touchesForGestureRecognizer:(UIGestureRecognizer *)recognizer;
/// The touch alone: nothing is known of what lies between two events.
- (NSArray<UITouch *> *)coalescedTouchesForTouch:(UITouch *)touch;
/// Nothing is predicted: an empty array.
- (NSArray<UITouch *> *)predictedTouchesForTouch:(UITouch *)touch;
@end
