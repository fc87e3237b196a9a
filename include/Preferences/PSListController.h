#pragma once

#import <Preferences/PSViewController.h>

#include <objcxx/HiddenState.h>

@class PSConfirmationSpecifier, PSTableCell;

SIM_STATE_TYPE(PSListControllerState);

/// A settings page made of specifiers. Main thread only.
///
/// Subclasses override `specifiers`: build the array when `_specifiers` is nil, assign it retained, return it. The
/// page releases it and asks again after `reloadSpecifiers`.
@interface PSListController : PSViewController {
 @protected
  NSMutableArray *_specifiers;  // Owned.

 @private
  SIM_STATE(PSListControllerState, _listState);
}
@property(nonatomic, copy) NSString *specifierID;

/// nil until the view is loaded.
- (UITableView *)table;
- (UITableViewStyle)tableViewStyle;
/// Where property lists, texts and icons are found: the bundle of the controller's class.
- (NSBundle *)bundle;

- (NSMutableArray *)specifiers;
/// Replaces all rows and reloads.
- (void)setSpecifiers:(NSArray *)specifiers;

/// Rows of `<name>.plist` in the page's bundle, in a new mutable array. Sets the page's title and identifier when the
/// list has them. A list that is missing or malformed gives an empty array and a log line.
- (NSMutableArray *)loadSpecifiersFromPlistName:(NSString *)name target:(id)target;
- (NSMutableArray *)loadSpecifiersFromPlistName:(NSString *)name target:(id)target bundle:(NSBundle *)bundle;

/// Forgets the cells: the next time each row is shown it gets a new one.
- (void)clearCache;
/// Redraws the table.
- (void)reload;
/// Forgets the rows and asks `specifiers` again.
- (void)reloadSpecifiers;
@end

@interface PSListController (Table) <UITableViewDataSource, UITableViewDelegate>
@end

@interface PSListController (Lookup)
- (PSSpecifier *)specifierForID:(NSString *)identifier;
/// Those that the page holds, in the order of the identifiers.
- (NSArray *)specifiersForIDs:(NSArray *)identifiers;
- (PSSpecifier *)specifierAtIndex:(NSInteger)index;
- (PSSpecifier *)specifierAtIndexPath:(NSIndexPath *)indexPath;
- (BOOL)containsSpecifier:(PSSpecifier *)specifier;
/// NSNotFound when the page does not hold it. Groups count.
- (NSInteger)indexOfSpecifier:(PSSpecifier *)specifier;
- (NSInteger)indexOfSpecifierID:(NSString *)identifier;
/// nil for a group and for a specifier that the page does not hold.
- (NSIndexPath *)indexPathForSpecifier:(PSSpecifier *)specifier;
- (NSIndexPath *)indexPathForIndex:(NSInteger)index;
- (NSInteger)indexForIndexPath:(NSIndexPath *)indexPath;
- (NSInteger)indexForRow:(NSInteger)row inGroup:(NSInteger)group;
- (NSInteger)numberOfGroups;
- (NSInteger)rowsForGroup:(NSInteger)group;
- (NSInteger)indexOfGroup:(NSInteger)group;
- (BOOL)getGroup:(NSInteger *)group row:(NSInteger *)row ofSpecifier:(PSSpecifier *)specifier;
- (BOOL)getGroup:(NSInteger *)group row:(NSInteger *)row ofSpecifierID:(NSString *)identifier;
- (BOOL)getGroup:(NSInteger *)group row:(NSInteger *)row ofSpecifierAtIndex:(NSInteger)index;
/// The group's own specifier first, then its rows.
- (NSArray *)specifiersInGroup:(NSInteger)group;
/// The live cell, or nil while the row is not displayed.
- (PSTableCell *)cachedCellForSpecifier:(PSSpecifier *)specifier;
- (PSTableCell *)cachedCellForSpecifierID:(NSString *)identifier;
@end

@interface PSListController (Updates)
/// Shows the specifier's current state. A group reloads its section; a specifier that the page does not hold is
/// ignored.
- (void)reloadSpecifier:(PSSpecifier *)specifier;
- (void)reloadSpecifier:(PSSpecifier *)specifier animated:(BOOL)animated;
- (void)reloadSpecifierID:(NSString *)identifier;
- (void)reloadSpecifierID:(NSString *)identifier animated:(BOOL)animated;
- (void)reloadSpecifierAtIndex:(NSInteger)index;
- (void)reloadSpecifierAtIndex:(NSInteger)index animated:(BOOL)animated;

- (void)addSpecifier:(PSSpecifier *)specifier;
- (void)addSpecifier:(PSSpecifier *)specifier animated:(BOOL)animated;
- (void)addSpecifiersFromArray:(NSArray *)specifiers;
- (void)addSpecifiersFromArray:(NSArray *)specifiers animated:(BOOL)animated;
- (void)insertSpecifier:(PSSpecifier *)specifier atIndex:(NSInteger)index;
- (void)insertSpecifier:(PSSpecifier *)specifier atIndex:(NSInteger)index animated:(BOOL)animated;
- (void)insertSpecifier:(PSSpecifier *)specifier afterSpecifier:(PSSpecifier *)other;
- (void)insertSpecifier:(PSSpecifier *)specifier afterSpecifier:(PSSpecifier *)other animated:(BOOL)animated;
- (void)insertSpecifier:(PSSpecifier *)specifier afterSpecifierID:(NSString *)identifier;
- (void)insertSpecifier:(PSSpecifier *)specifier afterSpecifierID:(NSString *)identifier animated:(BOOL)animated;
- (void)insertSpecifier:(PSSpecifier *)specifier atEndOfGroup:(NSInteger)group;
- (void)insertSpecifier:(PSSpecifier *)specifier atEndOfGroup:(NSInteger)group animated:(BOOL)animated;
- (void)insertContiguousSpecifiers:(NSArray *)specifiers atIndex:(NSInteger)index;
- (void)insertContiguousSpecifiers:(NSArray *)specifiers atIndex:(NSInteger)index animated:(BOOL)animated;
- (void)insertContiguousSpecifiers:(NSArray *)specifiers afterSpecifier:(PSSpecifier *)other;
- (void)insertContiguousSpecifiers:(NSArray *)specifiers afterSpecifier:(PSSpecifier *)other animated:(BOOL)animated;
- (void)insertContiguousSpecifiers:(NSArray *)specifiers afterSpecifierID:(NSString *)identifier;
- (void)insertContiguousSpecifiers:(NSArray *)specifiers
                  afterSpecifierID:(NSString *)identifier
                          animated:(BOOL)animated;
- (void)insertContiguousSpecifiers:(NSArray *)specifiers atEndOfGroup:(NSInteger)group;
- (void)insertContiguousSpecifiers:(NSArray *)specifiers atEndOfGroup:(NSInteger)group animated:(BOOL)animated;
- (void)removeSpecifier:(PSSpecifier *)specifier;
- (void)removeSpecifier:(PSSpecifier *)specifier animated:(BOOL)animated;
- (void)removeSpecifierID:(NSString *)identifier;
- (void)removeSpecifierID:(NSString *)identifier animated:(BOOL)animated;
- (void)removeSpecifierAtIndex:(NSInteger)index;
- (void)removeSpecifierAtIndex:(NSInteger)index animated:(BOOL)animated;
- (void)removeLastSpecifier;
- (void)removeLastSpecifierAnimated:(BOOL)animated;
/// Ignored unless the specifiers stand next to each other in this order.
- (void)removeContiguousSpecifiers:(NSArray *)specifiers;
- (void)removeContiguousSpecifiers:(NSArray *)specifiers animated:(BOOL)animated;
- (void)replaceContiguousSpecifiers:(NSArray *)specifiers withSpecifiers:(NSArray *)replacements;
- (void)replaceContiguousSpecifiers:(NSArray *)specifiers
                     withSpecifiers:(NSArray *)replacements
                           animated:(BOOL)animated;
/// The same under another name.
- (void)updateSpecifiers:(NSArray *)specifiers withSpecifiers:(NSArray *)replacements;
/// Between the two, changes reach the table at once and at the end.
- (void)beginUpdates;
- (void)endUpdates;
@end

@interface PSListController (Actions)
/// What a tap on a row that is not a button does; gives the page to push, or nil when there is none.
- (id)controllerForSpecifier:(PSSpecifier *)specifier;
- (BOOL)performButtonActionForSpecifier:(PSSpecifier *)specifier;
- (BOOL)performActionForSpecifier:(PSSpecifier *)specifier;
- (BOOL)performLoadActionForSpecifier:(PSSpecifier *)specifier;
- (BOOL)performConfirmationActionForSpecifier:(PSSpecifier *)specifier;
- (BOOL)performConfirmationCancelActionForSpecifier:(PSSpecifier *)specifier;
- (void)showConfirmationViewForSpecifier:(PSConfirmationSpecifier *)specifier;
/// Loads the bundle at "lazy-bundle" and makes its principal class the page that the row opens.
- (void)lazyLoadBundle:(PSSpecifier *)specifier;
@end
