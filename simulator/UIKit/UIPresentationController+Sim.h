// The simulator's own face of a presentation.
#pragma once

#import <UIKit/UIPresentationController.h>

@interface UIPresentationController (Sim)
/// `controller` is not owned and outlives the presentation.
- (instancetype)sim_initWithPresentedViewController:(UIViewController *)controller;
@end
