#import <UIKit/UIScreen+Sim.h>

namespace {

CGSize screenSize = {390, 844};
CGFloat screenScale = 3;

}  // namespace

void SIMSetMainScreen(CGSize size, CGFloat scale) {
  const bool usable = size.width > 0 && size.height > 0 && scale > 0 && std::isfinite(size.width) &&
                      std::isfinite(size.height) && std::isfinite(scale);
  if (!usable) {
    NSLog(@"SIMSetMainScreen: %g × %g points at scale %g is no screen.", size.width, size.height, scale);
    return;
  }
  screenSize = size;
  screenScale = scale;
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
  return [UITraitCollection currentTraitCollection];
}

@end
