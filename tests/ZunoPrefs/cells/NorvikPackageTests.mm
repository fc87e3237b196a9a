#import "cells/NorvikPackage.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

#include "ZunoPrefs/support/BundleTest.h"

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
  std::string version(BOOL isRoot = NO) {
    NorvikPackage *package = [(Class)classNamed("NorvikPackage") packageWithIdentifier:@"test.package"
                                                                         isRootPackage:isRoot];
    EXPECT_TRUE(package != nil);
    return [[package version] UTF8String];
  }
};

TEST_F(PackageTest, TheRootPackageHasItsFixedVersionWithoutATool) { EXPECT_EQ(version(YES), "0.1.0-Beta3-rootless"); }

TEST_F(PackageTest, WithoutAToolTheVersionSaysSo) { EXPECT_EQ(version(), "Unknown (dpkg-query not found)"); }

TEST_F(PackageTest, ReadsTheVersionField) {
  installTool(kSystemTool, "Package: test.package\\nVersion: 1.2.3\\nDescription: a\\n b: c\\n");
  EXPECT_EQ(version(), "1.2.3");
}

TEST_F(PackageTest, AsksForTheStatusOfThePackageFromTheRootFolder) {
  installTool(kSystemTool, "Version: 1\\n");
  (void)version();
  EXPECT_EQ(read([kSystemTool stringByAppendingString:@".call"]), "/|2|-s|test.package\n");
}

TEST_F(PackageTest, AnEpochIsKept) {
  installTool(kSystemTool, "Version: 1:2.0-1\\n");
  EXPECT_EQ(version(), "1:2.0-1");
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
  installTool(kSystemTool, "Version: \\377\\376\\n");
  EXPECT_EQ(version(), "Unknown");
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
