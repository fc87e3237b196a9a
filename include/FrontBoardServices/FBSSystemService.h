// What a bundle asks of the system as a whole.
#pragma once

#import <Foundation/Foundation.h>

@interface FBSSystemService : NSObject
+ (instancetype)sharedService;
/// Does what the actions say: SBSRelaunchAction and SBSRestartRenderServerAction restart the user interface. `result`,
/// which may be nil, is called with nil, later on the main queue. Any thread.
- (void)sendActions:(NSSet *)actions withResult:(void (^)(NSError *error))result;
@end
