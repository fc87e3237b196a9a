// How an action is performed.
#pragma once

#import <UIKit/UIAction.h>

@interface UIAction (Sim)
/// Calls the handler, with `sender` as the sender until it returns.
- (void)sim_performFrom:(id)sender;
/// As choosing it does, also where nobody else can change it.
- (void)sim_turn:(UIMenuElementState)state;
- (BOOL)sim_has:(UIMenuElementAttributes)attributes;
@end
