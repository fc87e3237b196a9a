// The appearance of the simulated device.
#pragma once

#import <UIKit/UITraitCollection.h>

/// Light or dark, for everything resolved from now on; `-[UIWindow sim_changeUserInterfaceStyle:]` tells the views too.
/// Light until set; unspecified counts as light.
UIKIT_EXTERN void SIMSetUserInterfaceStyle(UIUserInterfaceStyle style);

@interface UITraitCollection (Sim)
/// Runs `body` with `traits` as the current traits.
+ (void)sim_performWithTraitCollection:(UITraitCollection *)traits body:(void (^)(void))body;
@end
