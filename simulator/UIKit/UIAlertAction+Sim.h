// The simulator's own face of an alert's button.
#pragma once

#import <UIKit/UIAlertAction.h>

@interface UIAlertAction (Sim)
/// nil when the button only dismisses, and once the alert has gone. Owned by the action.
@property(nonatomic, readonly) void (^sim_handler)(UIAlertAction *action);
/// An alert that has gone lets go of its handlers, which often hold the alert in turn.
- (void)sim_clearHandler;
@end
