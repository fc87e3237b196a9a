// The simulator's own face of a section's header or footer.
#pragma once

#import <UIKit/UITableViewHeaderFooterView.h>

@interface UITableViewHeaderFooterView (Sim)
/// For views made from a registered class, whose own initialiser may have left the identifier out.
- (void)sim_setReuseIdentifier:(NSString *)reuseIdentifier;
/// Set by the table view: how far the texts stay from the edges, in points, and whether they lie at the lower one.
- (void)sim_setTextInsets:(UIEdgeInsets)insets atBottom:(BOOL)atBottom;
@end
