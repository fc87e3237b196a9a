// Taps that a hand feels. The simulator says once in the log that nobody does.
#pragma once

#import <UIKit/UIKitDefines.h>

/// Main thread only.
@interface UIFeedbackGenerator : NSObject
/// Nothing has to be made ready.
- (void)prepare;
@end

typedef NS_ENUM(NSInteger, UIImpactFeedbackStyle) {
  UIImpactFeedbackStyleLight,
  UIImpactFeedbackStyleMedium,
  UIImpactFeedbackStyleHeavy,
  UIImpactFeedbackStyleSoft,
  UIImpactFeedbackStyleRigid,
};

@interface UIImpactFeedbackGenerator : UIFeedbackGenerator
- (instancetype)initWithStyle:(UIImpactFeedbackStyle)style;
- (void)impactOccurred;
- (void)impactOccurredWithIntensity:(CGFloat)intensity;
@end

@interface UISelectionFeedbackGenerator : UIFeedbackGenerator
- (void)selectionChanged;
@end

typedef NS_ENUM(NSInteger, UINotificationFeedbackType) {
  UINotificationFeedbackTypeSuccess,
  UINotificationFeedbackTypeWarning,
  UINotificationFeedbackTypeError,
};

@interface UINotificationFeedbackGenerator : UIFeedbackGenerator
- (void)notificationOccurred:(UINotificationFeedbackType)notificationType;
@end
