// What turns touches into gestures: the common part of all recognisers. Main thread only.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIKitDefines.h>

#include <objcxx/HiddenState.h>

@class UIEvent;
@class UIGestureRecognizer;
@class UITouch;
@class UIView;

typedef NS_ENUM(NSInteger, UIGestureRecognizerState) {
  UIGestureRecognizerStatePossible,
  UIGestureRecognizerStateBegan,
  UIGestureRecognizerStateChanged,
  UIGestureRecognizerStateEnded,
  UIGestureRecognizerStateCancelled,
  UIGestureRecognizerStateFailed,
  UIGestureRecognizerStateRecognized = UIGestureRecognizerStateEnded,
};

@protocol UIGestureRecognizerDelegate <NSObject>
@optional
- (BOOL)gestureRecognizerShouldBegin:(UIGestureRecognizer *)gestureRecognizer;
- (BOOL)gestureRecognizer:(UIGestureRecognizer *)gestureRecognizer
    shouldRecognizeSimultaneouslyWithGestureRecognizer:(UIGestureRecognizer *)otherGestureRecognizer;
- (BOOL)gestureRecognizer:(UIGestureRecognizer *)gestureRecognizer
    shouldRequireFailureOfGestureRecognizer:(UIGestureRecognizer *)otherGestureRecognizer;
- (BOOL)gestureRecognizer:(UIGestureRecognizer *)gestureRecognizer
    shouldBeRequiredToFailByGestureRecognizer:(UIGestureRecognizer *)otherGestureRecognizer;
- (BOOL)gestureRecognizer:(UIGestureRecognizer *)gestureRecognizer shouldReceiveTouch:(UITouch *)touch;
- (BOOL)gestureRecognizer:(UIGestureRecognizer *)gestureRecognizer shouldReceiveEvent:(UIEvent *)event;
@end

SIM_STATE_TYPE(GestureState);

/// A recogniser is told of the touches on its view and on those below before they are, and its targets when its state
/// changes. It fails when another one recognises first, unless a delegate lets both.
@interface UIGestureRecognizer : NSObject {
 @private
  SIM_STATE(GestureState, _gestureState);
}
/// Designated. `target` is not owned; with either missing there is none yet.
- (instancetype)initWithTarget:(id)target action:(SEL)action;
/// The action takes nothing or the recogniser. Adding a pair again does nothing.
- (void)addTarget:(id)target action:(SEL)action;
/// nil stands for every target, NULL for every action.
- (void)removeTarget:(id)target action:(SEL)action;

@property(nonatomic, readonly) UIGestureRecognizerState state;
/// Not owned.
@property(nonatomic, assign) id<UIGestureRecognizerDelegate> delegate;
/// One that is disabled is told of no touches; what it was at is cancelled.
@property(nonatomic, getter=isEnabled) BOOL enabled;
/// nil while it is on none. Not owned.
@property(nonatomic, readonly) UIView *view;
/// YES at first: what it recognises is cancelled for the touched view.
@property(nonatomic) BOOL cancelsTouchesInView;
/// NO at first: the touched view hears of the touch at once, not only when the recogniser has failed.
@property(nonatomic) BOOL delaysTouchesBegan;
/// YES at first: the touched view hears of the end of a touch when the recogniser has failed.
@property(nonatomic) BOOL delaysTouchesEnded;
/// UITouchTypes, all at first. One without UITouchTypeDirect hears of nothing: there are fingers only.
@property(nonatomic, copy) NSArray<NSNumber *> *allowedTouchTypes;
@property(nonatomic, copy) NSString *name;

/// Recognition waits until `otherGestureRecognizer` has failed, if that one has a touch too. Owned.
- (void)requireGestureRecognizerToFail:(UIGestureRecognizer *)otherGestureRecognizer;

/// Points, in the coordinates of `view`; nil stands for the window.
- (CGPoint)locationInView:(UIView *)view;
@property(nonatomic, readonly) NSUInteger numberOfTouches;
/// An index that is not below `numberOfTouches` raises NSRangeException.
- (CGPoint)locationOfTouch:(NSUInteger)touchIndex inView:(UIView *)view;
@end
