// A page of the Settings application in a window, its bundle in a device folder of the test's own, and the log.
#pragma once

#import <Preferences/Preferences.h>
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <string>
#include <vector>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

/// Loads "Root" of the test's bundle, keeps values in a dictionary, and notes what it was asked to do.
@interface TestPage : PSListController {
 @public
  NSBundle *_testBundle;
  NSMutableDictionary *_store;
  NSMutableArray *_calls;
}
- (void)plainAction;
- (void)actionWith:(PSSpecifier *)specifier;
@end

namespace testing_support {

class PreferencesTest : public DeviceTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Writes `<name>.plist` with these items into the bundle.
  void writeList(NSArray *items, NSString *name = @"Root");
  void writeFile(NSString *name, NSDictionary *content);
  NSString *bundlePath() const;
  NSBundle *bundle() const;

  /// A new page that is not shown.
  TestPage *makePage();
  /// A page with these items, in the window.
  TestPage *showPage(NSArray *items);
  void show(UIViewController *page);
  UINavigationController *navigation() const { return navigation_.get(); }
  UIViewController *top() const { return [navigation_.get() topViewController]; }
  UIAlertController *alert() const;

  /// The live cell of the row, scrolled on screen.
  static PSTableCell *cell(PSListController *page, NSString *identifier);
  /// What a finger on the row does, and what it queued.
  static bool tap(PSListController *page, NSString *identifier);
  static std::string text(NSString *string) { return string ? [string UTF8String] : "(nil)"; }
  /// Names, or identifiers, of a page's rows; groups in brackets.
  static std::string rows(PSListController *page);

  /// Lines that contain `part`.
  int logged(const std::string &part) const;
  std::vector<std::string> log;
  std::vector<std::string> posted;

 private:
  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UINavigationController> navigation_;
};

}  // namespace testing_support

using testing_support::PreferencesTest;
