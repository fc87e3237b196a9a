// The simulator's own face of a window: changes of the device that reach every page in it.
#pragma once

#import <UIKit/UITraitCollection.h>
#import <UIKit/UIWindow.h>

@interface UIWindow (Sim)
/// What turning the device does: tells the pages of the new size, sets the main screen as SIMSetMainScreen does, fills
/// it with the window, tells of changed traits and lays out. A screen that is none changes nothing.
- (void)sim_changeScreenToSize:(CGSize)size scale:(CGFloat)scale safeArea:(UIEdgeInsets)safeArea;
/// Light or dark for all windows; the views and pages of this one are told.
- (void)sim_changeUserInterfaceStyle:(UIUserInterfaceStyle)style;
@end
