// The simulator's own face of a popover.
#pragma once

#import <UIKit/UIPopoverPresentationController.h>
#import <UIKit/UIPresentationController+Sim.h>

@interface UIPopoverPresentationController (Sim)
/// YES when there is a bar button item or a source view to show from.
@property(nonatomic, readonly) BOOL sim_isAnchored;
@end
