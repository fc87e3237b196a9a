// The simulator's own face of the pasteboard.
#pragma once

#import <UIKit/UIKitDefines.h>
#import <UIKit/UIPasteboard.h>

/// Has `handler` called, on the main thread, with the first string (nil when empty) each time code of this process
/// changes the general pasteboard; NULL takes it away.
UIKIT_EXTERN void SIMSetPasteboardHandler(void (*handler)(NSString *string, void *context), void *context);

@interface UIPasteboard (Sim)
/// A change from outside: the handler is not called.
- (void)sim_setStringFromOutside:(NSString *)string;
@end
