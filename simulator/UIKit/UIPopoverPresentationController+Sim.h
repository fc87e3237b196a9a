// The simulator's own face of a popover.
#pragma once

#import <UIKit/UIPopoverPresentationController.h>

@interface UIPopoverPresentationController (Sim)
/// `controller` is not owned and outlives the popover.
- (instancetype)sim_initWithPresentedViewController:(UIViewController *)controller;
/// YES when there is a bar button item or a source view to show from.
@property (nonatomic, readonly) BOOL sim_isAnchored;
@end
