// The host's view of the first responder.
#pragma once

#import <UIKit/UIResponder.h>

/// The one first responder of the process; nil when there is none. Not owned.
UIKIT_EXTERN UIResponder* SIMFirstResponder(void);
