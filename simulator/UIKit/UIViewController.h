// A page: its view, its place in containers, its appearance, and what it presents.
#pragma once

#import <UIKit/UIAppearance.h>
#import <UIKit/UIGeometry.h>
#import <UIKit/UIResponder.h>
#import <UIKit/UITraitCollection.h>

#include <objcxx/HiddenState.h>

@class NSBundle;
@class UIBarButtonItem;
@class UINavigationController;
@class UINavigationItem;
@class UIPopoverPresentationController;
@class UIView;
@protocol UIViewControllerTransitionCoordinator;

typedef NS_ENUM(NSInteger, UIModalPresentationStyle) {
  UIModalPresentationFullScreen = 0,
  UIModalPresentationPageSheet = 1,
  UIModalPresentationFormSheet = 2,
  UIModalPresentationCurrentContext = 3,
  UIModalPresentationCustom = 4,
  UIModalPresentationOverFullScreen = 5,
  UIModalPresentationOverCurrentContext = 6,
  UIModalPresentationPopover = 7,
  UIModalPresentationNone = -1,
  UIModalPresentationAutomatic = -2,
};

typedef NS_ENUM(NSInteger, UIModalTransitionStyle) {
  UIModalTransitionStyleCoverVertical = 0,
  UIModalTransitionStyleFlipHorizontal,
  UIModalTransitionStyleCrossDissolve,
  UIModalTransitionStylePartialCurl,
};

SIM_STATE_TYPE(ViewControllerState);

/// Main thread.
///
/// Transitions take no time: the appearance calls of both pages are made before the method that starts the transition
/// returns. An animated dismissal alone ends from the main queue, so that what is dismissed is still presented when the
/// method returns, as on a device. A completion block is called at once when the transition is not animated, and from
/// the main queue when it is.
@interface UIViewController : UIResponder <UIAppearanceContainer> {
 @private
  SIM_STATE(ViewControllerState, _viewControllerState);
}
/// Designated. No interface files are read: the view is made by -loadView whatever the name.
- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle;

/// Made by -loadView and announced by -viewDidLoad at the first call.
@property(nonatomic, retain) UIView *view;
@property(nonatomic, readonly) UIView *viewIfLoaded;
@property(nonatomic, readonly, getter=isViewLoaded) BOOL viewLoaded;
- (void)loadView;
- (void)loadViewIfNeeded;
- (void)viewDidLoad;

- (void)viewWillLayoutSubviews;
- (void)viewDidLayoutSubviews;
- (void)didReceiveMemoryWarning;

/// Setting it sets the title of the navigation item too.
@property(nonatomic, copy) NSString *title;
@property(nonatomic) CGSize preferredContentSize;
@property(nonatomic, getter=isEditing) BOOL editing;
- (void)setEditing:(BOOL)editing animated:(BOOL)animated;
/// Toggles -setEditing:animated:; the same item at each call.
@property(nonatomic, readonly) UIBarButtonItem *editButtonItem;
@end

@interface UIViewController (UIExtendedLayout)
/// Under which bars the view reaches, in a navigation controller; all of them at first. What it does not reach under it
/// begins below.
@property(nonatomic, assign) UIRectEdge edgesForExtendedLayout;
/// NO at first: the view does not reach under a bar that is not translucent.
@property(nonatomic, assign) BOOL extendedLayoutIncludesOpaqueBars;
/// YES at first. With NO scroll views whose own behaviour is automatic keep their content insets.
@property(nonatomic, assign) BOOL automaticallyAdjustsScrollViewInsets;
@end

@interface UIViewController (UITraitEnvironment) <UITraitEnvironment>
/// Light or dark for the controller, its children and its view; unspecified, at first, for what is around.
@property(nonatomic) UIUserInterfaceStyle overrideUserInterfaceStyle;
@end

@protocol UILayoutSupport;

@interface UIViewController (UIConstraintBasedLayoutCoreMethods)
/// In place of the view's `updateConstraints`, which it sends. Overrides call super.
- (void)updateViewConstraints;
@end

@interface UIViewController (UILayoutSupport)
/// What the bars cover of the view.
@property(nonatomic, readonly, strong) id<UILayoutSupport> topLayoutGuide;
@property(nonatomic, readonly, strong) id<UILayoutSupport> bottomLayoutGuide;
/// The safe area of the view has changed.
- (void)viewSafeAreaInsetsDidChange;
@end

@interface UIViewController (UIContentContainer)
/// The device is about to be turned: the controller's view will have this size. Passes it on to the children, so call
/// super.
- (void)viewWillTransitionToSize:(CGSize)size
       withTransitionCoordinator:(id<UIViewControllerTransitionCoordinator>)coordinator;
@end

@interface UIViewController (UIAppearance)
- (void)viewWillAppear:(BOOL)animated;
- (void)viewDidAppear:(BOOL)animated;
- (void)viewWillDisappear:(BOOL)animated;
- (void)viewDidDisappear:(BOOL)animated;
@property(nonatomic, readonly, getter=isBeingPresented) BOOL beingPresented;
@property(nonatomic, readonly, getter=isBeingDismissed) BOOL beingDismissed;
@property(nonatomic, readonly, getter=isMovingToParentViewController) BOOL movingToParentViewController;
@property(nonatomic, readonly, getter=isMovingFromParentViewController) BOOL movingFromParentViewController;
@end

@interface UIViewController (UIContainerViewControllerProtectedMethods)
@property(nonatomic, readonly) UIViewController *parentViewController;
@property(nonatomic, readonly) NSArray<__kindof UIViewController *> *childViewControllers;
/// Takes the child from its former parent first. Raises NSInvalidArgumentException for nil and for itself.
- (void)addChildViewController:(UIViewController *)child;
- (void)removeFromParentViewController;
- (void)willMoveToParentViewController:(UIViewController *)parent;
- (void)didMoveToParentViewController:(UIViewController *)parent;
/// YES at first: begin and end of an appearance are passed on to the children whose views are in the hierarchy.
@property(nonatomic, readonly) BOOL shouldAutomaticallyForwardAppearanceMethods;
- (void)beginAppearanceTransition:(BOOL)isAppearing animated:(BOOL)animated;
- (void)endAppearanceTransition;
@end

@interface UIViewController (UIModalPresentation)
/// What this controller or the nearest of its parents presents; nil when nothing.
@property(nonatomic, readonly) UIViewController *presentedViewController;
/// Who presents this controller or the nearest of its parents; nil when nobody.
@property(nonatomic, readonly) UIViewController *presentingViewController;
/// UIModalPresentationAutomatic at first, which shows as a page sheet.
@property(nonatomic) UIModalPresentationStyle modalPresentationStyle;
@property(nonatomic) UIModalTransitionStyle modalTransitionStyle;
@property(nonatomic, getter=isModalInPresentation) BOOL modalInPresentation;
/// NO at first. Nothing here depends on it: a search belongs to its own page in any case, and what is presented lies
/// over the outermost parent.
@property(nonatomic) BOOL definesPresentationContext;
/// The popover that shows this controller on a large screen. Made at the first call for a controller whose style is
/// UIModalPresentationPopover, for an activity sheet and for an action sheet; nil for any other.
@property(nonatomic, readonly) UIPopoverPresentationController *popoverPresentationController;

/// Presents over the outermost parent of this controller.
///
/// Logs a line and does nothing when that parent presents something already, also while that is being dismissed, when
/// it is not in a window, and while it is being presented or dismissed itself. Raises NSInvalidArgumentException when
/// `controller` is nil or itself, or is already presented; NSGenericException when a sheet that needs a popover has no
/// place to show it from on a large screen.
- (void)presentViewController:(UIViewController *)controller
                     animated:(BOOL)animated
                   completion:(void (^)(void))completion;
/// Dismisses what this controller presents, with all that stands above it; when it presents nothing, its presenter
/// dismisses it. Does nothing when neither is so; the completion block is then called all the same.
- (void)dismissViewControllerAnimated:(BOOL)animated completion:(void (^)(void))completion;
/// Of the animated dismissal that this controller, or the nearest of its parents, goes or presents in; nil while there
/// is none. Its completion blocks are called when what is dismissed has gone.
@property(nonatomic, readonly) id<UIViewControllerTransitionCoordinator> transitionCoordinator;
@end

@interface UIViewController (UINavigationControllerItem)
/// Made at the first call with the controller's title.
@property(nonatomic, readonly) UINavigationItem *navigationItem;
/// The nearest navigation controller that holds this one.
@property(nonatomic, readonly) UINavigationController *navigationController;
@end
