// Fixture for tests of the presets screen.
#pragma once

#import "theme/ZunoPresets.h"

#include "ZunoPrefs/theme/ThemeTest.h"

namespace testing_support {

extern NSString *const kPresets;  ///< Device path of the presets folder.
extern NSString *const kBackup;   ///< Device path of the theme's backup.

class PresetsTest : public ThemeTest {
 protected:
  ZunoPresets *newPage() { return [[(ZunoPresets *)[classNamed("ZunoPresets") alloc] init] autorelease]; }
  /// A page on screen.
  ZunoPresets *showPage() {
    ZunoPresets *page = newPage();
    (void)show(page);
    return page;
  }
  /// Where the preset `name` lies on this computer.
  NSString *presetPath(NSString *name) {
    return [path(kPresets) stringByAppendingPathComponent:[name stringByAppendingString:@".plist"]];
  }
  NSDictionary *preset(NSString *name) { return [NSDictionary dictionaryWithContentsOfFile:presetPath(name)]; }
  void writePreset(NSString *name, NSDictionary *contents) {
    makeFolder(kPresets);
    EXPECT_TRUE([contents writeToFile:presetPath(name) atomically:YES]);
  }
};

}  // namespace testing_support

using testing_support::kBackup;
using testing_support::kPresets;
using testing_support::PresetsTest;
