// The page that shows a widget over the whole screen.
#pragma once

#import <UIKit/UIKit.h>

@interface SIMStageController : UIViewController
/// Shows `view`, which keeps its frame, alone and without a navigation bar; nil shows nothing.
- (void)showContentView:(UIView *)view;
@end
