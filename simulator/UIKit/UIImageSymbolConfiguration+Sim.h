// Symbol configurations as UIImage draws them.
#pragma once

#import <UIKit/UIImageSymbolConfiguration.h>

@interface UIImageSymbolConfiguration (Sim)
/// Points of the em that the symbol is drawn for: the size by the scale.
- (CGFloat)sim_em;
/// Never unspecified.
- (UIImageSymbolWeight)sim_weight;
@end
