// The installed applications.
#pragma once

#import <Foundation/Foundation.h>
#import <UIKit/UIKit.h>

/// One installed application, as `NorvikAppList` delivers it. Two records are equal when their identifiers are.
@interface NorvikAppRecord : NSObject {
 @private
  NSString *_displayName;
  NSString *_bundleIdentifier;
  NSString *_folder;
  NSArray *_iconNames;
  UIImage *_icon;
}
/// The name under the icon. Never nil.
@property(nonatomic, readonly, copy) NSString *displayName;
/// Never nil, never empty.
@property(nonatomic, readonly, copy) NSString *bundleIdentifier;
/// 29 points wide, loaded on first use; nil when the application has none that can be read.
@property(nonatomic, readonly, retain) UIImage *icon;
@end

/// Lists the installed applications. Main thread only.
@interface NorvikAppList : NSObject
/// Delivers every application once, later on the main thread, ordered by display name without regard to case. The
/// list object need not outlive the call.
- (void)getAppList:(void (^)(NSArray *apps))completion;
@end
