// A search over a page: its bar, and whoever shows what is found. Main thread only.
#pragma once

#import <UIKit/UINavigationItem.h>
#import <UIKit/UISearchBar.h>
#import <UIKit/UIViewController.h>

#include <objcxx/HiddenState.h>

@class UISearchController;

@protocol UISearchControllerDelegate <NSObject>
@optional
- (void)willPresentSearchController:(UISearchController *)searchController;
- (void)didPresentSearchController:(UISearchController *)searchController;
- (void)willDismissSearchController:(UISearchController *)searchController;
- (void)didDismissSearchController:(UISearchController *)searchController;
@end

@protocol UISearchResultsUpdating <NSObject>
/// The search has begun or ended, or its text has changed.
- (void)updateSearchResultsForSearchController:(UISearchController *)searchController;
@end

SIM_STATE_TYPE(SearchControllerState);

/// Shown by the navigation item whose `searchController` it is.
@interface UISearchController : UIViewController {
 @private
  SIM_STATE(SearchControllerState, _searchState);
}
/// nil: the page itself shows what is found. Another one's table lies over the page's while there is a text.
- (instancetype)initWithSearchResultsController:(UIViewController *)searchResultsController;
/// Not owned.
@property(nonatomic, assign) id<UISearchResultsUpdating> searchResultsUpdater;
@property(nonatomic, assign) id<UISearchControllerDelegate> delegate;
/// Whether the search is on. Ending it empties the bar.
@property(nonatomic, assign, getter=isActive) BOOL active;
/// NO at first, as for programs of iOS 15 and later: what lies behind a search without a text is not dimmed.
@property(nonatomic, assign) BOOL obscuresBackgroundDuringPresentation;
/// The same under its former name.
@property(nonatomic, assign) BOOL dimsBackgroundDuringPresentation;
/// YES at first.
@property(nonatomic, assign) BOOL hidesNavigationBarDuringPresentation;
@property(nonatomic, readonly) UIViewController *searchResultsController;
@property(nonatomic, readonly) UISearchBar *searchBar;
@end

@interface UINavigationItem (UISearchController)
/// Its bar stands below the navigation bar of the page.
@property(nonatomic, retain) UISearchController *searchController;
/// YES at first: the bar scrolls away with the page.
@property(nonatomic) BOOL hidesSearchBarWhenScrolling;
@end
