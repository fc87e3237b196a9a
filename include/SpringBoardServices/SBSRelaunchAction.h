#pragma once

#import <Foundation/Foundation.h>

typedef NS_OPTIONS(NSUInteger, SBSRelaunchActionOptions) {
  SBSRelaunchActionOptionsNone = 0,
  SBSRelaunchActionOptionsRestartRenderServer = 1 << 0,
  SBSRelaunchActionOptionsSnapshotTransition = 1 << 1,
  SBSRelaunchActionOptionsFadeToBlackTransition = 1 << 2,
};

/// A restart of the user interface, which FBSSystemService performs.
@interface SBSRelaunchAction : NSObject {
 @private
  NSString *_reason;
  NSURL *_targetURL;
  SBSRelaunchActionOptions _options;
}
@property(nonatomic, readonly, copy) NSString *reason;
@property(nonatomic, readonly) SBSRelaunchActionOptions options;
/// What is to be opened afterwards; nil for nothing.
@property(nonatomic, readonly, retain) NSURL *targetURL;
+ (instancetype)actionWithReason:(NSString *)reason
                         options:(SBSRelaunchActionOptions)options
                       targetURL:(NSURL *)targetURL;
@end
