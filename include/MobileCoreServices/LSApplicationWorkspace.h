#pragma once

#import <MobileCoreServices/LSApplicationProxy.h>

/// The applications of the device. Any thread but for opening, which is for the main one.
@interface LSApplicationWorkspace : NSObject
+ (instancetype)defaultWorkspace;
/// LSApplicationProxy objects, by name.
- (NSArray<LSApplicationProxy *> *)allApplications;
- (NSArray<LSApplicationProxy *> *)allInstalledApplications;
- (BOOL)applicationIsInstalled:(NSString *)identifier;
/// Whether there is such an application. It is not opened here, which the log says.
- (BOOL)openApplicationWithBundleID:(NSString *)identifier;
/// As UIApplication opens an address.
- (BOOL)openURL:(NSURL *)url;
@end
