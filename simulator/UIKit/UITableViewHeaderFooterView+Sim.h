// The simulator's own face of a section's header or footer.
#pragma once

#import <UIKit/UITableViewHeaderFooterView.h>

@interface UITableViewHeaderFooterView (Sim)
/// For views made from a registered class, whose own initialiser may have left the identifier out.
- (void)sim_setReuseIdentifier:(NSString *)reuseIdentifier;
@end
