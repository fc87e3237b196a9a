#pragma once

#import <Foundation/Foundation.h>

/// What the system knows of an application. Any thread.
@interface LSApplicationProxy : NSObject {
 @private
  NSString *_applicationIdentifier;
  NSString *_path;
  NSDictionary *_info;
}
@property(nonatomic, readonly, copy) NSString *applicationIdentifier;
@property(nonatomic, readonly, copy) NSString *bundleIdentifier;
/// The name under the icon; nil for an application that is not installed.
@property(nonatomic, readonly, copy) NSString *localizedName;
@property(nonatomic, readonly, copy) NSString *localizedShortName;
@property(nonatomic, readonly, copy) NSString *itemName;
@property(nonatomic, readonly, copy) NSString *shortVersionString;
@property(nonatomic, readonly, copy) NSString *bundleVersion;
@property(nonatomic, readonly, copy) NSString *bundleExecutable;
@property(nonatomic, readonly, copy) NSString *canonicalExecutablePath;
@property(nonatomic, readonly, copy) NSURL *bundleURL;
/// "System" in /Applications, else "User".
@property(nonatomic, readonly, copy) NSString *applicationType;
@property(nonatomic, readonly, getter=isInstalled) BOOL installed;
/// Never nil: an application that is not installed has its identifier and nothing else.
+ (instancetype)applicationProxyForIdentifier:(NSString *)identifier;
@end
