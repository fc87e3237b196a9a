// Constraints as views hold them.
#pragma once

#import <UIKit/NSLayoutConstraint.h>

@class UIView;

@interface NSLayoutConstraint (Sim)
/// Makes `holder`, a view in which both items are, hold the constraint, which is not active.
- (void)sim_joinView:(UIView *)holder;
/// Makes it inactive without asking for layout, for a holder that goes; the holder's list is left as it is.
- (void)sim_leaveHolder;
@end
