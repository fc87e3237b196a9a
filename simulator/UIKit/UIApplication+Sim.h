// The simulator's own face of the application.
#pragma once

#import <UIKit/UIApplication.h>
#import <UIKit/UIKitDefines.h>

/// Has `handler` called for each URL that is opened, on the main thread; NULL takes it away.
UIKIT_EXTERN void SIMSetOpenURLHandler(void (*handler)(NSURL *url, void *context), void *context);

@interface UIApplication (Sim)
/// Kept by UIWindow: a window that shows is in the list, not owned, and takes itself out before it goes.
- (void)sim_windowDidShow:(UIWindow *)window;
- (void)sim_windowDidHide:(UIWindow *)window;
- (void)sim_windowDidBecomeKey:(UIWindow *)window;
@end
