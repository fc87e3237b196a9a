// Applications in a device folder of the test's own.
#pragma once

#import <NorvikAppList/NorvikAppList.h>

#include "simulator/Preferences/PreferencesTest.h"

namespace testing_support {

class AppListTest : public PreferencesTest {
 protected:
  /// Writes an application's folder with this Info.plist.
  void install(NSString *folder, NSDictionary *info);
  void installNamed(NSString *name, NSString *identifier);
  /// A square PNG of one colour.
  static NSData *png(NSUInteger side);
  /// What the library delivers.
  NSArray *apps();
  static std::string names(NSArray *apps);
};

}  // namespace testing_support

using testing_support::AppListTest;
