#include "simulator/Preferences/PreferencesTest.h"

#import <CoreFoundation/CFNotificationCenter+Sim.h>
#import <Foundation/SIMLog.h>
#import <UIKit/UITableView+Sim.h>
#import <dispatch/MainQueue+Sim.h>

@implementation TestPage

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _store = [[NSMutableDictionary alloc] init];
  _calls = [[NSMutableArray alloc] init];
  return self;
}

- (void)dealloc {
  [_testBundle release];
  [_store release];
  [_calls release];
  [super dealloc];
}

- (NSBundle *)bundle {
  return _testBundle;
}

- (NSArray *)specifiers {
  if (!_specifiers) _specifiers = [[self loadSpecifiersFromPlistName:@"Root" target:self] retain];
  return _specifiers;
}

- (id)readPreferenceValue:(PSSpecifier *)specifier {
  return [_store objectForKey:[specifier propertyForKey:PSKeyNameKey]] ?: [specifier propertyForKey:PSDefaultValueKey];
}

- (void)setPreferenceValue:(id)value specifier:(PSSpecifier *)specifier {
  [_calls addObject:[NSString stringWithFormat:@"set %@=%@", [specifier propertyForKey:PSKeyNameKey], value]];
  [_store setObject:value forKey:[specifier propertyForKey:PSKeyNameKey]];
}

- (void)plainAction {
  [_calls addObject:@"plainAction"];
}

- (void)actionWith:(PSSpecifier *)specifier {
  [_calls addObject:[NSString stringWithFormat:@"actionWith %@", [specifier identifier]]];
}

@end

namespace testing_support {
namespace {

NSString *const kBundle = @"/var/jb/Library/PreferenceBundles/Test.bundle";

void appendLine(NSString *line, void *context) {
  static_cast<std::vector<std::string> *>(context)->push_back([line UTF8String]);
}

}  // namespace

void PreferencesTest::SetUp() {
  DeviceTest::SetUp();
  makeFolder(kBundle);
  SIMSetLogHandler(appendLine, &log);
  SIMSetDarwinPostHandler(appendLine, &posted);
}

void PreferencesTest::TearDown() {
  [window_.get() setHidden:YES];
  [window_.get() setRootViewController:nil];
  navigation_ = nullptr;
  window_ = nullptr;
  SIMDrainMainQueue();
  SIMSetLogHandler(nullptr, nullptr);
  SIMSetDarwinPostHandler(nullptr, nullptr);
  DeviceTest::TearDown();
}

NSString *PreferencesTest::bundlePath() const { return path(kBundle); }

NSBundle *PreferencesTest::bundle() const { return [NSBundle bundleWithPath:bundlePath()]; }

void PreferencesTest::writeFile(NSString *name, NSDictionary *content) {
  ASSERT_TRUE([content writeToFile:[bundlePath() stringByAppendingPathComponent:name] atomically:YES]);
}

void PreferencesTest::writeList(NSArray *items, NSString *name) {
  writeFile([name stringByAppendingString:@".plist"], @{@"items" : items});
}

TestPage *PreferencesTest::makePage() {
  TestPage *page = [[[TestPage alloc] init] autorelease];
  page->_testBundle = [bundle() retain];
  return page;
}

TestPage *PreferencesTest::showPage(NSArray *items) {
  writeList(items);
  TestPage *page = makePage();
  show(page);
  return page;
}

void PreferencesTest::show(UIViewController *page) {
  window_ = objcxx::adopt([[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]]);
  navigation_ = objcxx::adopt([[UINavigationController alloc] initWithRootViewController:page]);
  [window_.get() setRootViewController:navigation_.get()];
  [window_.get() makeKeyAndVisible];
  SIMDrainMainQueue();
}

UIAlertController *PreferencesTest::alert() const {
  UIViewController *presented = [navigation_.get() presentedViewController];
  return [presented isKindOfClass:[UIAlertController class]] ? (UIAlertController *)presented : nil;
}

PSTableCell *PreferencesTest::cell(PSListController *page, NSString *identifier) {
  NSIndexPath *path = [page indexPathForSpecifier:[page specifierForID:identifier]];
  if (!path) return nil;
  [[page table] sim_prepareForDescription];
  return (PSTableCell *)[[page table] sim_cellForControlEventsAtIndexPath:path];
}

bool PreferencesTest::tap(PSListController *page, NSString *identifier) {
  NSIndexPath *path = [page indexPathForSpecifier:[page specifierForID:identifier]];
  [[page table] sim_prepareForDescription];
  const bool taken = path && [[page table] sim_tapRowAtIndexPath:path];
  SIMDrainMainQueue();
  return taken;
}

std::string PreferencesTest::rows(PSListController *page) {
  std::string result;
  for (NSInteger index = 0; PSSpecifier *specifier = [page specifierAtIndex:index]; ++index) {
    const std::string name = text([specifier name] ?: [specifier identifier] ?: @"");
    if (index > 0) result += " ";
    result += [specifier cellType] == PSGroupCell ? "[" + name + "]" : name;
  }
  return result;
}

int PreferencesTest::logged(const std::string &part) const {
  int count = 0;
  for (const std::string &line : log) count += line.find(part) != std::string::npos ? 1 : 0;
  return count;
}

}  // namespace testing_support
