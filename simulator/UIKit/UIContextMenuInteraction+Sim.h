// What opens a context menu.
#pragma once

#import <UIKit/UIContextMenuInteraction.h>

@interface UIContextMenuInteraction (Sim)
/// Whether a finger that stays on the view opens the menu; YES at first.
- (void)sim_setOpensByPress:(BOOL)opens;
@property(nonatomic, readonly) BOOL sim_opensByPress;
/// Opens the menu at `location` in the view's coordinates. NO when there is none, or when it cannot be shown now.
- (BOOL)sim_openAt:(CGPoint)location;
/// Shows `menu` in place of the open menu, if one is open.
- (void)sim_replaceMenu:(UIMenu *)menu;
@property(nonatomic, readonly) BOOL sim_isOpen;
/// Its view is going away.
- (void)sim_letGoOfView;
@end

/// What a delegate of the simulator's own may add.
@protocol SIMContextMenuSource <NSObject>
@optional
/// What the menu is shown beside; the interaction's view where nothing is said.
- (UIView *)sim_viewOfMenuAt:(CGPoint)location;
/// Whether one element of the menu is always on, that which was chosen last.
- (BOOL)sim_menuKeepsSelection;
/// An element was chosen, and is on in a menu that keeps its selection; its handler is called next.
- (void)sim_didChoose:(UIAction *)action;
@end
