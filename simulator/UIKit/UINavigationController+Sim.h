// The simulator's own face of a navigation controller.
#pragma once

#import <UIKit/UINavigationController.h>

@interface UINavigationController (Sim)
/// Whether the title of the top page is a large one, which stands under the bar until the page is scrolled.
@property(nonatomic, readonly) BOOL sim_showsLargeTitle;
/// The text of the back button of the top page, "Back" when the page below has none; nil when no back button shows.
@property(nonatomic, readonly) NSString *sim_backTitle;
/// What a finger on the back button does. NO when no back button shows.
- (BOOL)sim_tapBack;
@end
