// The simulator's own face of a bundle.
#pragma once

#import <Foundation/Foundation.h>

@interface NSBundle (Sim)
/// From now on -load answers NO for the bundle in the folder `path`, and the log has the reason. Code that was loaded
/// before stays. Main thread.
+ (void)sim_refuseBundleAtPath:(NSString *)path because:(NSString *)reason;
@end
