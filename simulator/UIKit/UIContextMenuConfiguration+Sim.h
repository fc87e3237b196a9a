// The menu of a configuration.
#pragma once

#import <UIKit/UIContextMenuConfiguration.h>

@interface UIContextMenuConfiguration (Sim)
/// What the action provider gives now, of a kind that nobody can change; nil without a provider or a menu.
- (UIMenu *)sim_makeMenu;
@end
