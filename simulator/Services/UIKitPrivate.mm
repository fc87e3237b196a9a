// Methods of UIKit's classes that are in no header and that makers declare themselves.
#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIKit.h>

#import "AppList/NorvikAppRecord+Sim.h"

namespace {

/// Points, by the number of the format: the small icon of lists, the one of searches, the one of the home screen.
CGFloat sideOfFormat(int format) {
  switch (format) {
    case 1: return 40;
    case 2: return 60;
    default: return 29;
  }
}

/// The bar under which the item is shown by the controller or those that it holds or presents.
UINavigationBar *barOf(UINavigationItem *item, UIViewController *controller) {
  if (!controller) return nil;
  if ([controller isKindOfClass:[UINavigationController class]]) {
    auto *navigation = (UINavigationController *)controller;
    for (UIViewController *page in [navigation viewControllers]) {
      if ([page navigationItem] == item) return [navigation navigationBar];
    }
  }
  for (UIViewController *child in [controller childViewControllers]) {
    if (UINavigationBar *bar = barOf(item, child)) return bar;
  }
  return barOf(item, [controller presentedViewController]);
}

}  // namespace

@implementation UIView (MakersPrivate)

- (UIViewController *)_viewControllerForAncestor {
  for (UIResponder *responder = self; responder; responder = [responder nextResponder]) {
    if ([responder isKindOfClass:[UIViewController class]]) return (UIViewController *)responder;
  }
  return nil;
}

@end

@implementation UINavigationItem (MakersPrivate)

/// nil while no page with the item is on a navigation controller of the key window.
- (UINavigationBar *)navigationBar {
  return barOf(self, [[[UIApplication sharedApplication] keyWindow] rootViewController]);
}

@end

@implementation UIImage (MakersPrivate)

/// nil for an application that is not installed or has no icon. The scale is the screen's.
+ (UIImage *)_applicationIconImageForBundleIdentifier:(NSString *)identifier format:(int)format scale:(CGFloat)scale {
  (void)scale;
  for (NorvikAppRecord *record in [NorvikAppRecord sim_installedApplications]) {
    if ([[record bundleIdentifier] isEqualToString:identifier]) return [record sim_iconOfSide:sideOfFormat(format)];
  }
  return nil;
}

+ (UIImage *)_applicationIconImageForBundleIdentifier:(NSString *)identifier format:(int)format {
  return [self _applicationIconImageForBundleIdentifier:identifier format:format scale:[[UIScreen mainScreen] scale]];
}

@end
