#import <UIKit/UIFeedbackGenerator.h>

namespace {

void tell() {
  static dispatch_once_t once;
  dispatch_once(&once, ^{
    NSLog(@"[simulator] The device taps the hand, which is not felt here; nor are the taps after this one.");
  });
}

}  // namespace

@implementation UIFeedbackGenerator

- (void)prepare {
}

@end

@implementation UIImpactFeedbackGenerator

- (instancetype)initWithStyle:(UIImpactFeedbackStyle)style {
  (void)style;
  return [self init];
}

- (void)impactOccurred {
  tell();
}

- (void)impactOccurredWithIntensity:(CGFloat)intensity {
  (void)intensity;
  tell();
}

@end

@implementation UISelectionFeedbackGenerator

- (void)selectionChanged {
  tell();
}

@end

@implementation UINotificationFeedbackGenerator

- (void)notificationOccurred:(UINotificationFeedbackType)type {
  (void)type;
  tell();
}

@end
