#import <Foundation/Foundation.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

namespace {

class NSBundleTest : public DeviceTest {
 protected:
  NSBundle *bundle(NSString *name, NSString *identifier, NSString *displayName) {
    NSString *folder = makeFolder([@"/Bundles/" stringByAppendingString:name]);
    NSDictionary *info = @{@"CFBundleIdentifier" : identifier, @"CFBundleDisplayName" : displayName};
    EXPECT_TRUE([info writeToFile:[folder stringByAppendingPathComponent:@"Info.plist"] atomically:YES]);
    return [NSBundle bundleWithPath:folder];
  }
};

TEST_F(NSBundleTest, TwoFoldersWithOneIdentifierAreTwoBundles) {
  NSBundle *first = bundle(@"first.bundle", @"test.same", @"First");
  NSBundle *second = bundle(@"second.bundle", @"test.same", @"Second");
  EXPECT_NE(first, second);
  EXPECT_OBJC_EQ([first bundleIdentifier], @"test.same");
  EXPECT_OBJC_EQ([second bundleIdentifier], @"test.same");
  EXPECT_OBJC_EQ([[second infoDictionary] objectForKey:@"CFBundleDisplayName"], @"Second");
}

TEST_F(NSBundleTest, OneFolderIsOneBundle) {
  NSBundle *first = bundle(@"one.bundle", @"test.one", @"One");
  EXPECT_EQ([NSBundle bundleWithPath:[first bundlePath]], first);
  EXPECT_EQ([NSBundle bundleWithIdentifier:@"test.one"], first);
  EXPECT_OBJC_EQ([NSBundle bundleWithIdentifier:@"test.none"], nil);
}

}  // namespace
