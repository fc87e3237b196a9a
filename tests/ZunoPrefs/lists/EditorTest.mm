#include "ZunoPrefs/lists/EditorTest.h"

namespace testing_support {
namespace {

std::string joinedIdentifiers(NSArray *identifiers) {
  NSString *text = [identifiers componentsJoinedByString:@","];
  return [[text stringByReplacingOccurrencesOfString:@"test." withString:@""] UTF8String];
}

}  // namespace

std::string EditorTest::joined(NSArray *records) {
  if (!records) return "nil";
  NSMutableArray *identifiers = [NSMutableArray array];
  for (id record in records) [identifiers addObject:[record bundleIdentifier] ?: @"(none)"];
  return joinedIdentifiers(identifiers);
}

void EditorTest::expectFurtherSections(Editor *editor, NSInteger count) {
  UITableView *table = [editor tableView];
  for (NSInteger section : {2, 3, 7}) {
    EXPECT_OBJC_EQ([editor tableView:table titleForHeaderInSection:section], @"Disabled - Tap/Drag to enable.");
    EXPECT_EQ(rows(editor, section), count) << section;
    EXPECT_TRUE([editor tableView:table canEditRowAtIndexPath:at(section, 0)]) << section;
  }
}

std::string EditorTest::stored(NSString *key) {
  NSArray *list = [preferences(kMainFile) objectForKey:key];
  return list ? joinedIdentifiers(list) : "none";
}

}  // namespace testing_support
