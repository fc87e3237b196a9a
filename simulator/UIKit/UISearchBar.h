// A field to search by, with the button that ends the search. Main thread only.
#pragma once

#import <UIKit/UITextField.h>
#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UISearchBar;

typedef NS_ENUM(NSUInteger, UISearchBarStyle) {
  UISearchBarStyleDefault,
  UISearchBarStyleProminent,
  UISearchBarStyleMinimal,
};

@protocol UISearchBarDelegate <NSObject>
@optional
- (BOOL)searchBarShouldBeginEditing:(UISearchBar *)searchBar;
- (void)searchBarTextDidBeginEditing:(UISearchBar *)searchBar;
- (BOOL)searchBarShouldEndEditing:(UISearchBar *)searchBar;
- (void)searchBarTextDidEndEditing:(UISearchBar *)searchBar;
- (void)searchBar:(UISearchBar *)searchBar textDidChange:(NSString *)searchText;
- (BOOL)searchBar:(UISearchBar *)searchBar shouldChangeTextInRange:(NSRange)range replacementText:(NSString *)text;
- (void)searchBarSearchButtonClicked:(UISearchBar *)searchBar;
- (void)searchBarCancelButtonClicked:(UISearchBar *)searchBar;
@end

/// The field in a search bar.
@interface UISearchTextField : UITextField
@end

SIM_STATE_TYPE(SearchBarState);

@interface UISearchBar : UIView <UITextInputTraits> {
 @private
  SIM_STATE(SearchBarState, _searchBarState);
}
/// Not owned.
@property(nonatomic, assign) id<UISearchBarDelegate> delegate;
/// Never nil. Setting it tells the delegate of a change, as on a device, but not of one by a person.
@property(nonatomic, copy) NSString *text;
@property(nonatomic, copy) NSString *placeholder;
/// Holds the text and has its colours.
@property(nonatomic, readonly) UISearchTextField *searchTextField;
/// NO at first. That of a search controller shows while the search is on, whatever is set here.
@property(nonatomic) BOOL showsCancelButton;
- (void)setShowsCancelButton:(BOOL)showsCancelButton animated:(BOOL)animated;
/// A minimal one has no ground of its own.
@property(nonatomic) UISearchBarStyle searchBarStyle;
/// Of the ground; nil for the system's.
@property(nonatomic, retain) UIColor *barTintColor;
@end
