#import <UIKit/OldAlert.h>

#import <UIKit/UIApplication.h>
#import <UIKit/UIViewController+Sim.h>
#import <UIKit/UIWindow.h>

namespace sim {

NSInteger OldAlert::add(NSString *buttonTitle) {
  buttons.push_back(objcxx::adopt((NSString *)[buttonTitle ?: @"" copy]));
  return count() - 1;
}

NSString *OldAlert::titleAt(NSInteger index) const {
  return index >= 0 && index < count() ? buttons[std::size_t(index)].get() : nil;
}

UIAlertController *OldAlert::makeController(UIAlertControllerStyle controllerStyle,
                                            void (^clicked)(NSInteger index)) const {
  UIAlertController *controller = [UIAlertController alertControllerWithTitle:title.get()
                                                                      message:message.get()
                                                               preferredStyle:controllerStyle];
  for (NSInteger index = 0; index < count(); ++index) {
    const UIAlertActionStyle look = index == cancel        ? UIAlertActionStyleCancel
                                    : index == destructive ? UIAlertActionStyleDestructive
                                                           : UIAlertActionStyleDefault;
    [controller addAction:[UIAlertAction actionWithTitle:titleAt(index)
                                                   style:look
                                                 handler:^(UIAlertAction *) {
                                                   clicked(index);
                                                 }]];
  }
  return controller;
}

bool presentInFront(UIAlertController *controller) {
  UIViewController *root = [[[UIApplication sharedApplication] keyWindow] rootViewController];
  UIViewController *front = [root sim_frontmostViewController];
  [front presentViewController:controller animated:NO completion:nil];
  return front != nil;
}

void tellDelegate(id delegate, SEL message, id alert, NSInteger index) {
  if (![delegate respondsToSelector:message]) return;
  NSInvocation *call = [NSInvocation invocationWithMethodSignature:[delegate methodSignatureForSelector:message]];
  [call setTarget:delegate];
  [call setSelector:message];
  [call setArgument:&alert atIndex:2];
  [call setArgument:&index atIndex:3];
  [call invoke];
}

void tellDelegate(id delegate, SEL message, id alert) {
  if ([delegate respondsToSelector:message]) [delegate performSelector:message withObject:alert];
}

}  // namespace sim
