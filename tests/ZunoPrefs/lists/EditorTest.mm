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

std::string EditorTest::stored(NSString *key) {
  NSArray *list = [preferences(kMainFile) objectForKey:key];
  return list ? joinedIdentifiers(list) : "none";
}

}  // namespace testing_support
