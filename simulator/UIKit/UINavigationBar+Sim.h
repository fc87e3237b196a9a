// The simulator's own face of a navigation bar.
#pragma once

#import <UIKit/UINavigationBar.h>

@interface UINavigationBar (Sim)
/// What the bar looks like while `item` is on top: of what is set of it, of the bar and of its older properties what
/// counts. `atEdge`: nothing lies below the bar yet. Autoreleased; never nil.
- (UINavigationBarAppearance *)sim_appearanceForItem:(UINavigationItem *)item atScrollEdge:(BOOL)atEdge;
/// Plays what appearance proxies took for the buttons to those that are shown: UIBarButtonItem.
- (void)sim_applyAppearanceToItems:(NSArray *)items;
/// Puts `views`, UIView, in the bar in place of those of its last call: what an item shows as its title or its buttons.
/// One without a size of its own takes what its content or its constraints need. nil for none.
- (void)sim_showViews:(NSArray *)views;
@end
