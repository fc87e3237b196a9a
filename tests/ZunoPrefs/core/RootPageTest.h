// Fixture for tests of the root page.
#pragma once

#import <Preferences/PSSpecifier.h>

#import "core/ZunoprefsRootListController.h"

#include "ZunoPrefs/support/BundleTest.h"

namespace testing_support {

class RootPageTest : public BundleTest {
 protected:
  ZunoprefsRootListController *newPage() {
    return [[(ZunoprefsRootListController *)[classNamed("ZunoprefsRootListController") alloc] init] autorelease];
  }
  static bool shouldReload(ZunoprefsRootListController *page) { return [[page valueForKey:@"shouldReload"] boolValue]; }
};

}  // namespace testing_support

using testing_support::RootPageTest;
