#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UITraitCollection+Sim.h>

namespace {

CGSize screenSize = {390, 844};
CGFloat screenScale = 3;
UIEdgeInsets screenSafeArea = UIEdgeInsetsZero;

bool isLength(CGFloat length) { return std::isfinite(length) && length > 0; }

/// Whether two opposite insets lie within `length`, with something between them.
bool leaveRoom(CGFloat start, CGFloat end, CGFloat length) { return start >= 0 && end >= 0 && start + end < length; }

}  // namespace

bool SIMIsScreen(CGSize size, CGFloat scale, UIEdgeInsets safeArea) {
  return isLength(size.width) && isLength(size.height) && isLength(scale) &&
         leaveRoom(safeArea.left, safeArea.right, size.width) && leaveRoom(safeArea.top, safeArea.bottom, size.height);
}

void SIMSetMainScreen(CGSize size, CGFloat scale, UIEdgeInsets safeArea) {
  if (!SIMIsScreen(size, scale, safeArea)) {
    NSLog(@"SIMSetMainScreen: %g × %g points at scale %g with the safe area %@ is no screen.", size.width, size.height,
          scale, NSStringFromUIEdgeInsets(safeArea));
    return;
  }
  screenSize = size;
  screenScale = scale;
  screenSafeArea = safeArea;
}

@implementation UIScreen

+ (UIScreen *)mainScreen {
  static UIScreen *const screen = [[UIScreen alloc] init];
  return screen;
}

- (CGRect)bounds {
  return CGRectMake(0, 0, screenSize.width, screenSize.height);
}

- (CGFloat)scale {
  return screenScale;
}

- (CGRect)nativeBounds {
  return CGRectMake(0, 0, screenSize.width * screenScale, screenSize.height * screenScale);
}

- (CGFloat)nativeScale {
  return screenScale;
}

- (UITraitCollection *)traitCollection {
  return [UITraitCollection sim_deviceTraits];
}

@end

@implementation UIScreen (Sim)

- (UIEdgeInsets)sim_safeArea {
  return screenSafeArea;
}

@end
