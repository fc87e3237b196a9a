// Fixture for tests with widget bundles in the device folder.
#pragma once

#import <Foundation/Foundation.h>

#include "ZunoPrefs/lists/EditorTest.h"

namespace testing_support {

extern NSString *const kWidgetsFolder;  ///< Device path of the widgets folder.

class WidgetTest : public EditorTest {
 protected:
  /// Lays out "<name>.bundle" with the built code `code` (see tests/fixtures/widgets) and the Info list of a good
  /// widget whose class is named like the code and whose identifier is "test.<name>", with `changes` applied; a change
  /// to NSNull takes the key out. Returns the bundle's folder on this computer.
  NSString *installWidget(NSString *name, NSString *code, NSDictionary *changes);
  NSString *installWidget(NSString *name, NSString *code) { return installWidget(name, code, @{}); }
  /// The same with a copy of the code: the folder as somebody has copied it.
  NSString *installWidgetCopy(NSString *name, NSString *code, NSDictionary *changes);

  /// The log line that names `path`, as `format` with %s.
  static std::string line(const char *format, NSString *path);
};

}  // namespace testing_support

using testing_support::kWidgetsFolder;
using testing_support::WidgetTest;
