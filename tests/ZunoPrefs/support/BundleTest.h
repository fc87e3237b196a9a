// Fixture for tests against the built settings bundle, loaded as Settings loads it, in a device folder of its own.
#pragma once

#import <Foundation/Foundation.h>
#import <Preferences/PSSpecifier.h>
#import <Preferences/PSTableCell.h>
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <string>
#include <vector>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

namespace testing_support {

extern NSString *const kMainFile;   ///< Device path of the main preference file.
extern NSString *const kThemeFile;  ///< Device path of the theme preference file.

class BundleTest : public DeviceTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// The settings bundle, loaded once per process.
  static NSBundle *bundle();
  /// A class of the bundle; the test fails if it has none of that name. Cast it to the class's type to message it.
  static Class classNamed(const char *name);
  /// The process-wide flag of the bundle.
  static BOOL &pendingRootReload();

  /// Writes `contents` as the preference file at `devicePath`.
  void writePreferences(NSString *devicePath, NSDictionary *contents);
  /// The preference file at `devicePath`; nil when it is none.
  NSDictionary *preferences(NSString *devicePath);

  /// A row with these properties, whose setter is the usual one; autoreleased.
  static PSSpecifier *rowNamed(NSString *name, PSCellType type, NSDictionary *properties, id target = nil);

  /// Shows `controller` as the root of a window, in a navigation controller, which is returned.
  UINavigationController *show(UIViewController *controller);

  std::vector<std::string> notifications;  ///< Darwin notifications posted in this test, in order.
  std::vector<std::string> openedURLs;     ///< Addresses opened in this test, in order.
  std::vector<std::string> log;            ///< Lines logged in this test, in order.

  /// Whether a line of the log contains `text`.
  bool logged(const std::string &text) const;

 private:
  objcxx::Retained<UIWindow> window_;
};

}  // namespace testing_support

using testing_support::BundleTest;
using testing_support::kMainFile;
using testing_support::kThemeFile;
