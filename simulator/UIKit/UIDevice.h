// The simulated device.
#pragma once

#import <UIKit/UIKitDefines.h>

typedef NS_ENUM(NSInteger, UIUserInterfaceIdiom) {
  UIUserInterfaceIdiomUnspecified = -1,
  UIUserInterfaceIdiomPhone = 0,
  UIUserInterfaceIdiomPad = 1,
};

@interface UIDevice : NSObject
+ (UIDevice *)currentDevice;
@property(nonatomic, readonly) NSString *name;
@property(nonatomic, readonly) NSString *model;
@property(nonatomic, readonly) NSString *localizedModel;
@property(nonatomic, readonly) NSString *systemName;
@property(nonatomic, readonly) NSString *systemVersion;
/// Pad when the main screen is at least 744 points wide on its shorter side.
@property(nonatomic, readonly) UIUserInterfaceIdiom userInterfaceIdiom;
@end

#define UI_USER_INTERFACE_IDIOM() ([[UIDevice currentDevice] userInterfaceIdiom])
