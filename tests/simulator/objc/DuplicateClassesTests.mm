// Classes of one name in several files. What a test loads stays in the process: the file that is met first is the same
// for all of them.
#import <Foundation/Foundation.h>
#import <Foundation/SIMLog.h>
#import <PrivateFoundation/NSTask.h>

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <objc/runtime.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

/// What the classes of the fixture answer.
@interface NSObject (Duplicates)
+ (int)mark;
+ (int)loads;
+ (int)categoryMark;
+ (Class)named;
+ (Class)namedInLoad;
- (int)sum;
@end

namespace {

using ::testing::IsEmpty;

void collect(NSString *line, void *context) {
  static_cast<std::vector<std::string> *>(context)->push_back([line UTF8String]);
}

class DuplicateClassesTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    if (!NSClassFromString(@"DuplicateClass")) load(@"DuplicatesFirst", @"First");
    first_ = NSClassFromString(@"DuplicateClass");
    ASSERT_NE(first_, Nil);
    log_.clear();
  }

  /// A bundle `name` with a copy of the built `code`, loaded.
  NSBundle *load(NSString *code, NSString *name) {
    NSString *folder = makeFolder([NSString stringWithFormat:@"/Bundles/%@.bundle", name]);
    NSDictionary *info =
        @{@"CFBundleExecutable" : @"Code", @"CFBundleIdentifier" : [@"test." stringByAppendingString:name]};
    EXPECT_TRUE([info writeToFile:[folder stringByAppendingPathComponent:@"Info.plist"] atomically:YES]);
    std::error_code error;
    std::filesystem::copy_file(std::filesystem::path(BUILD_FOLDER "/fixtures/classes") / [code UTF8String],
                               std::filesystem::path([folder UTF8String]) / "Code", error);
    EXPECT_FALSE(error) << error.message();
    NSBundle *bundle = [NSBundle bundleWithPath:folder];
    SIMSetLogHandler(collect, &log_);
    EXPECT_TRUE([bundle load]);
    SIMSetLogHandler(nullptr, nullptr);
    return bundle;
  }

  /// The class that the file itself has, whatever its name leads to.
  static Class ownClass(NSBundle *bundle) {
    void *code = dlopen([[bundle executablePath] fileSystemRepresentation], RTLD_NOLOAD | RTLD_LAZY);
    dlclose(code);
    return (Class)dlsym(code, "_OBJC_CLASS_DuplicateClass");
  }

  static std::string lineFor(const char *name, const std::string &first, NSBundle *second) {
    return std::string("objc: Class ") + name + " is implemented in both " + first + " and " +
           [[second executablePath] UTF8String] + ". The one in " + first + " is used.";
  }

  /// Where the first file lay when it was loaded.
  std::string firstFile() const {
    static const std::string file = [[[NSBundle bundleForClass:first_] executablePath] UTF8String];
    return file;
  }

  Class first_ = Nil;
  std::vector<std::string> log_;
};

TEST_F(DuplicateClassesTest, ACopyLoadsAndTheLogSaysWhichOneIsUsed) {
  NSBundle *copy = load(@"DuplicatesSecond", @"Copied");
  NSBundle *again = load(@"DuplicatesSecond", @"CopiedAgain");
  EXPECT_TRUE([copy isLoaded]);
  EXPECT_TRUE([again isLoaded]);
  const std::string copied = [[copy executablePath] UTF8String];
  EXPECT_THAT(log_, ::testing::IsSupersetOf(
                        {lineFor("DuplicateBase", firstFile(), copy), lineFor("DuplicateClass", firstFile(), copy),
                         lineFor("DuplicateBase", firstFile(), again), lineFor("DuplicateClass", firstFile(), again),
                         lineFor("DuplicateChild", copied, again)}));
  EXPECT_EQ(NSClassFromString(@"DuplicateClass"), first_);
  EXPECT_EQ([[[[first_ alloc] init] autorelease] sum], 1101);
}

TEST_F(DuplicateClassesTest, EachFileGoesOnUsingItsOwn) {
  NSBundle *bundle = load(@"DuplicatesSecond", @"Second");
  // The first of these classes that was loaded; its file's own classes are reached through it.
  Class child = NSClassFromString(@"DuplicateChild");
  EXPECT_EQ([[[[child alloc] init] autorelease] sum], 1150) << "laid out over the base class that it was compiled with";
  Class base = [child superclass];
  EXPECT_NE(base, NSClassFromString(@"DuplicateBase"));
  EXPECT_OBJC_EQ(NSStringFromClass(base), @"DuplicateBase");

  Class second = ownClass(bundle);
  for (Class each : {first_, second}) {
    EXPECT_EQ([each named], each);
    EXPECT_EQ([each namedInLoad], each);
    EXPECT_OBJC_EQ(NSStringFromClass(each), @"DuplicateClass");
    EXPECT_EQ([each loads], 1);
    EXPECT_EQ([each categoryMark], [each mark]);
    id object = [[[each alloc] init] autorelease];
    EXPECT_EQ([object sum], 1100 + [each mark]);
    EXPECT_TRUE([[object description] hasPrefix:@"duplicate <DuplicateClass"]) << [[object description] UTF8String];
  }
  EXPECT_EQ([first_ mark], 1);
  EXPECT_EQ([second mark], 50);
}

TEST_F(DuplicateClassesTest, AClassOfALibraryKeepsItsName) {
  Class task = NSClassFromString(@"NSTask");
  NSBundle *bundle = load(@"DuplicatesSecond", @"Foreign");
  EXPECT_EQ(NSClassFromString(@"NSTask"), task);
  EXPECT_EQ([NSTask class], task);
  EXPECT_TRUE([task respondsToSelector:@selector(launchedTaskWithLaunchPath:arguments:)]);
  EXPECT_THAT(log_,
              ::testing::Contains(::testing::AllOf(::testing::HasSubstr("objc: Class NSTask is implemented in both"),
                                                   ::testing::HasSubstr("libgnustep-base"),
                                                   ::testing::HasSubstr([[bundle executablePath] UTF8String]))));
}

TEST_F(DuplicateClassesTest, AFileWhoseReferencesLeadToTheFirstHasItsClassesLeftOut) {
  NSBundle *bundle = load(@"DuplicatesUnbound", @"Unbound");
  EXPECT_TRUE([bundle isLoaded]);
  EXPECT_THAT(log_, ::testing::IsSupersetOf({lineFor("DuplicateBase", firstFile(), bundle),
                                             lineFor("DuplicateClass", firstFile(), bundle)}));
  EXPECT_EQ([first_ categoryMark], 1) << "the other file's category extends its own class, which nobody sees";
  EXPECT_EQ([[[[first_ alloc] init] autorelease] sum], 1101);
  EXPECT_EQ([NSClassFromString(@"DuplicateOrphan") superclass], NSClassFromString(@"DuplicateBase"));
}

TEST_F(DuplicateClassesTest, NothingIsSaidOfASecondLookAtTheSameFile) {
  EXPECT_TRUE([[NSBundle bundleForClass:first_] load]);
  EXPECT_THAT(log_, IsEmpty());
}

}  // namespace
