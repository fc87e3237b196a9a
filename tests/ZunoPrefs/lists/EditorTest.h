// Fixture for tests of the two list editors.
#pragma once

#import <UIKit/UIKit.h>

#import "lists/ZunoListEditor.h"

#include <string>

#include "ZunoPrefs/support/BundleTest.h"

namespace testing_support {

using Editor = UITableViewController<ZunoListEditor>;

class EditorTest : public BundleTest {
 protected:
  /// Identifiers of the section's records, without their common prefix "test.", joined by ",".
  static std::string enabled(Editor *editor) { return joined([editor menuItems]); }
  static std::string disabled(Editor *editor) { return joined([editor menuItemsDisabled]); }
  static std::string joined(NSArray *records);
  static NSIndexPath *at(NSInteger section, NSInteger row) {
    return [NSIndexPath indexPathForRow:row inSection:section];
  }
  static void tap(Editor *editor, NSInteger section, NSInteger row) {
    [editor tableView:[editor tableView] didSelectRowAtIndexPath:at(section, row)];
  }
  static void drag(Editor *editor, NSIndexPath *from, NSIndexPath *to) {
    [editor tableView:[editor tableView] moveRowAtIndexPath:from toIndexPath:to];
  }
  static NSInteger rows(Editor *editor, NSInteger section) {
    return [editor tableView:[editor tableView] numberOfRowsInSection:section];
  }
  static UITableViewCell *cell(Editor *editor, NSInteger section, NSInteger row) {
    return [editor tableView:[editor tableView] cellForRowAtIndexPath:at(section, row)];
  }
  /// Sections that the editor does not have are titled like the disabled one and have as many rows, here `count`; no
  /// row of theirs is a placeholder, so all can be edited.
  static void expectFurtherSections(Editor *editor, NSInteger count);
  /// The stored list under `key`, joined like the sections; "none" when there is none.
  std::string stored(NSString *key);
};

}  // namespace testing_support

using testing_support::Editor;
using testing_support::EditorTest;
