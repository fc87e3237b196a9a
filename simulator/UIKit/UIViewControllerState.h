// The state of a view controller, shared by the files that implement it.
#pragma once

#import <UIKit/UIBarButtonItem.h>
#import <UIKit/UINavigationItem.h>
#import <UIKit/UIPopoverPresentationController+Sim.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewController+Sim.h>
#import <UIKit/TransitionCoordinator.h>
#include <objcxx/Retained.h>

namespace sim {

struct ViewControllerState {
  objcxx::Retained<UIView> view;
  objcxx::Retained<NSString> title;
  objcxx::Retained<UINavigationItem> navigationItem;
  objcxx::Retained<UIBarButtonItem> editButtonItem;
  objcxx::Retained<NSMutableArray> children = objcxx::adopt([[NSMutableArray alloc] init]);
  UIViewController *parent = nil;  // not owned
  objcxx::Retained<UIViewController> presented;
  UIViewController *presenting = nil;                     // not owned
  objcxx::Retained<SIMTransitionCoordinator> transition;  // Of the dismissal that is under way.
  objcxx::Retained<UIPopoverPresentationController> popover;
  UIModalPresentationStyle presentationStyle = UIModalPresentationAutomatic;
  UIModalTransitionStyle transitionStyle = UIModalTransitionStyleCoverVertical;
  CGSize preferredContentSize = CGSizeZero;
  SIMAppearance appearance = SIMAppearanceDisappeared;
  BOOL animated = NO;  // Of the transition that is under way.
  BOOL loadingView = NO;
  BOOL editing = NO;
  BOOL modalInPresentation = NO;
  BOOL definesPresentationContext = NO;
  UIUserInterfaceStyle overrideStyle = UIUserInterfaceStyleUnspecified;
  UIRectEdge extendedEdges = UIRectEdgeAll;
  BOOL extendsUnderOpaqueBars = NO;
  BOOL adjustsScrollViewInsets = YES;
  BOOL beingPresented = NO;
  BOOL beingDismissed = NO;
  BOOL movingToParent = NO;
  BOOL movingFromParent = NO;
};

/// Calls `completion`, if there is one, at once or from the main queue.
void deliverCompletion(void (^completion)(void), BOOL animated);

}  // namespace sim

@interface UIViewController (SimTransitions)
- (void)sim_setMovingToParent:(BOOL)moving;
- (void)sim_setMovingFromParent:(BOOL)moving;
@end
