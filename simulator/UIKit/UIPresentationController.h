// Who presents whom.
#pragma once

#import <UIKit/UIKitDefines.h>

@class UIViewController;

/// Made by the view controller that it presents. Main thread.
@interface UIPresentationController : NSObject {
 @private
  UIViewController *_presentedViewController;  // Not owned: it owns this object.
}
@property(nonatomic, readonly) UIViewController *presentedViewController;
/// nil while nothing presents it.
@property(nonatomic, readonly) UIViewController *presentingViewController;
@end
