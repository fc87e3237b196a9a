// The size of the simulated screen.
#pragma once

#import <UIKit/UIScreen.h>

/// 390 × 844 points at 3 pixels a point until set; a tablet is 820 × 1180 at 2. Windows that exist keep their frames.
/// A size or scale that is not positive is ignored with a log line.
UIKIT_EXTERN void SIMSetMainScreen(CGSize size, CGFloat scale);
