// A search as its bar and the host need it.
#pragma once

#import <UIKit/UISearchController.h>

@interface UISearchController (Sim)
- (void)sim_textDidChange;
/// The controller whose table lies over that of the page now; nil for none.
@property(nonatomic, readonly) UIViewController *sim_shownResultsController;
@end
