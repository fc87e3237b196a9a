// A quick stroke. Main thread only.
#pragma once

#import <UIKit/UIGestureRecognizer.h>

typedef NS_OPTIONS(NSUInteger, UISwipeGestureRecognizerDirection) {
  UISwipeGestureRecognizerDirectionRight = 1 << 0,
  UISwipeGestureRecognizerDirectionLeft = 1 << 1,
  UISwipeGestureRecognizerDirectionUp = 1 << 2,
  UISwipeGestureRecognizerDirectionDown = 1 << 3,
};

SIM_STATE_TYPE(SwipeState);

@interface UISwipeGestureRecognizer : UIGestureRecognizer {
 @private
  SIM_STATE(SwipeState, _swipeState);
}
/// 1 at first. There is one finger: what takes more is never recognised.
@property(nonatomic) NSUInteger numberOfTouchesRequired;
/// Any of these; to the right at first.
@property(nonatomic) UISwipeGestureRecognizerDirection direction;
@end
