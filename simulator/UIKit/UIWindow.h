// The root of a tree of views.
#pragma once

#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UIScreen;
@class UIViewController;

typedef CGFloat UIWindowLevel;
UIKIT_EXTERN const UIWindowLevel UIWindowLevelNormal;
UIKIT_EXTERN const UIWindowLevel UIWindowLevelStatusBar;
UIKIT_EXTERN const UIWindowLevel UIWindowLevelAlert;

SIM_STATE_TYPE(WindowState);

/// Hidden at first. The page of a window appears when the window is shown and disappears when it is hidden.
/// Main thread.
@interface UIWindow : UIView {
 @private
  SIM_STATE(WindowState, _windowState);
}
/// Owned. Exchanging it while the window shows makes the pages disappear and appear.
@property(nonatomic, retain) UIViewController *rootViewController;
@property(nonatomic) UIWindowLevel windowLevel;
@property(nonatomic, readonly) UIScreen *screen;
@property(nonatomic, readonly, getter=isKeyWindow) BOOL keyWindow;
- (void)makeKeyWindow;
- (void)makeKeyAndVisible;
@end
