// What SIMStartFoundation (called by main) has set up.
#import <Foundation/SIMDevice.h>
#import <Foundation/SIMLog.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <string>
#include <vector>

namespace {

class StartTest : public ObjCTest {};

void collect(NSString *line, void *context) {
  static_cast<std::vector<std::string> *>(context)->push_back([line UTF8String]);
}

TEST_F(StartTest, LanguageIsEnglish) {
  EXPECT_OBJC_EQ([[NSUserDefaults userLanguages] firstObject], @"en");
  EXPECT_OBJC_EQ([[NSLocale preferredLanguages] firstObject], @"en");
}

TEST_F(StartTest, UserDefaultsStayInMemory) {
  NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
  [defaults setObject:@"kept" forKey:@"StartTest"];
  [defaults synchronize];
  EXPECT_OBJC_EQ([defaults stringForKey:@"StartTest"], @"kept");
  NSString *file = [NSHomeDirectory() stringByAppendingPathComponent:@"GNUstep/Defaults/foundation_tests.plist"];
  EXPECT_FALSE([[NSFileManager defaultManager] fileExistsAtPath:file]);
  [defaults removeObjectForKey:@"StartTest"];
}

TEST_F(StartTest, KeepingUserDefaultsInMemoryWritesNothingToTheLog) {
  std::vector<std::string> lines;
  SIMSetLogHandler(collect, &lines);
  NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
  [defaults setObject:@"kept" forKey:@"StartTest"];
  EXPECT_TRUE([defaults synchronize]);
  [[NSNotificationCenter defaultCenter] postNotificationName:@"GSHousekeeping" object:nil];  // Every half minute.
  SIMSetLogHandler(nullptr, nullptr);
  EXPECT_EQ(lines, std::vector<std::string>());
  [defaults removeObjectForKey:@"StartTest"];
}

TEST_F(StartTest, TextIsUTF8WhateverTheLocale) {
  EXPECT_EQ([NSString defaultCStringEncoding], static_cast<NSStringEncoding>(NSUTF8StringEncoding));
  EXPECT_STREQ([@"Größe 😀" fileSystemRepresentation], "Größe 😀");
}

TEST_F(StartTest, LogHandlerGetsTheBareLine) {
  std::vector<std::string> lines;
  SIMSetLogHandler(collect, &lines);
  NSLog(@"[Zuno] a] b %d 😀", 3);
  NSLog(@"two\nlines");
  SIMSetLogHandler(nullptr, nullptr);
  NSLog(@"nobody listens");
  EXPECT_EQ(lines, (std::vector<std::string>{"[Zuno] a] b 3 😀", "two\nlines"}));
}

TEST_F(StartTest, ALongLineIsCut) {
  std::vector<std::string> lines;
  SIMSetLogHandler(collect, &lines);
  const std::string text = "[Zuno] " + std::string(20'000, 'x');
  NSLog(@"%s", text.c_str());
  SIMSetLogHandler(nullptr, nullptr);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_LE(lines[0].size(), 8'192u + 3);
  EXPECT_GE(lines[0].size(), 8'000u);
  EXPECT_EQ(lines[0], text.substr(0, lines[0].size() - 3) + "…");
}

}  // namespace
