// The simulator's own face of a bar button.
#pragma once

#import <UIKit/UIBarButtonItem.h>

@interface UIBarButtonItem (Sim)
/// "done", "cancel", "add", "flexibleSpace" …: the system item's name in lower camel case; nil for any other item.
@property(nonatomic, readonly) NSString *sim_systemItemName;
/// What a finger does. NO when the item is disabled, has no action, or nobody takes the action.
- (BOOL)sim_tap;
@end
