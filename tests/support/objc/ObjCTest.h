// Fixtures for tests of Objective-C code.
//
// Leaks: every test runs in an autorelease pool of its own, and the sanitized build reports at the end of the program
// each object that is still alive and that nothing points to, with the line that allocated it:
//     Direct leak of 24 byte(s) ... #4 ... in LeakyTest_Body_Test::TestBody() .../LeakyTest.mm:12
// A single test is checked with `--gtest_filter=Suite.Name`. Objects that die later than expected do not show that way:
// use `Lifetime` for them.
#pragma once

#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace testing_support {

/// An autorelease pool per test.
class ObjCTest : public ::testing::Test {
 protected:
  void SetUp() override { pool_ = [[NSAutoreleasePool alloc] init]; }
  void TearDown() override {
    [pool_ release];
    pool_ = nil;
  }

  /// Ends what the pool holds now; autoreleased objects made before this line are gone after it.
  void drainPool() {
    [pool_ release];
    pool_ = [[NSAutoreleasePool alloc] init];
  }

 private:
  NSAutoreleasePool *pool_ = nil;
};

/// Makes a fresh device folder per test, sets it, and removes it afterwards.
class DeviceTest : public ObjCTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Where `devicePath` ("/var/jb/…") lies on this computer, below this test's folder.
  NSString *path(NSString *devicePath) const;
  /// Writes the file and makes its folders; the test fails if that does not work. Returns where it lies.
  NSString *write(NSString *devicePath, std::string_view content);
  NSString *write(NSString *devicePath, NSData *content);
  /// Makes the folder and those above it.
  NSString *makeFolder(NSString *devicePath);
  /// The file's bytes; "" when it cannot be read.
  std::string read(NSString *devicePath) const;
  bool exists(NSString *devicePath) const;
  /// Names in the folder, sorted, joined by ",".
  std::string listing(NSString *devicePath) const;
};

/// Name of the NSException that `body` raised, or "". Stands in for EXPECT_THROW, which expands to C++ try/catch and
/// cannot work in a .mm file on this runtime.
template <typename Body>
std::string raisedBy(Body body) {
  std::string name;
  @try {
    body();
  } @catch (NSException *exception) {
    name = [[exception name] UTF8String];
  }
  return name;
}

}  // namespace testing_support

/// Counts its own death in an `int` that outlives it.
@interface Lifetime : NSObject {
 @private
  int *_deaths;
}
- (instancetype)initWithCounter:(int *)deaths;
@end

using testing_support::DeviceTest;
using testing_support::ObjCTest;
using testing_support::raisedBy;
