// The simulator's own face of a row action.
#pragma once

#import <UIKit/UITableViewRowAction.h>

@interface UITableViewRowAction (Sim)
/// Runs the handler, if there is one.
- (void)sim_performAtIndexPath:(NSIndexPath *)indexPath;
@end
