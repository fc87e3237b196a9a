#import "cells/NorvikPackage.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

#include "ZunoPrefs/support/BundleTest.h"
#include "support/objc/MethodSpy.h"

namespace {

NSString *const kRootlessTool = @"/var/jb/usr/bin/dpkg-query";
NSString *const kSystemTool = @"/usr/bin/dpkg-query";

class PackageTest : public BundleTest {
 protected:
  /// A stand-in for the package tool that prints `output` (as printf reads it).
  void installTool(NSString *place, const std::string &output) {
    NSString *tool = write(place, "#!/bin/sh\necho \"$PWD|$#|$1|$2\" > \"$0.call\"\nprintf '" + output + "'\n");
    ASSERT_EQ(chmod([tool fileSystemRepresentation], 0755), 0);
  }
  std::string version(NSString *identifier = @"test.package", BOOL isRoot = NO) {
    NorvikPackage *package = [(Class)classNamed("NorvikPackage") packageWithIdentifier:identifier isRootPackage:isRoot];
    EXPECT_TRUE(package != nil);
    return [[package version] UTF8String] ?: "nil";
  }
  /// The version in this output of the tool.
  std::string versionIn(const std::string &output) {
    installTool(kSystemTool, output);
    return version();
  }
};

TEST_F(PackageTest, TheRootPackageHasItsFixedVersionWithOrWithoutATool) {
  for (NSString *identifier in @[ @"com.norvik.Zuno", @"com.norvik.zuno", @"test.package", @"" ]) {
    EXPECT_EQ(version(identifier, YES), "0.1.0-Beta3-rootless");
  }
  installTool(kSystemTool, "Version: 1\\n");
  installTool(kRootlessTool, "Version: 2\\n");
  for (NSString *identifier in @[ @"com.norvik.Zuno", @"com.norvik.zuno", @"test.package", @"" ]) {
    EXPECT_EQ(version(identifier, YES), "0.1.0-Beta3-rootless");
  }
  EXPECT_EQ(version(nil, YES), "0.1.0-Beta3-rootless");
  for (NSString *tool in @[ kSystemTool, kRootlessTool ]) {
    EXPECT_FALSE(exists([tool stringByAppendingString:@".call"])) << "no tool is run";
  }
  (void)version();
  EXPECT_TRUE(exists([kRootlessTool stringByAppendingString:@".call"])) << "of other packages it is";
}

TEST_F(PackageTest, WithoutAToolTheVersionSaysSoAndTheLogDoesNot) {
  EXPECT_EQ(version(), "Unknown (dpkg-query not found)");
  EXPECT_TRUE(log.empty()) << log.front();
}

TEST_F(PackageTest, ReadsTheVersionField) {
  installTool(kSystemTool, "Package: test.package\\nVersion: 1.2.3\\nDescription: a\\n b: c\\n");
  EXPECT_EQ(version(), "1.2.3");
}

TEST_F(PackageTest, AsksForTheStatusOfThePackageFromTheRootFolder) {
  installTool(kSystemTool, "Version: 1\\n");
  (void)version();
  EXPECT_EQ(read([kSystemTool stringByAppendingString:@".call"]), "/|2|-s|test.package\n");
}

TEST_F(PackageTest, OnlyTheFirstSeparatorOfALineSplitsIt) {
  EXPECT_EQ(versionIn("Version: 1:2.0-1\\n"), "1:2.0-1") << "an epoch is kept";
  EXPECT_EQ(versionIn("Version: a: b: c\\n"), "a: b: c");
  EXPECT_EQ(versionIn("Depends: x: Version: 9\\n"), "Unknown");
}

TEST_F(PackageTest, OfSeveralVersionsTheLastCounts) {
  EXPECT_EQ(versionIn("Version: 1\\nPackage: a\\nVersion: 2\\n"), "2");
  EXPECT_EQ(versionIn("Version: 1\\nVersion: 2"), "2");
}

TEST_F(PackageTest, ContinuationLinesAreNoVersions) {
  EXPECT_EQ(versionIn("Version: 1\\nDescription: x\\n a line\\n Version: 2\\n"), "1");
  EXPECT_EQ(versionIn("Description: x\\n Version: 2\\n .\\n\\tVersion: 3\\n"), "Unknown");
}

TEST_F(PackageTest, FieldsOfSimilarNamesAreNoVersions) {
  EXPECT_EQ(versionIn("version: 1\\nVersions: 2\\nConfig-Version: 3\\nVersion : 4\\n: 5\\n"), "Unknown");
}

TEST_F(PackageTest, AVersionMayBeEmptyAndKeepsItsBlanks) {
  EXPECT_EQ(versionIn("Version: \\n"), "");
  EXPECT_EQ(versionIn("Version:  1 \\n"), " 1 ");
}

TEST_F(PackageTest, TheRootlessToolComesFirst) {
  installTool(kSystemTool, "Version: system\\n");
  installTool(kRootlessTool, "Version: rootless\\n");
  EXPECT_EQ(version(), "rootless");
}

TEST_F(PackageTest, OutputWithoutAVersionIsUnknown) {
  for (const char *output : {"", "Package: x\\n", "Version:\\n", "Version:1.0\\n", "no field at all"}) {
    installTool(kSystemTool, output);
    EXPECT_EQ(version(), "Unknown") << output;
  }
}

TEST_F(PackageTest, OutputThatIsNoTextIsUnknown) {
  EXPECT_EQ(versionIn("Version: \\377\\376\\n"), "Unknown");
  EXPECT_EQ(versionIn("Maintainer: \\377\\nVersion: 1\\n"), "Unknown") << "wherever the bad bytes are";
  EXPECT_EQ(versionIn("Version: 1\\nMaintainer: M\\303\\n"), "Unknown");
  EXPECT_EQ(versionIn("Maintainer: M\\303\\274\\nVersion: 1\\n"), "1");
}

TEST_F(PackageTest, AVersionIsReadAsUTF8) { EXPECT_EQ(versionIn("Version: 1.0-\\303\\274\\n"), "1.0-ü"); }

TEST_F(PackageTest, AnExceptionOnTheWayFromTheOutputToTheVersionIsLogged) {
  installTool(kSystemTool, "Version: 1\\n");
  NSException *exception = [NSException exceptionWithName:@"Odd" reason:@"an odd version" userInfo:nil];
  MethodSpy<NSString *> spy(classNamed("NorvikPackage"), @selector(setVersion:), [&](id, NSString *given) {
    if ([given isEqual:@"1"]) [exception raise];
  });
  EXPECT_EQ(version(), "Unknown");
  EXPECT_EQ(log, std::vector<std::string>{[[exception description] UTF8String]});
}

TEST_F(PackageTest, TheToolsExitStatusDoesNotCount) {
  NSString *tool = write(kSystemTool, "#!/bin/sh\necho 'Version: 3'\nexit 1\n");
  ASSERT_EQ(chmod([tool fileSystemRepresentation], 0755), 0);
  EXPECT_EQ(version(), "3");
}

TEST_F(PackageTest, AToolThatCannotBeRunRaisesToTheCaller) {
  write(kSystemTool, "not executable");
  EXPECT_NE(raisedBy([&] { (void)version(); }), "");
}

/// The package tool of this very machine.
TEST_F(PackageTest, AsksTheRealTool) {
  makeFolder(@"/usr/bin");
  std::filesystem::create_symlink("/usr/bin/dpkg-query", [path(kSystemTool) UTF8String]);
  NorvikPackage *package = [(Class)classNamed("NorvikPackage") packageWithIdentifier:@"dpkg" isRootPackage:NO];
  FILE *pipe = popen("dpkg-query -W -f='${Version}' dpkg", "r");
  ASSERT_NE(pipe, nullptr);
  char expected[256] = {};
  const size_t count = fread(expected, 1, sizeof expected - 1, pipe);
  pclose(pipe);
  ASSERT_GT(count, 0u);
  EXPECT_STREQ([[package version] UTF8String], expected);
  EXPECT_EQ(version(), "Unknown") << "a package that is not installed";
}

}  // namespace
