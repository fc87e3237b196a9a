#import "UIViewControllerState.h"

#import <Foundation/NotCarried.h>
#import <UIKit/UINavigationBar.h>
#import <UIKit/UINavigationController.h>
#import <UIKit/UIScreen.h>

@implementation UIViewController

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super init])) return nil;

  _viewControllerState = std::make_unique<sim::ViewControllerState>();
  return self;
}

- (instancetype)init {
  return [self initWithNibName:nil bundle:nil];
}

- (void)dealloc {
  if (_viewControllerState) {
    [_viewControllerState->view.get() sim_setViewController:nil];
    for (UIViewController *child in _viewControllerState->children.get()) child->_viewControllerState->parent = nil;
    if (UIViewController *presented = _viewControllerState->presented.get()) {
      [presented->_viewControllerState->view.get() removeFromSuperview];
      presented->_viewControllerState->presenting = nil;
    }
  }
  [super dealloc];
}

#pragma mark - The view

- (BOOL)isViewLoaded {
  return static_cast<bool>(_viewControllerState->view);
}

- (UIView *)viewIfLoaded {
  return _viewControllerState->view.get();
}

- (UIView *)view {
  [self loadViewIfNeeded];
  return _viewControllerState->view.get();
}

- (void)setView:(UIView *)view {
  UIView *former = _viewControllerState->view.get();
  if (former == view) return;

  [former sim_setViewController:nil];
  _viewControllerState->view = objcxx::share(view);
  [view sim_setViewController:self];
}

- (void)loadView {
  [self setView:objcxx::adopt([[UIView alloc] initWithFrame:[[UIScreen mainScreen] bounds]]).get()];
}

- (void)loadViewIfNeeded {
  // A -loadView that asks for the view would never end; on a device it overflows the stack.
  if (_viewControllerState->view || _viewControllerState->loadingView) return;

  _viewControllerState->loadingView = YES;
  @try {
    [self loadView];
  } @finally {
    _viewControllerState->loadingView = NO;
  }
  if (!_viewControllerState->view) {
    [NSException raise:NSInternalInconsistencyException format:@"-[%@ loadView] made no view.", [self class]];
  }
  [self viewDidLoad];
}

- (void)viewDidLoad {
}

- (void)viewWillLayoutSubviews {
}

- (void)viewDidLayoutSubviews {
}

- (void)didReceiveMemoryWarning {
}

- (UIResponder *)nextResponder {
  return [_viewControllerState->view.get() superview];
}

- (void)viewWillTransitionToSize:(CGSize)size
       withTransitionCoordinator:(id<UIViewControllerTransitionCoordinator>)coordinator {
  for (UIViewController *child in [self childViewControllers]) {
    if (![child isViewLoaded]) continue;
    const CGSize own = [[child view] bounds].size;
    const BOOL fills = CGSizeEqualToSize(own, [[self view] bounds].size);
    [child viewWillTransitionToSize:fills ? size : own withTransitionCoordinator:coordinator];
  }
}

#pragma mark - Title and bar items

- (NSString *)title {
  return _viewControllerState->title.get();
}

- (void)setTitle:(NSString *)title {
  _viewControllerState->title = objcxx::adopt((NSString *)[title copy]);
  [_viewControllerState->navigationItem.get() setTitle:title];
}

- (UINavigationItem *)navigationItem {
  if (!_viewControllerState->navigationItem) {
    _viewControllerState->navigationItem = objcxx::adopt([[UINavigationItem alloc] initWithTitle:[self title]]);
  }
  return _viewControllerState->navigationItem.get();
}

- (CGSize)preferredContentSize {
  return _viewControllerState->preferredContentSize;
}

- (void)setPreferredContentSize:(CGSize)size {
  if (!CGSizeEqualToSize(size, CGSizeZero)) {
    sim::notCarried(@"UIViewController.preferredContentSize", @"What is presented has the size of a sheet.");
  }
  _viewControllerState->preferredContentSize = size;
}

#pragma mark - Editing

- (BOOL)isEditing {
  return _viewControllerState->editing;
}

- (void)setEditing:(BOOL)editing {
  [self setEditing:editing animated:NO];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
  _viewControllerState->editing = editing;
  if (!_viewControllerState->editButtonItem) return;

  // The same item shows "Edit" and "Done" in turn, in the words of the system.
  UIBarButtonItem *item = _viewControllerState->editButtonItem.get();
  [item setTitle:editing ? @"Done" : @"Edit"];
  [item setStyle:editing ? UIBarButtonItemStyleDone : UIBarButtonItemStylePlain];
}

- (UIBarButtonItem *)editButtonItem {
  if (!_viewControllerState->editButtonItem) {
    const BOOL editing = _viewControllerState->editing;
    _viewControllerState->editButtonItem = objcxx::adopt([[UIBarButtonItem alloc]
        initWithTitle:editing ? @"Done" : @"Edit"
                style:editing ? UIBarButtonItemStyleDone : UIBarButtonItemStylePlain
               target:self
               action:@selector(sim_toggleEditing)]);
  }
  return _viewControllerState->editButtonItem.get();
}

- (void)sim_toggleEditing {
  [self setEditing:![self isEditing] animated:YES];
}

@end
