// The simulator's own face of an alert.
#pragma once

#import <UIKit/UIAlertController.h>

@interface UIAlertController (Sim)
/// What a finger on the button does: the alert is dismissed, then the handler runs, so that it can present in turn.
/// NO when the action is disabled or not one of this alert, or the alert is not presented.
- (BOOL)sim_tapAction:(UIAlertAction *)action;
/// What a finger beside an action sheet does: like the cancel action. NO for an alert and for a sheet without a cancel
/// action on a small screen.
- (BOOL)sim_tapOutside;
@end
