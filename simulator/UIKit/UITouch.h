// A finger on the screen. Main thread only.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIKitDefines.h>

#include <objcxx/HiddenState.h>

@class UIGestureRecognizer;
@class UIView;
@class UIWindow;

typedef NS_ENUM(NSInteger, UITouchPhase) {
  UITouchPhaseBegan,
  UITouchPhaseMoved,
  UITouchPhaseStationary,
  UITouchPhaseEnded,
  UITouchPhaseCancelled,
};

typedef NS_ENUM(NSInteger, UITouchType) {
  UITouchTypeDirect,
  UITouchTypeIndirect,
  UITouchTypePencil,
  UITouchTypeStylus = UITouchTypePencil,
};

SIM_STATE_TYPE(TouchState);

/// There is one finger: no two touches are on the screen at once.
@interface UITouch : NSObject {
 @private
  SIM_STATE(TouchState, _touchState);
}
/// Seconds, of a clock that never runs backwards.
@property(nonatomic, readonly) NSTimeInterval timestamp;
@property(nonatomic, readonly) UITouchPhase phase;
/// How often the place was touched in quick succession, this time included.
@property(nonatomic, readonly) NSUInteger tapCount;
/// Always a finger.
@property(nonatomic, readonly) UITouchType type;
/// nil where the touched view was in none when it was touched.
@property(nonatomic, readonly) UIWindow *window;
/// What was touched at the beginning, wherever the finger is now.
@property(nonatomic, readonly) UIView *view;
/// Those that are told of the touch.
@property(nonatomic, readonly, copy) NSArray<UIGestureRecognizer *> *gestureRecognizers;
/// 1 here, the force of an average touch; the maximum is that of a device without a sensor for it: 0.
@property(nonatomic, readonly) CGFloat force;
@property(nonatomic, readonly) CGFloat maximumPossibleForce;

/// Points, in the coordinates of `view`; nil stands for the window.
- (CGPoint)locationInView:(UIView *)view;
- (CGPoint)previousLocationInView:(UIView *)view;
- (CGPoint)preciseLocationInView:(UIView *)view;
- (CGPoint)precisePreviousLocationInView:(UIView *)view;
@end
