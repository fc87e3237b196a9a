#include "ZunoPrefs/support/BundleTest.h"

#include "ZunoPrefs/support/BuiltBundle.h"

#import <CoreFoundation/CFNotificationCenter+Sim.h>
#import <Foundation/SIMLog.h>
#import <UIKit/UIApplication+Sim.h>
#import <dispatch/MainQueue+Sim.h>

namespace testing_support {
namespace {

void append(NSString *text, void *lines) {
  static_cast<std::vector<std::string> *>(lines)->emplace_back([text UTF8String] ?: "");
}

void appendURL(NSURL *url, void *lines) { append([url absoluteString], lines); }

}  // namespace

NSString *const kMainFile = @"/var/jb/var/mobile/Library/Preferences/com.norvik.Zunoprefs.plist";
NSString *const kThemeFile = @"/var/jb/var/mobile/Library/Preferences/com.norvik.Zunoprefs.theme.plist";

void BundleTest::SetUp() {
  DeviceTest::SetUp();
  makeFolder(@"/var/jb/var/mobile/Library/Preferences");
  EXPECT_FALSE(pendingRootReload()) << "also when the bundle has just been loaded";
  SIMSetDarwinPostHandler(append, &notifications);
  SIMSetOpenURLHandler(appendURL, &openedURLs);
  SIMSetLogHandler(append, &log);
}

void BundleTest::TearDown() {
  [window_.get() setHidden:YES];  // So that the pages on screen disappear.
  window_ = nullptr;
  SIMDrainMainQueue();
  drainPool();
  SIMSetDarwinPostHandler(nullptr, nullptr);
  SIMSetOpenURLHandler(nullptr, nullptr);
  SIMSetLogHandler(nullptr, nullptr);
  pendingRootReload() = NO;
  DeviceTest::TearDown();
}

NSBundle *BundleTest::bundle() { return builtBundle(); }

Class BundleTest::classNamed(const char *name) {
  Class found = [bundle() classNamed:[NSString stringWithUTF8String:name]];
  EXPECT_TRUE(found) << "the bundle has no class " << name;
  return found;
}

BOOL &BundleTest::pendingRootReload() { return *static_cast<BOOL *>(builtSymbol("pendingRootReload")); }

void BundleTest::writePreferences(NSString *devicePath, NSDictionary *contents) {
  EXPECT_TRUE([contents writeToFile:path(devicePath) atomically:YES]);
}

NSDictionary *BundleTest::preferences(NSString *devicePath) {
  return [NSDictionary dictionaryWithContentsOfFile:path(devicePath)];
}

PSSpecifier *BundleTest::rowNamed(NSString *name, PSCellType type, NSDictionary *properties, id target) {
  PSSpecifier *row = [PSSpecifier preferenceSpecifierNamed:name
                                                    target:target
                                                       set:@selector(setPreferenceValue:specifier:)
                                                       get:nullptr
                                                    detail:Nil
                                                      cell:type
                                                      edit:Nil];
  for (NSString *key in properties) [row setProperty:[properties objectForKey:key] forKey:key];
  return row;
}

UINavigationController *BundleTest::show(UIViewController *controller) {
  UINavigationController *navigation =
      [[[UINavigationController alloc] initWithRootViewController:controller] autorelease];
  window_ = objcxx::adopt([[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]]);
  [window_.get() setRootViewController:navigation];
  [window_.get() makeKeyAndVisible];
  SIMDrainMainQueue();
  return navigation;
}

bool BundleTest::logged(const std::string &text) const {
  for (const auto &line : log) {
    if (line.find(text) != std::string::npos) return true;
  }
  return false;
}

}  // namespace testing_support
