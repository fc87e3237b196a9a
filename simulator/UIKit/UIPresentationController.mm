#import <UIKit/UIPresentationController+Sim.h>

#import <UIKit/UIViewController.h>

@implementation UIPresentationController

- (instancetype)sim_initWithPresentedViewController:(UIViewController *)controller {
  if (!(self = [super init])) return nil;
  _presentedViewController = controller;
  return self;
}

- (UIViewController *)presentedViewController {
  return _presentedViewController;
}

- (UIViewController *)presentingViewController {
  return [_presentedViewController presentingViewController];
}

@end
