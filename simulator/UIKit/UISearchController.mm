#import <UIKit/UIApplication.h>
#import <UIKit/UISearchBar+Sim.h>
#import <UIKit/UISearchController+Sim.h>
#import <UIKit/UIWindow.h>

#include <objcxx/Retained.h>

namespace sim {

struct SearchControllerState {
  objcxx::Retained<UIViewController> results;
  objcxx::Retained<UISearchBar> bar;
  id<UISearchResultsUpdating> updater = nil;      // Not owned.
  id<UISearchControllerDelegate> delegate = nil;  // Not owned.
  bool active = false;
  bool obscures = false;
  bool hidesBar = true;
};

}  // namespace sim

@implementation UISearchController

- (instancetype)initWithSearchResultsController:(UIViewController *)results {
  if (!(self = [super initWithNibName:nil bundle:nil])) return nil;
  _searchState = std::make_unique<sim::SearchControllerState>();
  _searchState->results = objcxx::share(results);
  _searchState->bar = objcxx::adopt([[UISearchBar alloc] initWithFrame:CGRectZero]);
  [_searchState->bar.get() sizeToFit];
  [_searchState->bar.get() setPlaceholder:@"Search"];
  [_searchState->bar.get() sim_setController:self];
  return self;
}

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  (void)nibName;
  (void)bundle;
  return [self initWithSearchResultsController:nil];
}

- (void)dealloc {
  if (_searchState) {
    [_searchState->bar.get() sim_setController:nil];
    if ([_searchState->results.get() isViewLoaded]) [[_searchState->results.get() view] removeFromSuperview];
  }
  [super dealloc];
}

- (id<UISearchResultsUpdating>)searchResultsUpdater {
  return _searchState->updater;
}

- (void)setSearchResultsUpdater:(id<UISearchResultsUpdating>)updater {
  _searchState->updater = updater;
}

- (id<UISearchControllerDelegate>)delegate {
  return _searchState->delegate;
}

- (void)setDelegate:(id<UISearchControllerDelegate>)delegate {
  _searchState->delegate = delegate;
}

- (BOOL)isActive {
  return _searchState->active;
}

- (void)sim_tell:(SEL)what {
  if ([_searchState->delegate respondsToSelector:what]) {
    [_searchState->delegate performSelector:what withObject:self];
  }
}

- (void)setActive:(BOOL)active {
  if (_searchState->active == bool(active)) return;
  const auto kept = objcxx::share(self);
  [self sim_tell:active ? @selector(willPresentSearchController:) : @selector(willDismissSearchController:)];
  _searchState->active = active;
  UISearchBar *bar = [self searchBar];
  if (active) {
    [bar becomeFirstResponder];
    [self sim_textDidChange];
  } else {
    [bar resignFirstResponder];
    if ([[bar text] length] > 0) {
      [bar setText:@""];
    } else {
      [self sim_textDidChange];
    }
  }
  [self sim_tell:active ? @selector(didPresentSearchController:) : @selector(didDismissSearchController:)];
}

- (BOOL)obscuresBackgroundDuringPresentation {
  return _searchState->obscures;
}

- (void)setObscuresBackgroundDuringPresentation:(BOOL)obscures {
  _searchState->obscures = obscures;
}

- (BOOL)dimsBackgroundDuringPresentation {
  return [self obscuresBackgroundDuringPresentation];
}

- (void)setDimsBackgroundDuringPresentation:(BOOL)dims {
  [self setObscuresBackgroundDuringPresentation:dims];
}

- (BOOL)hidesNavigationBarDuringPresentation {
  return _searchState->hidesBar;
}

- (void)setHidesNavigationBarDuringPresentation:(BOOL)hides {
  _searchState->hidesBar = hides;
}

- (UIViewController *)searchResultsController {
  return _searchState->results.get();
}

- (UISearchBar *)searchBar {
  return _searchState->bar.get();
}

@end

@implementation UISearchController (Sim)

/// The table of what is found lies in the window like any other, so that it is laid out for the screen.
- (void)sim_placeResults {
  UIViewController *results = [self sim_shownResultsController];
  if (!results) {
    if ([_searchState->results.get() isViewLoaded]) [[_searchState->results.get() view] removeFromSuperview];
    return;
  }
  UIWindow *window = [[UIApplication sharedApplication] keyWindow];
  UIView *view = [results view];
  if (!window || [view window]) return;
  [view setFrame:[window bounds]];
  [view setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
  [window insertSubview:view atIndex:0];
}

- (void)sim_textDidChange {
  [_searchState->updater updateSearchResultsForSearchController:self];
  [self sim_placeResults];
}

- (UIViewController *)sim_shownResultsController {
  const bool isShown = _searchState->active && [[[self searchBar] text] length] > 0;
  return isShown ? _searchState->results.get() : nil;
}

@end
