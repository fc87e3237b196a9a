// Where a popover shows on a large screen.
#pragma once

#import <UIKit/UIGeometry.h>
#import <UIKit/UIPresentationController.h>

#include <objcxx/HiddenState.h>

@class UIBarButtonItem;
@class UIPopoverPresentationController;
@class UIView;

typedef NS_OPTIONS(NSUInteger, UIPopoverArrowDirection) {
  UIPopoverArrowDirectionUp = 1UL << 0,
  UIPopoverArrowDirectionDown = 1UL << 1,
  UIPopoverArrowDirectionLeft = 1UL << 2,
  UIPopoverArrowDirectionRight = 1UL << 3,
  UIPopoverArrowDirectionAny = UIPopoverArrowDirectionUp | UIPopoverArrowDirectionDown | UIPopoverArrowDirectionLeft |
                               UIPopoverArrowDirectionRight,
  UIPopoverArrowDirectionUnknown = NSUIntegerMax,
};

@protocol UIPopoverPresentationControllerDelegate <NSObject>
@optional
/// The last moment to give the popover its place.
- (void)prepareForPopoverPresentation:(UIPopoverPresentationController *)popoverPresentationController;
@end

SIM_STATE_TYPE(PopoverState);

/// State only. Made by the view controller that it presents. Main thread.
@interface UIPopoverPresentationController : UIPresentationController {
 @private
  SIM_STATE(PopoverState, _popoverState);
}
@property(nonatomic, retain) UIView *sourceView;
/// In the coordinates of `sourceView`; CGRectNull at first, which stands for the view's bounds.
@property(nonatomic) CGRect sourceRect;
@property(nonatomic, retain) UIBarButtonItem *barButtonItem;
@property(nonatomic) UIPopoverArrowDirection permittedArrowDirections;
/// Not owned.
@property(nonatomic, assign) id<UIPopoverPresentationControllerDelegate> delegate;
@end
