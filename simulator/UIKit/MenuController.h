// A menu over the pages: that of a button, of a bar button, or one that a finger opened which stayed.
#pragma once

#import <UIKit/UIAction.h>
#import <UIKit/UIMenu.h>
#import <UIKit/UIViewController.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

#include <vector>

namespace sim {

/// Elements between two thick lines. A title stands above them; nil for none.
struct MenuGroup {
  objcxx::Retained<NSString> title;
  std::vector<objcxx::Retained<UIMenuElement>> elements;
};

/// What is shown of a menu: inline menus and elements that have come are among the others, hidden and empty ones left
/// out. An element that is still to come is a UIDeferredMenuElement.
std::vector<MenuGroup> groupsOf(UIMenu *menu);

/// Turns `chosen` on and every other action of `menu` off.
void choose(UIMenu *menu, UIAction *chosen);

}  // namespace sim

SIM_STATE_TYPE(MenuControllerState);

/// Main thread.
@interface SIMMenuController : UIViewController {
 @private
  SIM_STATE(MenuControllerState, _menuControllerState);
}
/// `menu` is one that nobody can change. `sender` is that of the actions; not owned, nor are the blocks' owners.
- (instancetype)initWithMenu:(UIMenu *)menu sender:(id)sender;
/// Called when the menu goes, and when it is gone.
- (void)onLeaving:(void (^)(void))leaving gone:(void (^)(void))gone;
/// One element of the menu is always on. `chosen` is called with it before its handler is.
- (void)keepSelection:(BOOL)keeps chosen:(void (^)(UIAction *action))chosen;
/// Shows the menu over what `view` or, with nil, the key window shows, beside `view` or the bar button. NO when it is
/// empty, or when nothing can be presented now.
- (BOOL)showFromView:(UIView *)view barButton:(UIBarButtonItem *)item;

/// Of something that lies on a page, which steps back behind the menu; NO for that of a control.
@property(nonatomic) BOOL rich;

/// Another one in place of the menu; menus that were open in it stay so as far as it has them.
@property(nonatomic, retain) UIMenu *menu;
/// The menu and those that are open in it, the innermost last.
@property(nonatomic, readonly) NSArray *openMenus;
/// A number of `element`, which is none other's in this menu, from 0 on.
- (NSUInteger)numberOfElement:(UIMenuElement *)element;
/// nil for a number that was not given.
- (UIMenuElement *)elementNumbered:(NSUInteger)number;
/// The page has drawn the menu: what is still to come is asked for.
- (void)askForDeferredElements;

/// What a finger on the element does: an action is performed, after the menu has gone; a menu opens, or closes with
/// those in it. NO, with nothing done, for an element that is disabled or in a menu that another covers.
- (BOOL)tapElement:(UIMenuElement *)element;
/// A finger beside the menu.
- (void)leave;
@end
