// Bundles of makers, loaded into a process with code of our own kind.
#include <dlfcn.h>

#include <filesystem>

#include "objc/ArcTest.h"
#include "objc/ours/Ours.h"

@interface NSObject (Bundle)
- (NSString *)tale;
- (int)mark;
- (NSArray *)blocks;
- (void)setOwner:(id)owner;
- (id)owner;
@end

namespace {

/// The class BundleChild as the file itself has it.
Class load(const char *file) {
  void *code = dlopen((std::filesystem::path(BUNDLE_FOLDER) / file).c_str(), RTLD_NOW | RTLD_LOCAL);
  EXPECT_NE(code, nullptr) << dlerror();
  return (__bridge Class)dlsym(code, "_OBJC_CLASS_BundleChild");
}

TEST(BundleTest, ASubclassMayComeBeforeItsSuperclass) {
  @autoreleasepool {
    Class child = load("MakersBundle");
    ASSERT_EQ(child, NSClassFromString(@"BundleChild"));
    id object = [child new];
    EXPECT_EQ(text([object tale]), "word 0.5 5 7 7");
    @autoreleasepool {
      id owner = [NSObject new];
      [object setOwner:owner];
      EXPECT_EQ([object owner], owner);
    }
    EXPECT_EQ([object owner], nil);
    EXPECT_EQ([[object blocks] count], 2u);
    EXPECT_TRUE([[[NSProcessInfo processInfo] processName] hasSuffix:@"+"]) << "+load";
  }
}

TEST(BundleTest, AnotherWithTheSameNamesKeepsItsOwnClasses) {
  @autoreleasepool {
    Class first = load("MakersBundle");
    Class second = load("MakersOtherBundle");
    ASSERT_NE(first, second);
    EXPECT_EQ(text([[first new] tale]), "word 0.5 5 7 7");
    EXPECT_EQ(text([[second new] tale]), "word 0.5 9 7 7");
    EXPECT_EQ([[second new] mark], 9);
    EXPECT_EQ(NSClassFromString(@"BundleChild"), first);
  }
}

}  // namespace
