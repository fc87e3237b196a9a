#import <UIKit/UIApplication+Sim.h>

#import <UIKit/UIResponder+Sim.h>
#import <UIKit/UIViewController+Sim.h>
#import <UIKit/UIWindow.h>
#import <dispatch/dispatch.h>
#include <objcxx/BlockHandle.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace sim {
struct ApplicationState {
  id<UIApplicationDelegate> delegate = nil;  // not owned
  std::vector<UIWindow *> windows;           // not owned; back to front, the hidden ones left out
  UIWindow *keyWindow = nil;                 // not owned
};
}  // namespace sim

namespace {

void (*urlHandler)(NSURL *url, void *context) = nullptr;
void *urlContext = nullptr;

/// Performs `action` with as many arguments as its name has colons. False for more than two.
bool performAction(id target, SEL action, id sender, id event) {
  const std::string_view name = sel_getName(action);
  switch (std::count(name.begin(), name.end(), ':')) {
    case 0: [target performSelector:action]; return true;
    case 1: [target performSelector:action withObject:sender]; return true;
    case 2: [target performSelector:action withObject:sender withObject:event]; return true;
    default: return false;
  }
}

}  // namespace

void SIMSetOpenURLHandler(void (*handler)(NSURL *url, void *context), void *context) {
  urlHandler = handler;
  urlContext = context;
}

@implementation UIApplication

+ (UIApplication *)sharedApplication {
  static UIApplication *shared = [[UIApplication alloc] init];
  return shared;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _applicationState = std::make_unique<sim::ApplicationState>();
  return self;
}

- (id<UIApplicationDelegate>)delegate {
  return _applicationState->delegate;
}

- (void)setDelegate:(id<UIApplicationDelegate>)delegate {
  _applicationState->delegate = delegate;
}

- (UIApplicationState)applicationState {
  return UIApplicationStateActive;
}

- (UIWindow *)keyWindow {
  return _applicationState->keyWindow;
}

- (NSArray *)windows {
  const auto &windows = _applicationState->windows;
  return [NSArray arrayWithObjects:windows.data() count:windows.size()];
}

- (UIResponder *)nextResponder {
  id delegate = _applicationState->delegate;
  return [delegate isKindOfClass:[UIResponder class]] ? delegate : nil;
}

#pragma mark - URLs

- (BOOL)canOpenURL:(NSURL *)url {
  // The schemes that the applications of a fresh device take.
  static NSSet *const schemes = [[NSSet alloc]
      initWithObjects:@"http", @"https", @"mailto", @"tel", @"sms", @"facetime", @"app-prefs", @"prefs", nil];
  NSString *scheme = [[url scheme] lowercaseString];
  return scheme && [schemes containsObject:scheme];
}

- (BOOL)openURL:(NSURL *)url {
  if (![self canOpenURL:url]) return NO;
  if (urlHandler) urlHandler(url, urlContext);
  return YES;
}

- (void)openURL:(NSURL *)url options:(NSDictionary *)options completionHandler:(void (^)(BOOL success))completion {
  const BOOL success = [self openURL:url];
  if (!completion) return;
  const auto handler = objcxx::copyOf(completion);
  dispatch_async(dispatch_get_main_queue(), ^{
    handler(success);
  });
}

#pragma mark - Actions

- (BOOL)sendAction:(SEL)action to:(id)target from:(id)sender forEvent:(UIEvent *)event {
  if (!action) return NO;
  id receiver = target;
  if (!receiver) {
    UIResponder *responder = SIMFirstResponder();
    if (!responder) {
      UIViewController *front = [[_applicationState->keyWindow rootViewController] sim_frontmostViewController];
      // Down to the page in front of its containers.
      while (UIViewController *child = [[front sim_appearingChildViewControllers] lastObject]) front = child;
      responder = front;
    }
    while (responder && ![responder respondsToSelector:action]) responder = [responder nextResponder];
    receiver = responder;
  }
  return receiver && performAction(receiver, action, sender, (id)event);
}

#pragma mark - Windows

- (void)sim_windowDidShow:(UIWindow *)window {
  auto &windows = _applicationState->windows;
  if (std::find(windows.begin(), windows.end(), window) == windows.end()) windows.push_back(window);
}

- (void)sim_windowDidHide:(UIWindow *)window {
  std::erase(_applicationState->windows, window);
  if (_applicationState->keyWindow == window) _applicationState->keyWindow = nil;
}

- (void)sim_windowDidBecomeKey:(UIWindow *)window {
  _applicationState->keyWindow = window;
}

@end
