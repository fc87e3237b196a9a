#pragma once

#import <Foundation/Foundation.h>

/// A restart of what draws, and so of the user interface, which FBSSystemService performs.
@interface SBSRestartRenderServerAction : NSObject {
 @private
  NSURL *_targetURL;
}
/// What is to be opened afterwards; nil for nothing.
@property(nonatomic, readonly, retain) NSURL *targetURL;
+ (instancetype)restartActionWithTargetRelaunchURL:(NSURL *)targetURL;
@end
