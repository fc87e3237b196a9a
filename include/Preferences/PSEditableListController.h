#pragma once

#import <Preferences/PSListController.h>

/// A list page with an Edit button. While it is edited, rows with a "deletionAction" can be deleted; so they can by a
/// swipe. Main thread only.
@interface PSEditableListController : PSListController {
 @private
  BOOL _editable;
  BOOL _editingDisabled;
}
/// Whether the page is being edited.
- (BOOL)editable;
- (void)setEditable:(BOOL)editable;
- (void)setEditingButtonHidden:(BOOL)hidden animated:(BOOL)animated;
- (void)setEditButtonEnabled:(BOOL)enabled;
- (void)editDoneTapped;
/// Sends the row's "deletionAction" to its target; the row is taken off the page afterwards. NO when it has none.
- (BOOL)performDeletionActionForSpecifier:(PSSpecifier *)specifier;
@end
