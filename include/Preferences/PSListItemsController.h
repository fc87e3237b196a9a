#pragma once

#import <Preferences/PSListController.h>

/// The page of a link list row: one row for each value, a check mark at the current one.
///
/// A tap calls the parent specifier's setter at once ("deferItemSelection": when the page is left) and stays on the
/// page.
@interface PSListItemsController : PSListController {
 @private
  PSSpecifier *_lastSelectedSpecifier;
  BOOL _deferItemSelection;
}
@end
