// What a finger does to a control.
#pragma once

#import <UIKit/UIControl.h>

@interface UIControl (Sim)
/// Touches down and up inside. NO, with nothing done, when the control is disabled or cannot be reached.
- (BOOL)sim_tapByUser;
/// Whether a finger can work the control.
- (BOOL)sim_acceptsUser;
/// Whether a tap on the control is not one of the views above it. NO here; documented of the kinds that answer YES.
- (BOOL)sim_takesTaps;
/// Whether anything listens to the control, or a tap opens its menu.
- (BOOL)sim_hearsOfTaps;
/// A tap is about to trigger the primary action. Nothing here.
- (void)sim_willTriggerPrimaryAction;
/// A finger that was lifted inside changes what the control is set to. Nothing here.
- (void)sim_changeByTouch:(UITouch *)touch;
/// As `sendActionsForControlEvents:`, with the event that led to it.
- (void)sim_sendActionsForControlEvents:(UIControlEvents)events with:(UIEvent *)event;
@end

@interface UIControl (SimMenu)
/// Whether a tap opens the control's menu.
- (BOOL)sim_showsMenu;
/// `location` is in its coordinates. Nothing happens where there is no menu.
- (void)sim_openMenuAt:(CGPoint)location;
@end
