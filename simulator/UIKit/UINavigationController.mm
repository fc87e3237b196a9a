#import <UIKit/UINavigationController+Sim.h>

#import "UIViewControllerState.h"

#import <UIKit/UINavigationBar.h>

#include <utility>

namespace sim {
struct NavigationControllerState {
  objcxx::Retained<NSMutableArray> stack = objcxx::adopt([[NSMutableArray alloc] init]);
  objcxx::Retained<UIViewController> shown;  // Whose view is in the view of this controller.
  objcxx::Retained<NSMutableArray> unseen = objcxx::adopt([[NSMutableArray alloc] init]);  // In the stack, never shown.
  // Controllers whose change of parent is told when the pages on screen have followed.
  objcxx::Retained<NSMutableArray> leaving = objcxx::adopt([[NSMutableArray alloc] init]);
  objcxx::Retained<NSMutableArray> arriving = objcxx::adopt([[NSMutableArray alloc] init]);
  objcxx::Retained<UINavigationBar> bar;
  id<UINavigationControllerDelegate> delegate = nil;  // not owned
  BOOL barHidden = NO;
  UIEdgeInsets covered = UIEdgeInsetsZero;  // Of the page that shows, by screen and bar, when it was last placed.
  BOOL exchanging = NO;
};
}  // namespace sim

namespace {

/// What a large title adds to the bar.
constexpr CGFloat kLargeTitleHeight = 52;

/// As on iOS 12 and later: higher on tablets, lower on a phone on its side, which shows no large titles.
CGFloat heightOfBar(UITraitCollection *traits, bool hasLargeTitle) {
  const CGFloat more = hasLargeTitle ? kLargeTitleHeight : 0;
  if ([traits userInterfaceIdiom] == UIUserInterfaceIdiomPad) return 50 + more;
  return [traits verticalSizeClass] == UIUserInterfaceSizeClassCompact ? 32 : 44 + more;
}

/// Everything in `view` may lie elsewhere, as bars cover more or less of it.
void layOutAnew(UIView *view) {
  [view setNeedsLayout];
  for (UIView *each in [view subviews]) layOutAnew(each);
}

}  // namespace

@implementation UINavigationController

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _navigationControllerState = std::make_unique<sim::NavigationControllerState>();
  _navigationControllerState->bar = objcxx::adopt([[UINavigationBar alloc] initWithFrame:CGRectZero]);
  return self;
}

- (instancetype)initWithRootViewController:(UIViewController *)rootViewController {
  if (!(self = [self initWithNibName:nil bundle:nil])) return nil;

  [self pushViewController:rootViewController animated:NO];
  return self;
}

- (id<UINavigationControllerDelegate>)delegate {
  return _navigationControllerState->delegate;
}

- (void)setDelegate:(id<UINavigationControllerDelegate>)delegate {
  _navigationControllerState->delegate = delegate;
}

- (UINavigationBar *)navigationBar {
  return _navigationControllerState->bar.get();
}

- (BOOL)isNavigationBarHidden {
  return _navigationControllerState->barHidden;
}

- (void)setNavigationBarHidden:(BOOL)hidden {
  [self setNavigationBarHidden:hidden animated:NO];
}

- (void)setNavigationBarHidden:(BOOL)hidden animated:(BOOL)animated {
  _navigationControllerState->barHidden = hidden;
  [_navigationControllerState->bar.get() setHidden:hidden];
  [[self viewIfLoaded] setNeedsLayout];
}

- (UIViewController *)topViewController {
  return [_navigationControllerState->stack.get() lastObject];
}

- (UIViewController *)visibleViewController {
  return [self presentedViewController] ?: [self topViewController];
}

#pragma mark - The stack

- (NSArray *)viewControllers {
  return [[_navigationControllerState->stack.get() copy] autorelease];
}

- (void)setViewControllers:(NSArray *)viewControllers {
  [self setViewControllers:viewControllers animated:NO];
}

- (void)setViewControllers:(NSArray *)viewControllers animated:(BOOL)animated {
  for (UIViewController *controller in viewControllers) {
    if ([controller isKindOfClass:[UINavigationController class]] ||
        [viewControllers indexOfObjectIdenticalTo:controller] !=
            [viewControllers count] - 1 -
                [[[viewControllers reverseObjectEnumerator] allObjects] indexOfObjectIdenticalTo:controller]) {
      [NSException raise:NSInvalidArgumentException
                  format:@"A stack holds each controller once and no navigation controller: %@.", controller];
    }
  }
  [self sim_replaceStack:viewControllers animated:animated];
}

- (void)pushViewController:(UIViewController *)viewController animated:(BOOL)animated {
  NSMutableArray *stack = _navigationControllerState->stack.get();
  if (!viewController || [viewController isKindOfClass:[UINavigationController class]] ||
      [stack indexOfObjectIdenticalTo:viewController] != NSNotFound) {
    [NSException raise:NSInvalidArgumentException
                format:@"%@ cannot be pushed on %@: a stack holds each controller once and no navigation controller.",
                       viewController, self];
  }
  [self sim_replaceStack:[stack arrayByAddingObject:viewController] animated:animated];
}

- (UIViewController *)popViewControllerAnimated:(BOOL)animated {
  NSArray *stack = [self viewControllers];
  if ([stack count] < 2) return nil;
  return [[self popToViewController:[stack objectAtIndex:[stack count] - 2] animated:animated] lastObject];
}

- (NSArray *)popToRootViewControllerAnimated:(BOOL)animated {
  UIViewController *root = [_navigationControllerState->stack.get() firstObject];
  return root ? [self popToViewController:root animated:animated] : nil;
}

- (NSArray *)popToViewController:(UIViewController *)viewController animated:(BOOL)animated {
  NSArray *stack = [self viewControllers];
  const NSUInteger index = [stack indexOfObjectIdenticalTo:viewController];
  if (index == NSNotFound) {
    [NSException raise:NSInvalidArgumentException format:@"%@ is not in the stack of %@.", viewController, self];
  }
  if (index + 1 == [stack count]) return nil;

  NSArray *popped = [stack subarrayWithRange:NSMakeRange(index + 1, [stack count] - index - 1)];
  [self sim_replaceStack:[stack subarrayWithRange:NSMakeRange(0, index + 1)] animated:animated];
  return popped;
}

/// Changes the stack and its containment, then has the pages on screen follow.
- (void)sim_replaceStack:(NSArray *)controllers animated:(BOOL)animated {
  auto &state = *_navigationControllerState;
  const auto former = objcxx::adopt((NSArray *)[state.stack.get() copy]);
  for (UIViewController *controller in former.get()) {
    if ([controllers indexOfObjectIdenticalTo:controller] != NSNotFound) continue;
    [controller willMoveToParentViewController:nil];
    [state.unseen.get() removeObjectIdenticalTo:controller];
    [state.leaving.get() addObject:controller];
  }
  for (UIViewController *controller in controllers) {
    if ([former.get() indexOfObjectIdenticalTo:controller] != NSNotFound) continue;
    if ([controller parentViewController] != self) [self addChildViewController:controller];
    [state.unseen.get() addObject:controller];
    [state.arriving.get() addObject:controller];
  }
  [state.stack.get() setArray:controllers ?: @[]];
  [self sim_updateBar];
  [self sim_showTopAnimated:animated];
  if (!state.exchanging) [self sim_tellParents];
}

- (void)sim_tellParents {
  auto &state = *_navigationControllerState;
  const auto leaving = std::exchange(state.leaving, objcxx::adopt([[NSMutableArray alloc] init]));
  const auto arriving = std::exchange(state.arriving, objcxx::adopt([[NSMutableArray alloc] init]));
  NSArray *stack = [self viewControllers];
  for (UIViewController *controller in leaving.get()) {
    const BOOL left = [stack indexOfObjectIdenticalTo:controller] == NSNotFound;
    if (left && [controller parentViewController] == self) [controller removeFromParentViewController];
  }
  for (UIViewController *controller in arriving.get()) {
    const BOOL stays = [stack indexOfObjectIdenticalTo:controller] != NSNotFound;
    if (stays && [controller parentViewController] == self) [controller didMoveToParentViewController:self];
  }
}

- (void)sim_updateBar {
  NSMutableArray *items = [NSMutableArray array];
  for (UIViewController *controller in _navigationControllerState->stack.get()) {
    [items addObject:[controller navigationItem]];
  }
  [_navigationControllerState->bar.get() setItems:items];
}

#pragma mark - The page on screen

- (BOOL)sim_isOnScreen {
  return [self sim_appearance] == SIMAppearanceAppearing || [self sim_appearance] == SIMAppearanceAppeared;
}

/// Exchanges pages until the one on screen is the top of the stack, which the pages' own code may change meanwhile.
- (void)sim_showTopAnimated:(BOOL)animated {
  auto &state = *_navigationControllerState;
  if (state.exchanging) return;
  if (![self sim_isOnScreen]) {
    UIViewController *shown = state.shown.get();
    if (shown && [state.stack.get() indexOfObjectIdenticalTo:shown] == NSNotFound) [self sim_putOnScreen:nil];
    return;
  }
  const auto keepAlive = objcxx::share(self);
  state.exchanging = YES;
  @try {
    while (state.shown.get() != [self topViewController]) [self sim_exchangePageAnimated:animated];
  } @finally {
    state.exchanging = NO;
  }
}

- (void)sim_exchangePageAnimated:(BOOL)animated {
  auto &state = *_navigationControllerState;
  const auto from = state.shown;
  const auto to = objcxx::share([self topViewController]);
  const BOOL leaves = [state.stack.get() indexOfObjectIdenticalTo:from.get()] == NSNotFound;
  const BOOL enters = to && [state.unseen.get() indexOfObjectIdenticalTo:to.get()] != NSNotFound;
  [state.unseen.get() removeObjectIdenticalTo:to.get()];
  [from.get() sim_setMovingFromParent:leaves];
  [to.get() sim_setMovingToParent:enters];

  [to.get() loadViewIfNeeded];
  [from.get() beginAppearanceTransition:NO animated:animated];
  if (to && [state.delegate respondsToSelector:@selector(navigationController:willShowViewController:animated:)]) {
    [state.delegate navigationController:self willShowViewController:to.get() animated:animated];
  }
  [to.get() beginAppearanceTransition:YES animated:animated];
  [self sim_putOnScreen:to.get()];
  [from.get() endAppearanceTransition];
  [to.get() endAppearanceTransition];
  [from.get() sim_setMovingFromParent:NO];
  [to.get() sim_setMovingToParent:NO];
  if (to && [state.delegate respondsToSelector:@selector(navigationController:didShowViewController:animated:)]) {
    [state.delegate navigationController:self didShowViewController:to.get() animated:animated];
  }
}

/// Puts the view of `controller` in place of the one that is there, without appearance calls.
- (void)sim_putOnScreen:(UIViewController *)controller {
  auto &state = *_navigationControllerState;
  [[state.shown.get() viewIfLoaded] removeFromSuperview];
  state.shown = objcxx::share(controller);
  if (!controller) return;

  UIView *container = [self view];
  UIView *view = [controller view];
  [self sim_placePage];
  [view setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
  [container insertSubview:view atIndex:0];
  [container layoutIfNeeded];
}

- (void)loadView {
  [super loadView];
  [[self view] addSubview:_navigationControllerState->bar.get()];
  [self sim_placeBar];
}

- (void)viewWillLayoutSubviews {
  [super viewWillLayoutSubviews];
  [self sim_placeBar];
}

- (void)sim_placeBar {
  const CGRect bounds = [[self view] bounds];
  [_navigationControllerState->bar.get()
      setFrame:CGRectMake(0, [[self view] safeAreaInsets].top, bounds.size.width,
                          heightOfBar([self traitCollection], [self sim_showsLargeTitle]))];
  [self sim_placePage];
}

/// The page fills the screen, under the bar or from its lower edge on.
- (void)sim_placePage {
  UIViewController *page = _navigationControllerState->shown.get();
  CGRect frame = [[self view] bounds];
  if ([page sim_beginsBelowBar]) {
    const CGFloat top = CGRectGetMaxY([_navigationControllerState->bar.get() frame]);
    frame.origin.y += top;
    frame.size.height -= top;
  }
  UIView *view = [page viewIfLoaded];
  [view setFrame:frame];
  const UIEdgeInsets covered = [view safeAreaInsets];
  if (UIEdgeInsetsEqualToEdgeInsets(covered, std::exchange(_navigationControllerState->covered, covered))) return;
  layOutAnew(view);
}

- (void)beginAppearanceTransition:(BOOL)isAppearing animated:(BOOL)animated {
  if (isAppearing && ![self sim_isOnScreen] && _navigationControllerState->shown.get() != [self topViewController]) {
    [_navigationControllerState->unseen.get() removeObjectIdenticalTo:[self topViewController]];
    [self sim_putOnScreen:[self topViewController]];
  }
  [super beginAppearanceTransition:isAppearing animated:animated];
}

- (NSArray *)sim_appearingChildViewControllers {
  UIViewController *shown = _navigationControllerState->shown.get();
  return shown ? @[ shown ] : @[];
}

- (BOOL)sim_showsLargeTitle {
  UIViewController *top = [self topViewController];
  switch ([[top navigationItem] largeTitleDisplayMode]) {
    case UINavigationItemLargeTitleDisplayModeNever: return NO;
    case UINavigationItemLargeTitleDisplayModeAlways: return [_navigationControllerState->bar.get() prefersLargeTitles];
    case UINavigationItemLargeTitleDisplayModeAutomatic: break;
  }
  return [_navigationControllerState->bar.get() prefersLargeTitles] && [[self viewControllers] firstObject] == top;
}

#pragma mark - The back button

- (NSString *)sim_backTitle {
  NSArray *stack = _navigationControllerState->stack.get();
  const NSUInteger count = [stack count];
  if (count < 2 || _navigationControllerState->barHidden) return nil;

  UINavigationItem *item = [[stack lastObject] navigationItem];
  if ([item hidesBackButton]) return nil;
  if ([[item leftBarButtonItems] count] > 0 && ![item leftItemsSupplementBackButton]) return nil;

  UINavigationItem *below = [[stack objectAtIndex:count - 2] navigationItem];
  for (NSString *title in
       @[ [[below backBarButtonItem] title] ?: @"", [below backButtonTitle] ?: @"", [below title] ?: @"" ]) {
    if ([title length] > 0) return title;
  }
  return @"Back";
}

- (BOOL)sim_tapBack {
  if (![self sim_backTitle]) return NO;
  return [self popViewControllerAnimated:YES] != nil;
}

@end
