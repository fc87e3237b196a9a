// Configurations as UIKit makes them.
#pragma once

#import <UIKit/UIImageConfiguration.h>

@interface UIImageConfiguration (Sim)
/// One that says nothing, autoreleased.
+ (instancetype)sim_unspecified;
/// A copy that may still be changed, autoreleased.
- (instancetype)sim_changeableCopy;
@end
