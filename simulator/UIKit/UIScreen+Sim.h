// The simulated screen, as the host sets it.
#pragma once

#import <UIKit/UIGeometry.h>
#import <UIKit/UIScreen.h>

/// Whether these make a screen: a positive size and scale, and a safe area that leaves something of the screen.
UIKIT_EXTERN bool SIMIsScreen(CGSize size, CGFloat scale, UIEdgeInsets safeArea);

/// 390 × 844 points at 3 pixels a point with nothing covered until set; a tablet is 820 × 1180 at 2. `safeArea` is how
/// far corners, sensors and the status bar reach in from each edge. Windows that exist keep their frames. What makes no
/// screen is ignored with a log line.
UIKIT_EXTERN void SIMSetMainScreen(CGSize size, CGFloat scale, UIEdgeInsets safeArea = UIEdgeInsetsZero);

@interface UIScreen (Sim)
/// Points.
@property(nonatomic, readonly) UIEdgeInsets sim_safeArea;
@end
