// How a row's value is read: the value that the whole file holds, mostly without building the whole.
#import <Preferences/PSSpecifier.h>

#import "core/ZunoprefsRootListController.h"

#include <string>

#include "ZunoPrefs/support/BundleTest.h"
#include "ZunoPrefs/support/Replaced.h"

namespace {

NSString *const kHead =
    @"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
     "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
     "<plist version=\"1.0\"><dict>";
NSString *const kTail = @"</dict></plist>";

using ReadWhole = id(id, SEL, NSString *);

/// How often files were read whole since the test started.
int wholeReads = 0;
const Replaced<ReadWhole> *replacedRead = nullptr;

id countWholeRead(id self, SEL selector, NSString *path) {
  ++wholeReads;
  return replacedRead->original()(self, selector, path);
}

class PreferenceFileReadingTest : public BundleTest {
 protected:
  void SetUp() override {
    BundleTest::SetUp();
    page_ = objcxx::adopt((PSListController *)[[classNamed("ZunoprefsRootListController") alloc] init]);
    row_ = objcxx::share([PSSpecifier preferenceSpecifierNamed:@"Row"
                                                        target:page_.get()
                                                           set:nullptr
                                                           get:nullptr
                                                        detail:Nil
                                                          cell:PSSwitchCell
                                                          edit:Nil]);
  }
  void TearDown() override {
    row_ = nullptr;
    page_ = nullptr;
    BundleTest::TearDown();
  }

  /// What the page reads for `key`.
  id value(NSString *key) {
    [row_.get() setProperty:key forKey:@"key"];
    const Replaced<ReadWhole> counted(object_getClass([NSDictionary class]), @selector(dictionaryWithContentsOfFile:),
                                      countWholeRead);
    replacedRead = &counted;
    wholeReads = 0;
    return [page_.get() readPreferenceValue:row_.get()];
  }
  /// The same, and what it was read from.
  std::string described(NSString *key) {
    id found = value(key);
    return std::string([[found description] UTF8String] ?: "nothing") + (wholeReads ? ", from the whole" : "");
  }

  void writeList(NSString *entries) {
    write(kMainFile, [[[kHead stringByAppendingString:entries] stringByAppendingString:kTail] UTF8String]);
  }
  void writeBinary(NSDictionary *contents) {
    write(kMainFile, [NSPropertyListSerialization dataWithPropertyList:contents
                                                                format:NSPropertyListBinaryFormat_v1_0
                                                               options:0
                                                                 error:nullptr]);
  }

 private:
  objcxx::Retained<PSListController> page_;
  objcxx::Retained<PSSpecifier> row_;
};

TEST_F(PreferenceFileReadingTest, SimpleValuesAreFoundWithoutBuildingTheWhole) {
  NSDictionary *values = @{
    @"text" : @"a < b & “c”",
    @"empty" : @"",
    @"integer" : @(-7),
    @"large" : [NSNumber numberWithUnsignedLongLong:18446744073709551615ull],
    @"real" : @0.25,
    @"yes" : @(YES),
    @"no" : @(NO),
    @"photo" : [@"" stringByPaddingToLength:300'000 withString:@"x" startingAtIndex:0],
    @"list" : @[ @"a", @{@"b" : @1} ],
  };
  for (const bool binary : {false, true}) {
    if (binary) {
      writeBinary(values);
    } else {
      writePreferences(kMainFile, values);
    }
    for (NSString *key in @[ @"text", @"empty", @"integer", @"large", @"real", @"yes", @"no", @"photo" ]) {
      id wanted = [values objectForKey:key];
      id found = value(key);
      EXPECT_OBJC_EQ(found, wanted) << [key UTF8String] << (binary ? " in binary" : " in XML");
      if ([wanted isKindOfClass:[NSNumber class]])
        EXPECT_STREQ([found objCType], [wanted objCType]) << [key UTF8String];
      EXPECT_EQ(wholeReads, 0) << [key UTF8String] << (binary ? " in binary" : " in XML");
    }
    EXPECT_EQ(described(@"absent"), "nothing");
    EXPECT_OBJC_EQ(value(@"list"), [values objectForKey:@"list"]);
    EXPECT_EQ(wholeReads, 1);
  }
}

TEST_F(PreferenceFileReadingTest, AFileOfNoBytesOrNoFileHasNothing) {
  EXPECT_EQ(described(@"a"), "nothing, from the whole");
  write(kMainFile, "");
  EXPECT_EQ(described(@"a"), "nothing, from the whole");
}

TEST_F(PreferenceFileReadingTest, WhatOnlyAFullParseKnowsIsReadWhole) {
  writeList(@"<key>a</key><string>&#65;</string><key>b</key><string>B</string>");
  EXPECT_EQ(described(@"a"), "A, from the whole");
  EXPECT_EQ(described(@"b"), "B, from the whole");
  writeList(@"<!-- a comment --><key>a</key><integer>1</integer>");
  EXPECT_EQ(described(@"a"), "1, from the whole");
  write(kMainFile, "{ a = \"old\"; }");
  EXPECT_EQ(described(@"a"), "old, from the whole");
}

TEST_F(PreferenceFileReadingTest, EntitiesAndSpaceAreKnown) {
  writeList(@"\n\t<key>a&amp;b</key> <string>&lt;&gt;&amp;&apos;&quot;</string>\r\n<key>c</key><real>-1.5e2</real>");
  EXPECT_EQ(described(@"a&b"), "<>&'\"");
  EXPECT_EQ(described(@"c"), "-150");
}

TEST_F(PreferenceFileReadingTest, ADamagedFileHasNothing) {
  writeList(@"<key>a</key><string>x</string><key>b</key>");
  EXPECT_EQ(described(@"a"), "nothing, from the whole");
}

TEST_F(PreferenceFileReadingTest, KeysBeyondASCIIAreFound) {
  for (const bool binary : {false, true}) {
    NSDictionary *values = @{@"größe" : @"ü", @"名前" : @"値", @"😀" : @3};
    if (binary) {
      writeBinary(values);
    } else {
      writePreferences(kMainFile, values);
    }
    for (NSString *key in values) EXPECT_OBJC_EQ(value(key), [values objectForKey:key]) << [key UTF8String];
    EXPECT_EQ(wholeReads, 0);
  }
}

}  // namespace
