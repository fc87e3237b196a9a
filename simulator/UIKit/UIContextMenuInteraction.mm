#import <UIKit/UIContextMenuInteraction+Sim.h>

#import <UIKit/MenuController.h>
#import <UIKit/UIContextMenuConfiguration+Sim.h>
#import <UIKit/UIControl.h>
#import <UIKit/UILongPressGestureRecognizer.h>
#import <UIKit/UIMenuElement+Sim.h>
#import <dispatch/dispatch.h>

namespace sim {

struct ContextMenuInteractionState {
  id<UIContextMenuInteractionDelegate> delegate = nil;  // Not owned.
  UIView *view = nil;                                   // Not owned; tells us when it goes.
  objcxx::Retained<UILongPressGestureRecognizer> press;
  CGPoint location = CGPointZero;  ///< Of the view.
  objcxx::Retained<UIContextMenuConfiguration> configuration;
  SIMMenuController *controller =
      nil;  ///< While the menu is shown. Not owned, as it keeps the view; tells when it goes.
  bool isOpening = false;
};

}  // namespace sim

/// Keeps what goes along with a menu's coming or going.
@interface SIMMenuAnimator : NSObject <UIContextMenuInteractionAnimating> {
 @private
  std::vector<objcxx::BlockHandle<void>> _animations;
  std::vector<objcxx::BlockHandle<void>> _completions;
}
- (void)runAnimations;
- (void)runCompletions;
@end

@implementation SIMMenuAnimator

- (UIViewController *)previewViewController {
  return nil;
}

- (void)addAnimations:(void (^)(void))animations {
  if (animations) _animations.push_back(objcxx::copyOf(animations));
}

- (void)addCompletion:(void (^)(void))completion {
  if (completion) _completions.push_back(objcxx::copyOf(completion));
}

- (void)runAnimations {
  for (const auto &each : std::exchange(_animations, {})) each();
}

- (void)runCompletions {
  for (const auto &each : std::exchange(_completions, {})) each();
}

@end

@interface UIContextMenuInteraction () <UIGestureRecognizerDelegate>
@end

@implementation UIContextMenuInteraction

- (instancetype)initWithDelegate:(id<UIContextMenuInteractionDelegate>)delegate {
  if (!(self = [super init])) return nil;
  _interactionState = std::make_unique<sim::ContextMenuInteractionState>();
  _interactionState->delegate = delegate;
  _interactionState->press = objcxx::adopt([[UILongPressGestureRecognizer alloc] initWithTarget:self
                                                                                         action:@selector(sim_press:)]);
  [_interactionState->press.get() setDelegate:self];
  return self;
}

- (instancetype)init {
  return [self initWithDelegate:nil];
}

- (void)dealloc {
  if (_interactionState) {
    [self sim_letGoOfController];
    UILongPressGestureRecognizer *press = _interactionState->press.get();
    [[press view] removeGestureRecognizer:press];
    [press setDelegate:nil];
    [press removeTarget:self action:NULL];
  }
  [super dealloc];
}

- (void)sim_letGoOfController {
  [_interactionState->controller onLeaving:nil gone:nil];
  [_interactionState->controller keepSelection:NO chosen:nil];
}

- (id<UIContextMenuInteractionDelegate>)delegate {
  return _interactionState->delegate;
}

- (UIView *)view {
  return _interactionState->view;
}

- (void)willMoveToView:(UIView *)view {
  (void)view;
  [self dismissMenu];
  [_interactionState->view removeGestureRecognizer:_interactionState->press.get()];
}

- (void)didMoveToView:(UIView *)view {
  _interactionState->view = view;
  [view addGestureRecognizer:_interactionState->press.get()];
}

- (UIContextMenuInteractionAppearance)menuAppearance {
  if (!_interactionState->controller && !_interactionState->isOpening) return UIContextMenuInteractionAppearanceUnknown;
  return [_interactionState->view isKindOfClass:[UIControl class]] ? UIContextMenuInteractionAppearanceCompact
                                                                   : UIContextMenuInteractionAppearanceRich;
}

- (CGPoint)locationInView:(UIView *)view {
  return [_interactionState->view convertPoint:_interactionState->location toView:view];
}

- (void)updateVisibleMenuWithBlock:(UIMenu * (^)(UIMenu *))block {
  const auto controller = objcxx::share(_interactionState->controller);
  if (!controller || !block) return;
  NSArray *open = [controller.get() openMenus];
  // From the innermost out, so that what a menu gives for itself is what the one around it holds.
  for (NSUInteger depth = [open count]; depth-- > 0;) {
    if (depth >= [[controller.get() openMenus] count]) continue;
    UIMenu *shown = [[controller.get() openMenus] objectAtIndex:depth];
    UIMenu *wanted = block([[shown copy] autorelease]);
    if (_interactionState->controller != controller.get()) return;
    [controller.get() setMenu:[self sim_root:[controller.get() menu] with:[wanted sim_frozen] inPlaceOf:shown]];
  }
}

/// `root` in which `shown`, wherever it is, has given way to `wanted`.
- (UIMenu *)sim_root:(UIMenu *)root with:(UIMenu *)wanted inPlaceOf:(UIMenu *)shown {
  if (root == shown) return wanted;
  NSMutableArray *children = [NSMutableArray array];
  for (UIMenuElement *child in [root children]) {
    const bool isMenu = [child isKindOfClass:[UIMenu class]];
    UIMenuElement *next = isMenu ? [self sim_root:(UIMenu *)child with:wanted inPlaceOf:shown] : child;
    if (next) [children addObject:next];
  }
  return [[root menuByReplacingChildren:children] sim_frozen];
}

- (void)dismissMenu {
  [_interactionState->controller leave];
}

#pragma mark - A finger

- (BOOL)gestureRecognizerShouldBegin:(UIGestureRecognizer *)recognizer {
  return [self sim_prepareAt:[recognizer locationInView:_interactionState->view]];
}

- (void)sim_press:(UIGestureRecognizer *)recognizer {
  if ([recognizer state] == UIGestureRecognizerStateBegan) (void)[self sim_open];
}

/// Asks the delegate for a menu.
- (BOOL)sim_prepareAt:(CGPoint)location {
  sim::ContextMenuInteractionState &state = *_interactionState;
  if (state.controller || !state.delegate) return NO;
  state.location = location;
  state.configuration = objcxx::share([state.delegate contextMenuInteraction:self
                                              configurationForMenuAtLocation:location]);
  return static_cast<bool>(state.configuration);
}

/// Shows what was prepared.
- (BOOL)sim_open {
  sim::ContextMenuInteractionState &state = *_interactionState;
  const auto kept = objcxx::share(self);
  const auto configuration = std::exchange(state.configuration, {});
  UIMenu *menu = [configuration.get() sim_makeMenu];
  if (!menu || sim::groupsOf(menu).empty()) return NO;
  id<SIMContextMenuSource> source = (id<SIMContextMenuSource>)state.delegate;
  UIView *view =
      [source respondsToSelector:@selector(sim_viewOfMenuAt:)] ? [source sim_viewOfMenuAt:state.location] : state.view;
  const bool isControl = [state.view isKindOfClass:[UIControl class]];
  const auto controller = objcxx::adopt([[SIMMenuController alloc] initWithMenu:menu
                                                                         sender:isControl ? state.view : nil]);
  [controller.get() setRich:!isControl];
  __block UIContextMenuInteraction *unowned = self;
  if ([source respondsToSelector:@selector(sim_didChoose:)]) {
    [controller.get() keepSelection:[source sim_menuKeepsSelection]
                             chosen:^(UIAction *action) {
                               [(id<SIMContextMenuSource>)[unowned delegate] sim_didChoose:action];
                             }];
  }
  const auto leaving = objcxx::adopt([[SIMMenuAnimator alloc] init]);
  [controller.get()
      onLeaving:^{
        [unowned sim_tellEndOf:configuration.get() animator:leaving.get()];
      }
      gone:^{
        [unowned sim_forgetMenu];
        [leaving.get() runCompletions];
      }];
  const auto coming = objcxx::adopt([[SIMMenuAnimator alloc] init]);
  state.isOpening = true;
  if ([state.delegate respondsToSelector:@selector(contextMenuInteraction:willDisplayMenuForConfiguration:animator:)]) {
    [state.delegate contextMenuInteraction:self
           willDisplayMenuForConfiguration:configuration.get()
                                  animator:coming.get()];
  }
  [coming.get() runAnimations];
  state.controller = controller.get();
  state.isOpening = false;
  if (![controller.get() showFromView:view barButton:nil]) {
    [self sim_letGoOfController];
    state.controller = nil;
    return NO;
  }
  dispatch_async(dispatch_get_main_queue(), ^{
    [coming.get() runCompletions];
  });
  return YES;
}

- (void)sim_tellEndOf:(UIContextMenuConfiguration *)configuration animator:(SIMMenuAnimator *)animator {
  const auto kept = objcxx::share(self);
  id<UIContextMenuInteractionDelegate> delegate = _interactionState->delegate;
  if ([delegate respondsToSelector:@selector(contextMenuInteraction:willEndForConfiguration:animator:)]) {
    [delegate contextMenuInteraction:self willEndForConfiguration:configuration animator:animator];
  }
  [animator runAnimations];
}

- (void)sim_forgetMenu {
  _interactionState->controller = nil;
}

@end

@implementation UIContextMenuInteraction (Sim)

- (void)sim_setOpensByPress:(BOOL)opens {
  [_interactionState->press.get() setEnabled:opens];
}

- (BOOL)sim_opensByPress {
  return [_interactionState->press.get() isEnabled];
}

- (BOOL)sim_openAt:(CGPoint)location {
  return [self sim_prepareAt:location] && [self sim_open];
}

- (void)sim_replaceMenu:(UIMenu *)menu {
  [_interactionState->controller setMenu:menu];
}

- (BOOL)sim_isOpen {
  return _interactionState->controller != nil;
}

- (void)sim_letGoOfView {
  // A control is its interaction's delegate, too.
  if ((id)_interactionState->delegate == (id)_interactionState->view) _interactionState->delegate = nil;
  _interactionState->view = nil;
}

@end
