// A stack of pages of which the top one shows.
#pragma once

#import <UIKit/UIViewController.h>

#include <objcxx/HiddenState.h>

@class UINavigationBar;
@class UINavigationController;

typedef NS_ENUM(NSInteger, UINavigationControllerOperation) {
  UINavigationControllerOperationNone = 0,
  UINavigationControllerOperationPush,
  UINavigationControllerOperationPop,
};

@protocol UINavigationControllerDelegate <NSObject>
@optional
- (void)navigationController:(UINavigationController *)navigationController
      willShowViewController:(UIViewController *)viewController
                    animated:(BOOL)animated;
- (void)navigationController:(UINavigationController *)navigationController
       didShowViewController:(UIViewController *)viewController
                    animated:(BOOL)animated;
@end

SIM_STATE_TYPE(NavigationControllerState);

/// Owns the controllers of its stack. A stack that changes while pages are being exchanged changes at once; the pages
/// that show follow when that exchange is over. Main thread.
@interface UINavigationController : UIViewController {
 @private
  SIM_STATE(NavigationControllerState, _navigationControllerState);
}
- (instancetype)initWithRootViewController:(UIViewController *)rootViewController;

/// Bottom first.
@property(nonatomic, copy) NSArray<__kindof UIViewController *> *viewControllers;
- (void)setViewControllers:(NSArray<UIViewController *> *)viewControllers animated:(BOOL)animated;
@property(nonatomic, readonly) UIViewController *topViewController;
/// What the top page presents, else the top page.
@property(nonatomic, readonly) UIViewController *visibleViewController;
/// Not owned.
@property(nonatomic, assign) id<UINavigationControllerDelegate> delegate;
@property(nonatomic, readonly) UINavigationBar *navigationBar;
@property(nonatomic, getter=isNavigationBarHidden) BOOL navigationBarHidden;
- (void)setNavigationBarHidden:(BOOL)hidden animated:(BOOL)animated;

/// Raises NSInvalidArgumentException for nil, for a navigation controller, and for a controller in the stack already.
- (void)pushViewController:(UIViewController *)viewController animated:(BOOL)animated;
/// Returns the popped controller; nil when only the root is left, which stays.
- (UIViewController *)popViewControllerAnimated:(BOOL)animated;
/// Returns the popped controllers, lowest first; nil when nothing was popped.
- (NSArray<__kindof UIViewController *> *)popToRootViewControllerAnimated:(BOOL)animated;
/// Like above. Raises NSInvalidArgumentException for a controller that is not in the stack.
- (NSArray<__kindof UIViewController *> *)popToViewController:(UIViewController *)viewController
                                                     animated:(BOOL)animated;
@end
