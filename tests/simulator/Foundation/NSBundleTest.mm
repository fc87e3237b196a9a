#import <Foundation/Foundation.h>
#import <Foundation/NSBundle+Sim.h>
#import <Foundation/SIMLog.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

@interface NSObject (AsksForClass)
+ (Class)classNamed:(NSString *)name;
@end

namespace {

using ::testing::ElementsAre;

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

/// Bundles with code, and what the log says of them.
class BundleCodeTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    SIMSetLogHandler(
        [](NSString *line, void *log) { static_cast<std::vector<std::string> *>(log)->push_back([line UTF8String]); },
        &log_);
  }
  void TearDown() override {
    SIMSetLogHandler(nullptr, nullptr);
    DeviceTest::TearDown();
  }

  /// A bundle `name` whose code is a copy of the fixture of that name, if there is one.
  NSBundle *bundle(NSString *name, NSString *executable) {
    NSString *folder = makeFolder([NSString stringWithFormat:@"/Bundles/%@.bundle", name]);
    NSMutableDictionary *info = [NSMutableDictionary dictionaryWithObject:name forKey:@"CFBundleIdentifier"];
    if (executable) [info setObject:executable forKey:@"CFBundleExecutable"];
    EXPECT_TRUE([info writeToFile:[folder stringByAppendingPathComponent:@"Info.plist"] atomically:YES]);
    std::error_code error;
    std::filesystem::copy_file(std::filesystem::path(BUILD_FOLDER "/fixtures/classes") / [name UTF8String],
                               std::filesystem::path([folder UTF8String]) / [name UTF8String], error);
    return [NSBundle bundleWithPath:folder];
  }
  void expectFailure(NSBundle *bundle, const std::string &reason) {
    log_.clear();
    EXPECT_FALSE([bundle load]);
    EXPECT_FALSE([bundle isLoaded]);
    EXPECT_THAT(
        log_, ElementsAre(::testing::StartsWith("[Foundation] The code of " +
                                                std::string([[bundle bundlePath] UTF8String]) + " was not loaded: ")));
    EXPECT_THAT(log_, ElementsAre(::testing::EndsWith(reason)));
  }

  std::vector<std::string> log_;
};

TEST_F(BundleCodeTest, AClassOfTheFrameworksIsTheProgramsAndTheLogIsNotTold) {
  EXPECT_EQ([NSBundle bundleForClass:NSClassFromString(@"SIMQueue")], [NSBundle mainBundle]);
  EXPECT_NE([NSBundle bundleForClass:[NSString class]], [NSBundle mainBundle]);
  EXPECT_THAT(log_, ::testing::IsEmpty());
}

TEST_F(BundleCodeTest, TheLogSaysWhyCodeWasNotLoaded) {
  expectFailure(bundle(@"Empty", nil), ": its Info list names no CFBundleExecutable");
  expectFailure(bundle(@"Missing", @"Missing"),
                "/Missing.bundle/Missing: cannot open shared object file: No such file or directory");
  write(@"/Bundles/Text.bundle/Text", "no code at all");
  expectFailure(bundle(@"Text", @"Text"), "/Text.bundle/Text: file too short");
  expectFailure(bundle(@"NeedsMissingClass", @"NeedsMissingClass"), ": there is no class ClassThatNobodyHas");
}

TEST_F(BundleCodeTest, CodeThatIsRefusedIsNotLoaded) {
  NSBundle *refused = bundle(@"AsksForClass", @"AsksForClass");
  [NSBundle sim_refuseBundleAtPath:[refused bundlePath] because:@"It has crashed."];
  expectFailure(refused, " was not loaded: It has crashed.");
}

TEST_F(BundleCodeTest, TheLogNamesAClassThatIsNotFoundByItsNameOnce) {
  NSBundle *asking = bundle(@"AsksForClass", @"AsksForClass");
  ASSERT_TRUE([asking load]);
  Class asks = NSClassFromString(@"AsksForClass");
  EXPECT_EQ([asks classNamed:@"AsksForClass"], asks);
  EXPECT_EQ([asks classNamed:nil], Nil);
  for (int times = 0; times < 2; ++times) EXPECT_EQ([asks classNamed:@"AskForClass"], Nil);
  EXPECT_EQ(NSClassFromString(@"NoClassOfOurs"), Nil) << "asked from outside the device";
  EXPECT_THAT(log_, ElementsAre("[Foundation] There is no class \"AskForClass\", for which "
                                "/Bundles/AsksForClass.bundle/AsksForClass asks"));
}

}  // namespace
