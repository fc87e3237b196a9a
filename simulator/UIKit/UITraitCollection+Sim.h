// The appearance of the simulated device.
#pragma once

#import <UIKit/UITraitCollection.h>

/// Light or dark, for everything resolved from now on; `-[UIWindow sim_changeUserInterfaceStyle:]` tells the views too.
/// Light until set; unspecified counts as light.
UIKIT_EXTERN void SIMSetUserInterfaceStyle(UIUserInterfaceStyle style);

@interface UITraitCollection (Sim)
/// Those of the main screen, whatever the current ones are.
+ (UITraitCollection *)sim_deviceTraits;
/// The receiver with another style; the receiver itself for UIUserInterfaceStyleUnspecified.
- (UITraitCollection *)sim_withUserInterfaceStyle:(UIUserInterfaceStyle)style;
/// Runs `body` with `traits` as the current traits.
+ (void)sim_performWithTraitCollection:(UITraitCollection *)traits body:(void (^)(void))body;
@end
