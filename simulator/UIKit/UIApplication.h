// The running application.
#pragma once

#import <UIKit/UIResponder.h>

#include <objcxx/HiddenState.h>

@class UIApplication;
@class UIEvent;
@class UIWindow;

typedef NSString *UIApplicationOpenExternalURLOptionsKey;

typedef NS_ENUM(NSInteger, UIApplicationState) {
  UIApplicationStateActive = 0,
  UIApplicationStateInactive,
  UIApplicationStateBackground,
};

@protocol UIApplicationDelegate <NSObject>
@end

SIM_STATE_TYPE(ApplicationState);

/// Main thread.
@interface UIApplication : UIResponder {
 @private
  SIM_STATE(ApplicationState, _applicationState);
}
+ (UIApplication *)sharedApplication;
/// Not owned.
@property(nonatomic, assign) id<UIApplicationDelegate> delegate;
@property(nonatomic, readonly) UIApplicationState applicationState;
@property(nonatomic, readonly) UIWindow *keyWindow;
/// The windows that are not hidden, back to front.
@property(nonatomic, readonly) NSArray<__kindof UIWindow *> *windows;

/// YES for a URL whose scheme one of the device's applications takes.
- (BOOL)canOpenURL:(NSURL *)url;
/// Returns whether the URL was opened.
- (BOOL)openURL:(NSURL *)url;
/// `completion` is called from the main queue.
- (void)openURL:(NSURL *)url options:(NSDictionary *)options completionHandler:(void (^)(BOOL success))completion;

/// Sends `action` (no argument, the sender, or the sender and the event). nil as the target stands for the first
/// responder in the chain of the page in front that has the method. NO when nobody has it.
- (BOOL)sendAction:(SEL)action to:(id)target from:(id)sender forEvent:(UIEvent *)event;
@end
