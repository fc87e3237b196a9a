#import <Foundation/SIMDevice.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

namespace {

class DeviceFolderTest : public DeviceTest {};

TEST_F(DeviceFolderTest, PathsLieBelowTheFolder) {
  NSString *folder = SIMDeviceFolder();
  EXPECT_TRUE([folder isAbsolutePath]);
  EXPECT_OBJC_EQ(SIMDevicePath(@"/var/jb/Library"), [folder stringByAppendingString:@"/var/jb/Library"]);
  EXPECT_OBJC_EQ(SIMDevicePath(@"var"), [folder stringByAppendingString:@"/var"]);
  EXPECT_OBJC_EQ(SIMDevicePath(@"/"), folder);
  EXPECT_OBJC_EQ(SIMDevicePath(@""), folder);
  EXPECT_OBJC_EQ(SIMDevicePath(@"/a//b/./c/"), [folder stringByAppendingString:@"/a/b/c"]);
  EXPECT_OBJC_EQ(SIMDevicePath(@"/Größe 😀"), [folder stringByAppendingString:@"/Größe 😀"]);
}

TEST_F(DeviceFolderTest, NoPathEscapes) {
  NSString *folder = SIMDeviceFolder();
  EXPECT_OBJC_EQ(SIMDevicePath(@"/../../etc/passwd"), [folder stringByAppendingString:@"/etc/passwd"]);
  EXPECT_OBJC_EQ(SIMDevicePath(@"/a/../../b"), [folder stringByAppendingString:@"/b"]);
  EXPECT_OBJC_EQ(SIMDevicePath(@".."), folder);
  EXPECT_OBJC_EQ(SIMDevicePath(@"/a/..b/...c"), [folder stringByAppendingString:@"/a/..b/...c"]);
}

TEST_F(DeviceFolderTest, WithoutAFolderOrAPathItRaises) {
  EXPECT_EQ(raisedBy([] { SIMDevicePath(nil); }), "NSInvalidArgumentException");
  NSString *folder = [[SIMDeviceFolder() copy] autorelease];
  SIMSetDeviceFolder(nil);
  EXPECT_OBJC_EQ(SIMDeviceFolder(), nil);
  EXPECT_EQ(raisedBy([] { SIMDevicePath(@"/var"); }), "NSInternalInconsistencyException");
  SIMSetDeviceFolder(folder);
}

TEST_F(DeviceFolderTest, ARelativeFolderBecomesAbsoluteAndLinksAreResolved) {
  NSString *folder = [[SIMDeviceFolder() copy] autorelease];
  makeFolder(@"/real");
  NSFileManager *files = [NSFileManager defaultManager];
  NSString *before = [files currentDirectoryPath];
  ASSERT_TRUE([files createSymbolicLinkAtPath:path(@"/link") pathContent:path(@"/real")]);
  ASSERT_TRUE([files changeCurrentDirectoryPath:folder]);
  SIMSetDeviceFolder(@"./link/");
  EXPECT_OBJC_EQ(SIMDeviceFolder(), [folder stringByAppendingString:@"/real"]);
  SIMSetDeviceFolder(@"not/there/yet");
  EXPECT_OBJC_EQ(SIMDeviceFolder(), [folder stringByAppendingString:@"/not/there/yet"]);
  ASSERT_TRUE([files changeCurrentDirectoryPath:before]);
  SIMSetDeviceFolder(folder);
}

}  // namespace
