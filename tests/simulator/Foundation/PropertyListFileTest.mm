// The property-list files of NSDictionary and NSArray.
#include "support/objc/DiskFaults.h"
#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace {

/// Lets no further file be opened while it lives.
class DescriptorLimit final {
 public:
  DescriptorLimit() {
    getrlimit(RLIMIT_NOFILE, &before_);
    const rlimit limit{0, before_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &limit);
  }
  ~DescriptorLimit() { setrlimit(RLIMIT_NOFILE, &before_); }
  DescriptorLimit(const DescriptorLimit &) = delete;
  DescriptorLimit &operator=(const DescriptorLimit &) = delete;

 private:
  rlimit before_{};
};

mode_t modeOf(NSString *file) {
  struct stat status{};
  lstat([file fileSystemRepresentation], &status);
  return status.st_mode;
}

class PropertyListFileTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    makeFolder(@"/f");
    file_ = path(@"/f/a.plist");
  }
  NSString *file_ = nil;
};

TEST_F(PropertyListFileTest, DictionariesAndArraysComeBack) {
  NSDictionary *dictionary = @{@"emoji 😀" : @"Größe 😀", @"n" : @1, @"yes" : @(YES), @"list" : @[ @1.5 ]};
  for (const BOOL atomically : {YES, NO}) {
    ASSERT_TRUE([dictionary writeToFile:file_ atomically:atomically]);
    EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:file_], dictionary);
    EXPECT_OBJC_EQ([[[NSDictionary alloc] initWithContentsOfFile:file_] autorelease], dictionary);
    EXPECT_OBJC_EQ([NSArray arrayWithContentsOfFile:file_], nil);
    ASSERT_TRUE([@[ dictionary ] writeToFile:file_ atomically:atomically]);
    EXPECT_OBJC_EQ([NSArray arrayWithContentsOfFile:file_], @[ dictionary ]);
    EXPECT_OBJC_EQ([[[NSArray alloc] initWithContentsOfFile:file_] autorelease], @[ dictionary ]);
    EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:file_], nil);
  }
  EXPECT_EQ(listing(@"/f"), "a.plist");
  EXPECT_EQ(read(@"/f/a.plist").substr(0, 38), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
}

TEST_F(PropertyListFileTest, MutableClassesReadAndWriteToo) {
  NSMutableDictionary *dictionary = [NSMutableDictionary dictionaryWithObject:@"b" forKey:@"a"];
  ASSERT_TRUE([dictionary writeToFile:file_ atomically:YES]);
  NSMutableDictionary *copy = [NSMutableDictionary dictionaryWithContentsOfFile:file_];
  [copy setObject:@"d" forKey:@"c"];
  EXPECT_OBJC_EQ(copy, (@{@"a" : @"b", @"c" : @"d"}));
  [[[[NSMutableDictionary alloc] initWithContentsOfFile:file_] autorelease] removeAllObjects];

  NSMutableArray *array = [NSMutableArray arrayWithObject:@"a"];
  ASSERT_TRUE([array writeToFile:file_ atomically:YES]);
  NSMutableArray *arrayCopy = [NSMutableArray arrayWithContentsOfFile:file_];
  [arrayCopy addObject:@"b"];
  EXPECT_OBJC_EQ(arrayCopy, (@[ @"a", @"b" ]));
}

TEST_F(PropertyListFileTest, URLsReadAndWriteToo) {
  NSURL *url = [NSURL fileURLWithPath:file_];
  NSError *error = nil;
  ASSERT_TRUE([@{@"a" : @1} writeToURL:url atomically:YES]);
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfURL:url], @{@"a" : @1});
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfURL:url error:&error], @{@"a" : @1});
  EXPECT_OBJC_EQ([[[NSDictionary alloc] initWithContentsOfURL:url] autorelease], @{@"a" : @1});
  ASSERT_TRUE([@[ @1 ] writeToURL:url error:&error]);
  EXPECT_OBJC_EQ([NSArray arrayWithContentsOfURL:url error:&error], @[ @1 ]);
  EXPECT_OBJC_EQ(error, nil);
  NSURL *web = [NSURL URLWithString:@"https://example.com/a.plist"];
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfURL:web error:&error], nil);
  EXPECT_EQ([error code], NSFileReadUnsupportedSchemeError);
  EXPECT_FALSE([@{} writeToURL:web atomically:YES]);
}

TEST_F(PropertyListFileTest, WhatCannotBeReadIsNil) {
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:path(@"/f/missing.plist")], nil);
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:path(@"/f")], nil);
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:@""], nil);
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:nil], nil);
  for (const std::string content :
       {"", "garbage", "<plist><dict><key>a</key>", "bplist00", "\xff\xfe\xfd", "<plist/>"}) {
    write(@"/f/a.plist", content);
    EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:file_], nil) << content;
    EXPECT_OBJC_EQ([NSMutableArray arrayWithContentsOfFile:file_], nil) << content;
  }
  ASSERT_EQ(mkfifo([path(@"/f/pipe") UTF8String], 0600), 0);
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:path(@"/f/pipe")], nil);
}

TEST_F(PropertyListFileTest, ErrorsSayWhyReadingFailed) {
  NSError *error = nil;
  [NSDictionary dictionaryWithContentsOfURL:[NSURL fileURLWithPath:path(@"/f/missing")] error:&error];
  EXPECT_OBJC_EQ([error domain], NSCocoaErrorDomain);
  EXPECT_EQ([error code], NSFileReadNoSuchFileError);
  write(@"/f/a.plist", "<plist><array/></plist>");
  [NSDictionary dictionaryWithContentsOfURL:[NSURL fileURLWithPath:file_] error:&error];
  EXPECT_EQ([error code], 3840);
}

TEST_F(PropertyListFileTest, WhatADeviceRefusesLeavesTheOldFile) {
  write(@"/f/a.plist", "old");
  for (id value in @[ [NSNull null], [[[NSObject alloc] init] autorelease], @{@1 : @2}, @"control \x01" ]) {
    for (const BOOL atomically : {YES, NO}) {
      EXPECT_FALSE([@{@"a" : value} writeToFile:file_ atomically:atomically]);
      EXPECT_FALSE([@[ value ] writeToFile:file_ atomically:atomically]);
    }
    NSError *error = nil;
    EXPECT_FALSE([@{@"a" : value} writeToURL:[NSURL fileURLWithPath:file_] error:&error]);
    EXPECT_EQ([error code], 3852);
  }
  EXPECT_EQ(read(@"/f/a.plist"), "old");
  EXPECT_EQ(listing(@"/f"), "a.plist");
}

TEST_F(PropertyListFileTest, StringsFilesAndBinaryFilesAreRead) {
  write(@"/f/a.plist", "/* c */ \"a\" = \"b\";\n");
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:file_], @{@"a" : @"b"});
  write(@"/f/a.plist", [NSPropertyListSerialization dataWithPropertyList:@{@"a" : @"ü"}
                                                                  format:NSPropertyListBinaryFormat_v1_0
                                                                 options:0
                                                                   error:nullptr]);
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:file_], @{@"a" : @"ü"});
}

TEST_F(PropertyListFileTest, NewFilesAreReadableByAllAndOldModesStay) {
  const mode_t before = umask(077);
  EXPECT_TRUE([@{} writeToFile:file_ atomically:YES]);
  umask(before);
  EXPECT_EQ(modeOf(file_) & 07777, 0644u);
  ASSERT_EQ(chmod([file_ UTF8String], 0600), 0);
  EXPECT_TRUE([@[] writeToFile:file_ atomically:YES]);
  EXPECT_EQ(modeOf(file_) & 07777, 0600u);
}

TEST_F(PropertyListFileTest, AnAtomicWriteReplacesALinkAndItsTargetStays) {
  write(@"/f/target", "old");
  ASSERT_EQ(symlink("target", [file_ UTF8String]), 0);
  EXPECT_TRUE([@{} writeToFile:file_ atomically:YES]);
  EXPECT_TRUE(S_ISREG(modeOf(file_)));
  EXPECT_EQ(read(@"/f/target"), "old");
}

TEST_F(PropertyListFileTest, ALinkThatLeadsNowhereIsReplaced) {
  ASSERT_EQ(symlink("missing", [file_ UTF8String]), 0);
  EXPECT_TRUE([@{} writeToFile:file_ atomically:YES]);
  EXPECT_EQ(listing(@"/f"), "a.plist");
}

TEST_F(PropertyListFileTest, AHardLinkKeepsTheOldContent) {
  write(@"/f/a.plist", "old");
  ASSERT_EQ(link([file_ UTF8String], [path(@"/f/other") UTF8String]), 0);
  EXPECT_TRUE([@{} writeToFile:file_ atomically:YES]);
  EXPECT_EQ(read(@"/f/other"), "old");
}

TEST_F(PropertyListFileTest, AWriteThatFailsHalfWayLeavesTheOldFileAndNothingElse) {
  NSDictionary *old = @{@"old" : @"value"};
  ASSERT_TRUE([old writeToFile:file_ atomically:YES]);
  NSDictionary *large = @{@"a" : [@"" stringByPaddingToLength:100000 withString:@"x" startingAtIndex:0]};
  {
    const FullDisk limit(4096);
    NSError *error = nil;
    EXPECT_FALSE([large writeToFile:file_ atomically:YES]);
    EXPECT_FALSE([large writeToURL:[NSURL fileURLWithPath:file_] error:&error]);
    EXPECT_OBJC_EQ([error domain], NSCocoaErrorDomain);
    EXPECT_EQ([error code], NSFileWriteUnknownError);
    EXPECT_OBJC_EQ([[[error userInfo] objectForKey:NSUnderlyingErrorKey] domain], NSPOSIXErrorDomain);
  }
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:file_], old);
  EXPECT_EQ(listing(@"/f"), "a.plist");
}

TEST_F(PropertyListFileTest, AFolderAtTheTargetIsNotReplaced) {
  makeFolder(@"/f/a.plist");
  EXPECT_FALSE([@{} writeToFile:file_ atomically:YES]);
  write(@"/f/a.plist/inside", "kept");
  EXPECT_FALSE([@{} writeToFile:file_ atomically:YES]);
  EXPECT_FALSE([@{} writeToFile:[file_ stringByAppendingString:@"/"] atomically:YES]);
  EXPECT_EQ(listing(@"/f"), "a.plist");
  EXPECT_EQ(listing(@"/f/a.plist"), "inside");
}

TEST_F(PropertyListFileTest, AMissingFolderAndAFileInItsPlaceFail) {
  NSError *error = nil;
  EXPECT_FALSE([@{} writeToURL:[NSURL fileURLWithPath:path(@"/f/none/a.plist")] error:&error]);
  EXPECT_EQ([error code], NSFileNoSuchFileError);
  write(@"/f/file", "x");
  EXPECT_FALSE([@{} writeToFile:path(@"/f/file/a.plist") atomically:YES]);
  EXPECT_FALSE([@{} writeToFile:@"" atomically:YES]);
  EXPECT_FALSE([@{} writeToFile:nil atomically:YES]);
  EXPECT_EQ(listing(@"/f"), "file");
}

TEST_F(PropertyListFileTest, WithoutAFreeDescriptorNothingChanges) {
  write(@"/f/a.plist", "old");
  {
    const DescriptorLimit limit;
    EXPECT_FALSE([@{} writeToFile:file_ atomically:YES]);
    EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:file_], nil);
  }
  EXPECT_EQ(read(@"/f/a.plist"), "old");
}

TEST_F(PropertyListFileTest, TheLongestFileNameCanBeWritten) {
  NSString *name = [@"" stringByPaddingToLength:255 withString:@"n" startingAtIndex:0];
  NSString *longest = [path(@"/f") stringByAppendingPathComponent:name];
  EXPECT_TRUE([@{} writeToFile:longest atomically:YES]);
  NSError *error = nil;
  NSURL *tooLong = [NSURL fileURLWithPath:[longest stringByAppendingString:@"n"]];
  EXPECT_FALSE([@{} writeToURL:tooLong error:&error]);
  EXPECT_EQ([error code], NSFileWriteInvalidFileNameError);
}

TEST_F(PropertyListFileTest, ABundlesInfoIsReadThroughIt) {
  write(@"/B.bundle/Info.plist",
        "<plist><dict><key>CFBundleIdentifier</key><string>com.example.ü</string></dict></plist>");
  NSBundle *bundle = [NSBundle bundleWithPath:path(@"/B.bundle")];
  EXPECT_OBJC_EQ([[bundle infoDictionary] objectForKey:@"CFBundleIdentifier"], @"com.example.ü");
  EXPECT_OBJC_EQ([[NSBundle bundleWithURL:[NSURL fileURLWithPath:path(@"/B.bundle")]] bundleIdentifier],
                 @"com.example.ü");
}

TEST_F(PropertyListFileTest, ALargeFileComesBackWhole) {
  NSMutableString *text = [NSMutableString stringWithCapacity:4 << 20];
  for (int i = 0; i < 1 << 18; ++i) [text appendString:@"AbCdEfGh01234+/="];
  [text appendString:@"ü😀"];
  NSDictionary *large = @{@"a" : text, @"b" : [NSMutableData dataWithLength:3 << 20]};
  ASSERT_TRUE([large writeToFile:file_ atomically:YES]);
  EXPECT_OBJC_EQ([NSDictionary dictionaryWithContentsOfFile:file_], large);
}

}  // namespace
