// Writes that fail: the log names the file and the reason, once, and what stood there stands.
#import <Foundation/SIMLog.h>

#include <gmock/gmock.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "support/objc/DiskFaults.h"
#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

NSString *const kFolder = @"/var/mobile/Library/Preferences";
constexpr rlim_t kLeft = 1024;

void collect(NSString *line, void *context) {
  static_cast<std::vector<std::string> *>(context)->push_back([line UTF8String]);
}

class FailedWriteTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    file_ = write([kFolder stringByAppendingString:@"/a.plist"], "old");
    SIMSetLogHandler(collect, &log_);
  }
  void TearDown() override {
    SIMSetLogHandler(nullptr, nullptr);
    EXPECT_EQ(listing(kFolder), "a.plist");
    EXPECT_EQ(read([kFolder stringByAppendingString:@"/a.plist"]), "old");
    DeviceTest::TearDown();
  }
  static std::string notWritten(NSString *path, const std::string &reason) {
    return std::string("[Foundation] ") + [path UTF8String] + " was not written: " + reason;
  }
  /// Everything that can be written to a file, larger than what a full disk has left.
  static NSArray *contents() {
    NSString *text = [@"" stringByPaddingToLength:4 * kLeft withString:@"x" startingAtIndex:0];
    return @[ text, [text dataUsingEncoding:NSUTF8StringEncoding], @[ text ], @{@"key" : text} ];
  }
  /// Expects each of them to fail to be written to `path`, for this reason.
  void expectFailures(NSString *path, const std::string &reason) {
    for (id content in contents()) {
      EXPECT_FALSE([content writeToFile:path atomically:YES]);
      EXPECT_THAT(log_, ElementsAre(notWritten(path, reason))) << [NSStringFromClass([content class]) UTF8String];
      log_.clear();
    }
  }

  NSString *file_ = nil;
  std::vector<std::string> log_;
};

TEST_F(FailedWriteTest, OnAFullDisk) {
  const FullDisk full(kLeft);
  expectFailures(file_, "File too large");
}

TEST_F(FailedWriteTest, OnADeviceWithoutRoom) {
  for (id content in contents()) EXPECT_FALSE([content writeToFile:@"/dev/full" atomically:NO]);
  EXPECT_THAT(log_, ::testing::Each(notWritten(@"/dev/full", "No space left on device")));
  EXPECT_EQ(log_.size(), 4u);
}

TEST_F(FailedWriteTest, IntoAMissingFolder) {
  expectFailures(path(@"/var/mobile/Library/Nowhere/a.plist"), "No such file or directory");
}

TEST_F(FailedWriteTest, IntoAFileInPlaceOfTheFolder) {
  expectFailures([file_ stringByAppendingString:@"/a.plist"], "Not a directory");
}

TEST_F(FailedWriteTest, IntoAReadOnlyFolder) {
  const ReadOnlyFolder folder(path(kFolder));
  expectFailures(file_, "Permission denied");
}

TEST_F(FailedWriteTest, OntoAFolder) { expectFailures(path(kFolder), "Is a directory"); }

TEST_F(FailedWriteTest, WhatNoPropertyListCanHold) {
  const unichar control = 1;
  NSString *text = [NSString stringWithCharacters:&control length:1];
  EXPECT_FALSE([@{@"key" : text} writeToFile:file_ atomically:YES]);
  EXPECT_FALSE([@[ [NSNull null] ] writeToFile:file_ atomically:NO]);
  EXPECT_THAT(log_, ElementsAre(notWritten(file_, "A text holds a character that XML cannot hold"),
                                notWritten(file_, "Objects of the class NSNull have no place here")));
}

TEST_F(FailedWriteTest, ATextThatTheEncodingCannotHold) {
  NSError *error = nil;
  EXPECT_FALSE([@"€" writeToFile:file_ atomically:YES encoding:NSASCIIStringEncoding error:&error]);
  EXPECT_EQ([error code], NSFileWriteInapplicableStringEncodingError);
  EXPECT_THAT(log_, ElementsAre(notWritten(file_, "The text has characters that the encoding lacks")));
}

TEST_F(FailedWriteTest, WhoAsksForTheErrorGetsItToo) {
  NSError *error = nil;
  NSURL *url = [NSURL fileURLWithPath:path(@"/nowhere/a.plist")];
  EXPECT_FALSE([@{} writeToURL:url error:&error]);
  EXPECT_EQ([error code], NSFileNoSuchFileError);
  EXPECT_THAT(log_, ElementsAre(notWritten([url path], "No such file or directory")));
}

TEST_F(FailedWriteTest, ACopyThatFailsLeavesNothing) {
  NSFileManager *files = [NSFileManager defaultManager];
  const auto line = [](NSString *from, const char *what, NSString *to, const char *reason) {
    return std::string("[Foundation] ") + [from UTF8String] + what + [to UTF8String] + ": " + reason;
  };
  NSString *large = write(@"/large", std::string(4 * kLeft, 'x'));
  NSString *copy = [path(kFolder) stringByAppendingString:@"/copy"];
  NSString *missing = path(@"/missing");
  NSString *nowhere = path(@"/nowhere/a");
  {
    const FullDisk full(kLeft);
    EXPECT_FALSE([files copyItemAtPath:large toPath:copy error:nullptr]);
  }
  EXPECT_FALSE([files copyItemAtPath:missing toPath:copy error:nullptr]);
  EXPECT_FALSE([files copyItemAtPath:large toPath:file_ error:nullptr]);
  EXPECT_FALSE([files moveItemAtPath:large toPath:file_ error:nullptr]);
  EXPECT_FALSE([files moveItemAtPath:large toPath:nowhere error:nullptr]);
  {
    const ReadOnlyFolder folder(path(kFolder));
    EXPECT_FALSE([files moveItemAtPath:file_ toPath:copy error:nullptr]);
  }
  EXPECT_THAT(log_, ElementsAre(line(large, " was not copied to ", copy, "File too large"),
                                line(missing, " was not copied to ", copy, "No such file or directory"),
                                line(large, " was not copied to ", file_, "File exists"),
                                line(large, " was not moved to ", file_, "File exists"),
                                line(large, " was not moved to ", nowhere, "No such file or directory"),
                                line(file_, " was not moved to ", copy, "Permission denied")));
  EXPECT_EQ(read(@"/large").size(), 4 * kLeft);
}

TEST_F(FailedWriteTest, AFolderOrFileThatCannotBeMade) {
  NSFileManager *files = [NSFileManager defaultManager];
  NSError *error = nil;
  const auto make = [&](NSString *path, BOOL withParents) {
    return [files createDirectoryAtPath:path withIntermediateDirectories:withParents attributes:nil error:&error];
  };
  NSString *below = [file_ stringByAppendingString:@"/below"];
  EXPECT_FALSE(make(file_, YES)) << "a file is no folder";
  EXPECT_EQ([error code], NSFileWriteFileExistsError);
  EXPECT_FALSE(make(below, YES));
  EXPECT_FALSE(make(path(@"/no/parents"), NO));
  EXPECT_FALSE(make(path(kFolder), NO)) << "it is there already";
  EXPECT_FALSE([files createFileAtPath:below contents:nil attributes:nil]);
  const auto line = [](NSString *path, const char *reason) {
    return std::string("[Foundation] The folder ") + [path UTF8String] + " was not made: " + reason;
  };
  EXPECT_THAT(log_, ElementsAre(line(file_, "File exists"), line(below, "Not a directory"),
                                line(path(@"/no/parents"), "No such file or directory"),
                                line(path(kFolder), "File exists"), notWritten(below, "Not a directory")));
}

TEST_F(FailedWriteTest, ARemovalThatFailsSaysSoUnlessThereIsNothingToRemove) {
  NSFileManager *files = [NSFileManager defaultManager];
  NSError *error = nil;
  EXPECT_FALSE([files removeItemAtPath:path(@"/missing") error:&error]);
  EXPECT_EQ([error code], NSFileNoSuchFileError);
  EXPECT_THAT(log_, IsEmpty());
  error = nil;
  ASSERT_EQ(unlink("/proc/version"), -1) << "nobody may remove it, for a reason that depends on who asks";
  const std::string reason = std::strerror(errno);
  EXPECT_FALSE([files removeItemAtPath:@"/proc/version" error:&error]);
  EXPECT_OBJC_NE(error, nil);
  EXPECT_THAT(log_, ElementsAre("[Foundation] /proc/version was not removed: " + reason));
}

TEST_F(FailedWriteTest, WhatSucceedsSaysNothing) {
  NSFileManager *files = [NSFileManager defaultManager];
  NSString *tree = path(@"/tree");
  EXPECT_TRUE([files createDirectoryAtPath:[tree stringByAppendingString:@"/deep"]
               withIntermediateDirectories:YES
                                attributes:nil
                                     error:nullptr]);
  EXPECT_TRUE([files createDirectoryAtPath:tree withIntermediateDirectories:YES attributes:nil error:nullptr]);
  EXPECT_TRUE([files createFileAtPath:[tree stringByAppendingString:@"/deep/file"]
                             contents:[@"content" dataUsingEncoding:NSUTF8StringEncoding]
                           attributes:@{
                             NSFilePosixPermissions : @0600
                           }]);
  EXPECT_TRUE([files createSymbolicLinkAtPath:[tree stringByAppendingString:@"/link"] pathContent:@"deep/file"]);
  NSString *file = [tree stringByAppendingString:@"/deep/file"];
  NSDate *date = [NSDate dateWithTimeIntervalSinceReferenceDate:1000];
  ASSERT_TRUE([files changeFileAttributes:@{NSFileModificationDate : date} atPath:file]);
  EXPECT_TRUE([files copyItemAtPath:tree toPath:path(@"/copy") error:nullptr]);
  NSDictionary *attributes = [files attributesOfItemAtPath:path(@"/copy/deep/file") error:nullptr];
  EXPECT_OBJC_EQ([attributes fileModificationDate], date);
  EXPECT_EQ([attributes filePosixPermissions], 0600u);
  EXPECT_EQ(read(@"/copy/deep/file"), "content");
  EXPECT_OBJC_EQ([files pathContentOfSymbolicLinkAtPath:path(@"/copy/link")], @"deep/file");
  EXPECT_TRUE([files moveItemAtPath:path(@"/copy") toPath:path(@"/moved") error:nullptr]);
  EXPECT_EQ(read(@"/moved/deep/file"), "content");
  EXPECT_FALSE(exists(@"/copy"));
  EXPECT_TRUE([files removeItemAtPath:path(@"/moved") error:nullptr]);
  EXPECT_FALSE(exists(@"/moved"));
  for (id content in contents()) EXPECT_TRUE([content writeToFile:path(@"/written") atomically:YES]);
  EXPECT_THAT(log_, IsEmpty());
}

}  // namespace
