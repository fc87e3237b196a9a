// The simulator's own face of a view controller.
#pragma once

#import <UIKit/UIViewController.h>

typedef NS_ENUM(NSInteger, SIMAppearance) {
  SIMAppearanceDisappeared = 0,
  SIMAppearanceAppearing,
  SIMAppearanceAppeared,
  SIMAppearanceDisappearing,
};

@interface UIViewController (Sim)
/// What this very controller presents, whatever its parents present. Owned by this controller.
@property(nonatomic, readonly) UIViewController *sim_ownPresentedViewController;
/// The last controller in the chain of presentations that starts here; this controller when it presents nothing.
@property(nonatomic, readonly) UIViewController *sim_frontmostViewController;
@property(nonatomic, readonly) SIMAppearance sim_appearance;
/// The children that take part when this controller appears and disappears.
@property(nonatomic, readonly) NSArray *sim_appearingChildViewControllers;
/// YES when this controller shows as a popover on a large screen and therefore needs a place to show it from.
@property(nonatomic, readonly) BOOL sim_needsPopover;
/// Dismisses what -dismissViewControllerAnimated:completion: would, with nothing left to wait for: for what the system
/// tells only when its own picker or alert has gone.
- (void)sim_dismissAtOnce;
/// Runs a whole appearance or disappearance: begin, layout, end. For the roots of windows.
- (void)sim_setAppeared:(BOOL)appeared animated:(BOOL)animated;
@end

@interface UIViewController (SimBars)
/// Whether this controller's view begins below the navigation bar, not under it.
@property(nonatomic, readonly) BOOL sim_beginsBelowBar;
/// Of the navigation bar that lies over this controller's view, in points; 0 when there is none.
@property(nonatomic, readonly) CGFloat sim_heightOfBarAbove;
@end

@interface UIViewController (SimTraits)
/// The style that the controller, a parent or what it is presented from sets; unspecified where nothing does.
@property(nonatomic, readonly) UIUserInterfaceStyle sim_setUserInterfaceStyle;
/// Tells the children whose views are loaded but not in this controller's view, as those of pages that lie below
/// another one, that the traits have changed.
- (void)sim_tellCoveredChildrenOfTraits:(UITraitCollection *)previous;
@end
