// What the rows of a page share of a pass over their file, and that they see every change of it.
#import <Foundation/SIMDevice.h>
#import <Preferences/PSSpecifier.h>

#import "core/ZunoprefsRootListController.h"

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <string>
#include <thread>

#include "ZunoPrefs/support/BundleTest.h"

namespace {

/// From then on a file is at rest.
constexpr std::chrono::milliseconds kLater{20};

class PreferenceScanTest : public BundleTest {
 protected:
  void SetUp() override {
    BundleTest::SetUp();
    page_ = objcxx::adopt((PSListController *)[[classNamed("ZunoprefsRootListController") alloc] init]);
  }
  void TearDown() override {
    page_ = nullptr;
    BundleTest::TearDown();
  }

  PSSpecifier *row(NSString *key) { return rowNamed(@"Row", PSEditTextCell, @{@"key" : key}, page_.get()); }
  id value(NSString *key) { return [page_.get() readPreferenceValue:row(key)]; }
  void set(id value, NSString *key) { [page_.get() setPreferenceValue:value specifier:row(key)]; }

  static std::string file() { return [SIMDevicePath(kMainFile) fileSystemRepresentation]; }

  /// Replaces `before` by `after`, which is as long, in the file, which stays the same one.
  static void changeInPlace(const std::string &before, const std::string &after) {
    std::fstream stream(file(), std::ios::in | std::ios::out | std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(stream), {}};
    const auto place = content.find(before);
    ASSERT_NE(place, std::string::npos);
    stream.clear();
    stream.seekp(static_cast<std::streamoff>(place));
    stream << after << std::flush;
  }

  /// The time of the file's last change, by the file system's clock.
  static std::pair<long, long> changed() {
    struct stat status = {};
    EXPECT_EQ(::stat(file().c_str(), &status), 0);
    return {status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
  }

  /// Bytes that this process has read, from files that are not mapped.
  static long bytesRead() {
    std::ifstream counters("/proc/self/io");
    std::string name;
    long count = 0;
    counters >> name >> count;
    EXPECT_EQ(name, "rchar:");
    return count;
  }

 private:
  objcxx::Retained<PSListController> page_;
};

TEST_F(PreferenceScanTest, AFileThatAnotherProgramReplacesIsReadAtOnce) {
  for (int number = 100; number < 150; ++number) {
    writePreferences(kMainFile, @{@"a" : @(number), @"b" : @(-number)});
    EXPECT_OBJC_EQ(value(@"a"), @(number));
    EXPECT_OBJC_EQ(value(@"b"), @(-number));
  }
  ASSERT_EQ(::unlink(file().c_str()), 0);
  EXPECT_OBJC_EQ(value(@"a"), nil);
  writePreferences(kMainFile, @{@"a" : @1});
  EXPECT_OBJC_EQ(value(@"a"), @1);
}

TEST_F(PreferenceScanTest, WhatARowStoresIsReadAtOnce) {
  for (int number = 100; number < 150; ++number) {
    set(@(number), @"a");
    set(@(number + 1), @"a");
    EXPECT_OBJC_EQ(value(@"a"), @(number + 1));
  }
}

TEST_F(PreferenceScanTest, AChangeInPlaceOfAFileAtRestIsReadAtOnce) {
  writePreferences(kMainFile, @{@"a" : @"before"});
  std::this_thread::sleep_for(kLater);
  EXPECT_OBJC_EQ(value(@"a"), @"before");
  const auto before = changed();
  std::string from = "before", to = "after1";
  while (changed() == before) {
    changeInPlace(from, to);
    std::swap(from, to);
  }
  const auto now = objcxx::share(value(@"a"));
  EXPECT_EQ(std::string([now.get() UTF8String]), from);
}

/// Many of these changes fall into one tick of the file system's clock, on systems that do not tell finer.
TEST_F(PreferenceScanTest, AChangeInPlaceOfAFileThatHasJustChangedIsReadAtOnce) {
  writePreferences(kMainFile, @{});
  for (int attempt = 0; attempt < 200; ++attempt) {
    std::ofstream(file()) << "<plist><dict><key>a</key><string>before</string></dict></plist>";
    EXPECT_OBJC_EQ(value(@"a"), @"before");
    changeInPlace("before", "after1");
    EXPECT_OBJC_EQ(value(@"a"), @"after1");
  }
}

TEST_F(PreferenceScanTest, RowsThatAreAskedOneAfterTheOtherShareAPass) {
  NSMutableDictionary *values = [NSMutableDictionary dictionary];
  constexpr int kRows = 30;
  for (int each = 0; each < kRows; ++each) [values setObject:@(each) forKey:[NSString stringWithFormat:@"row%d", each]];
  constexpr long kSize = 100'000;
  [values setObject:[@"" stringByPaddingToLength:kSize withString:@"x" startingAtIndex:0] forKey:@"photo"];
  writePreferences(kMainFile, values);
  const auto readAll = [&] {
    const long before = bytesRead();
    for (int each = 0; each < kRows; ++each) {
      EXPECT_OBJC_EQ(value([NSString stringWithFormat:@"row%d", each]), @(each));
    }
    return bytesRead() - before;
  };
  std::this_thread::sleep_for(kLater);
  readAll();
  EXPECT_LT(readAll(), kSize);
}

TEST_F(PreferenceScanTest, TextsOfEverySizeAreRead) {
  for (const unsigned long size : {1ul, 4095ul, 4096ul, 4097ul, 5000ul, 300'000ul}) {
    NSString *text = [@"" stringByPaddingToLength:size withString:@"text " startingAtIndex:0];
    writePreferences(kMainFile, @{@"a" : text, @"b" : @2});
    for (int time = 0; time < 2; ++time) {
      EXPECT_OBJC_EQ(value(@"a"), text) << size;
      EXPECT_OBJC_EQ(value(@"b"), @2) << size;
      EXPECT_OBJC_EQ(value(@"c"), nil) << size;
    }
  }
}

TEST_F(PreferenceScanTest, AnyNumberOfKeysIsRead) {
  NSMutableDictionary *values = [NSMutableDictionary dictionary];
  for (int each = 0; each < 200; ++each) [values setObject:@(each) forKey:[NSString stringWithFormat:@"row%d", each]];
  writePreferences(kMainFile, values);
  for (int time = 0; time < 2; ++time) {
    for (int each = 0; each < 200; ++each) {
      EXPECT_OBJC_EQ(value([NSString stringWithFormat:@"row%d", each]), @(each));
    }
  }
}

TEST_F(PreferenceScanTest, AListAmongTheValuesKeepsNoOtherRowFromItsOwn) {
  writePreferences(kMainFile, @{@"a" : @1, @"list" : @[ @"x" ], @"c" : @3});
  for (int time = 0; time < 2; ++time) {
    EXPECT_OBJC_EQ(value(@"a"), @1);
    EXPECT_OBJC_EQ(value(@"list"), (@[ @"x" ]));
    EXPECT_OBJC_EQ(value(@"c"), @3);
  }
}

}  // namespace
