// The simulator's own side of CoreFoundation.
#pragma once

#import <Foundation/Foundation.h>

/// Makes the constants that are objects. SIMStartFoundation does this. Main thread.
FOUNDATION_EXPORT void SIMStartCoreFoundation(void);
