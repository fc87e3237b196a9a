// The simulator's own face of a bar button.
#pragma once

#import <UIKit/UIBarButtonItem.h>

@interface UIBarButtonItem (Sim)
/// "done", "cancel", "add", "flexibleSpace" …: the system item's name in lower camel case; nil for any other item.
@property(nonatomic, readonly) NSString *sim_systemItemName;
/// What a finger does. NO when the item is disabled, has neither action nor menu, or nobody takes the action.
- (BOOL)sim_tap;
/// A finger that stays opens the menu. NO when the item is disabled or has none.
- (BOOL)sim_press;
/// Whether a tap opens the menu; otherwise one that stays does, if there is a menu.
@property(nonatomic, readonly) BOOL sim_showsMenuByTap;
@end
