#import <UIKit/UIDevice.h>
#import <UIKit/UIScreen.h>

#include <objc/SystemVersion.hpp>

#include <algorithm>

@implementation UIDevice

+ (UIDevice *)currentDevice {
  static UIDevice *const device = [[UIDevice alloc] init];
  return device;
}

- (NSString *)name {
  return [self model];
}

- (NSString *)model {
  return [self userInterfaceIdiom] == UIUserInterfaceIdiomPad ? @"iPad" : @"iPhone";
}

- (NSString *)localizedModel {
  return [self model];
}

- (NSString *)systemName {
  return @"iOS";
}

- (NSString *)systemVersion {
  return @(sim::kSystemVersion);
}

- (UIUserInterfaceIdiom)userInterfaceIdiom {
  const CGSize size = [[UIScreen mainScreen] bounds].size;
  constexpr CGFloat narrowestPad = 744;
  return std::min(size.width, size.height) >= narrowestPad ? UIUserInterfaceIdiomPad : UIUserInterfaceIdiomPhone;
}

@end
