#import <UIKit/UIAlertController+Sim.h>

#import <UIKit/UIAlertAction+Sim.h>
#import <UIKit/UIDevice.h>
#import <UIKit/UITextField.h>
#import <UIKit/UIView.h>
#import <UIKit/UIViewController+Sim.h>
#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

namespace sim {
struct AlertControllerState {
  UIAlertControllerStyle style = UIAlertControllerStyleActionSheet;
  objcxx::Retained<NSString> message;
  objcxx::Retained<NSMutableArray> actions = objcxx::adopt([[NSMutableArray alloc] init]);
  objcxx::Retained<NSMutableArray> textFields = objcxx::adopt([[NSMutableArray alloc] init]);
  objcxx::Retained<UIAlertAction> preferredAction;
};
}  // namespace sim

@implementation UIAlertController

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _alertControllerState = std::make_unique<sim::AlertControllerState>();
  return self;
}

+ (instancetype)alertControllerWithTitle:(NSString *)title
                                 message:(NSString *)message
                          preferredStyle:(UIAlertControllerStyle)preferredStyle {
  UIAlertController *alert = objcxx::adopt([[self alloc] init]).autoreleased();
  alert->_alertControllerState->style = preferredStyle;
  [alert setTitle:title];
  [alert setMessage:message];
  return alert;
}

- (NSString *)message {
  return _alertControllerState->message.get();
}

- (void)setMessage:(NSString *)message {
  _alertControllerState->message = objcxx::adopt((NSString *)[message copy]);
}

- (UIAlertControllerStyle)preferredStyle {
  return _alertControllerState->style;
}

#pragma mark - Actions

- (UIAlertAction *)sim_cancelAction {
  for (UIAlertAction *action in _alertControllerState->actions.get()) {
    if ([action style] == UIAlertActionStyleCancel) return action;
  }
  return nil;
}

- (void)addAction:(UIAlertAction *)action {
  if ([action style] == UIAlertActionStyleCancel && [self sim_cancelAction]) {
    [NSException raise:NSInternalInconsistencyException
                format:@"UIAlertController can only have one action with a style of UIAlertActionStyleCancel."];
  }
  [_alertControllerState->actions.get() addObject:action];
}

- (NSArray *)actions {
  return [[_alertControllerState->actions.get() copy] autorelease];
}

- (UIAlertAction *)preferredAction {
  return _alertControllerState->preferredAction.get();
}

- (void)setPreferredAction:(UIAlertAction *)action {
  if (action && [_alertControllerState->actions.get() indexOfObjectIdenticalTo:action] == NSNotFound) {
    [NSException raise:NSInternalInconsistencyException
                format:@"The preferred action has to be one of the actions of the alert."];
  }
  _alertControllerState->preferredAction = objcxx::share(action);
}

#pragma mark - Text fields

- (void)addTextFieldWithConfigurationHandler:(void (^)(UITextField *textField))configurationHandler {
  if (_alertControllerState->style != UIAlertControllerStyleAlert) {
    [NSException raise:NSInternalInconsistencyException
                format:@"Text fields can only be added to an alert controller of style UIAlertControllerStyleAlert."];
  }
  const auto field = objcxx::adopt([[UITextField alloc] initWithFrame:CGRectMake(0, 0, 238, 24)]);
  [_alertControllerState->textFields.get() addObject:field.get()];
  [[self viewIfLoaded] addSubview:field.get()];
  if (configurationHandler) configurationHandler(field.get());
}

- (NSArray *)textFields {
  NSArray *fields = _alertControllerState->textFields.get();
  return [fields count] > 0 ? [[fields copy] autorelease] : nil;
}

- (void)loadView {
  [super loadView];
  for (UITextField *field in _alertControllerState->textFields.get()) [[self view] addSubview:field];
}

#pragma mark - Presentation

- (BOOL)sim_needsPopover {
  return _alertControllerState->style == UIAlertControllerStyleActionSheet;
}

- (void)viewDidDisappear:(BOOL)animated {
  [super viewDidDisappear:animated];
  if ([self presentingViewController]) return;
  for (UIAlertAction *action in _alertControllerState->actions.get()) [action sim_clearHandler];
}

- (BOOL)sim_tapAction:(UIAlertAction *)action {
  UIViewController *presenter = [self presentingViewController];
  if (!presenter || ![action isEnabled] ||
      [_alertControllerState->actions.get() indexOfObjectIdenticalTo:action] == NSNotFound) {
    return NO;
  }
  const auto keepAlive = objcxx::share(self);
  const auto tapped = objcxx::share(action);
  const auto handler = objcxx::copyOf([action sim_handler]);
  [[self viewIfLoaded] endEditing:YES];
  [presenter sim_dismissAtOnce];
  if (handler) handler(tapped.get());
  return YES;
}

- (BOOL)sim_tapOutside {
  if (_alertControllerState->style != UIAlertControllerStyleActionSheet) return NO;
  if (UIAlertAction *cancel = [self sim_cancelAction]) return [self sim_tapAction:cancel];

  UIViewController *presenter = [self presentingViewController];
  if (!presenter || [[UIDevice currentDevice] userInterfaceIdiom] != UIUserInterfaceIdiomPad) return NO;
  [presenter sim_dismissAtOnce];
  return YES;
}

@end
