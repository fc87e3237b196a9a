// What makers' bundles ask of Foundation besides.
#import <Foundation/Foundation.h>
#import <Foundation/SIMLog.h>

#include "support/objc/LeaksIgnored.h"
#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <string>
#include <vector>

namespace {

class MakersFoundationTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write(@"/Example.bundle/Info.plist", "<plist version=\"1.0\"><dict/></plist>");
  }
  NSBundle *bundle() const { return [NSBundle bundleWithPath:path(@"/Example.bundle")]; }
};

TEST_F(MakersFoundationTest, ResourcesLieInFolders) {
  NSString *image = write(@"/Example.bundle/Images/icon@2x.png", "x");
  NSString *plain = write(@"/Example.bundle/Images/deep/plain.txt", "x");
  NSBundle *found = bundle();
  EXPECT_OBJC_EQ([found pathForResource:@"Images/icon@2x" ofType:@"png"], image);
  EXPECT_OBJC_EQ([found pathForResource:@"Images/icon@2x.png" ofType:nil], image);
  EXPECT_OBJC_EQ([found pathForResource:@"Images/deep/plain" ofType:@"txt"], plain);
  EXPECT_OBJC_EQ([found pathForResource:@"icon@2x" ofType:@"png" inDirectory:@"Images"], image);
  EXPECT_OBJC_EQ([[found URLForResource:@"Images/deep/plain" withExtension:@"txt"] path], plain);
  EXPECT_EQ([found pathForResource:@"Images/none" ofType:@"png"], nil);
  write(@"/outside.txt", "x");
  EXPECT_EQ([found pathForResource:@"../outside" ofType:@"txt"], nil);
  EXPECT_OBJC_EQ([found pathForResource:@"deep/plain" ofType:@"txt" inDirectory:@"Images"], plain);
}

TEST_F(MakersFoundationTest, TextsMayStandInBraces) {
  write(@"/Example.bundle/en.lproj/Root.strings", "{\n  \"Hello\" = \"Hi\";\n  Plain = \"Value\";\n}\n");
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Hello" value:nil table:@"Root"], @"Hi");
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Plain" value:nil table:@"Root"], @"Value");
}

TEST_F(MakersFoundationTest, TextsAreReadInAnyUnicodeAndNothingIsSaidOfIt) {
  std::vector<std::string> log;
  const auto collect = [](NSString *line, void *lines) {
    static_cast<std::vector<std::string> *>(lines)->push_back([line UTF8String]);
  };
  SIMSetLogHandler(collect, &log);
  const std::string text = "\"Greeting\" = \"Gr\u00fc\u00dfe \u2603\"; /* a comment */\n\"Plain\";\n";
  write(@"/Example.bundle/en.lproj/Plain.strings", text);
  write(@"/Example.bundle/en.lproj/Marked.strings", "\xef\xbb\xbf" + text);
  NSData *wide = [[NSString stringWithUTF8String:text.c_str()] dataUsingEncoding:NSUnicodeStringEncoding];
  write(@"/Example.bundle/en.lproj/Wide.strings", {static_cast<const char *>([wide bytes]), [wide length]});
  write(@"/Example.bundle/en.lproj/List.strings",
        "<plist version=\"1.0\"><dict><key>Greeting</key><string>Gr\u00fc\u00dfe \u2603</string></dict></plist>");
  for (NSString *table in @[ @"Plain", @"Marked", @"Wide", @"List" ]) {
    EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Greeting" value:nil table:table], @"Gr\u00fc\u00dfe \u2603");
    EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Plain" value:nil table:table], @"Plain");
    EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"None" value:@"" table:table], @"None");
    EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"None" value:@"Value" table:table], @"Value");
    EXPECT_OBJC_EQ([bundle() localizedStringForKey:nil value:@"Value" table:table], @"Value");
    EXPECT_OBJC_EQ([bundle() localizedStringForKey:nil value:nil table:table], @"");
  }
  EXPECT_EQ(log, std::vector<std::string>());
  SIMSetLogHandler(nullptr, nullptr);
}

TEST_F(MakersFoundationTest, TextsAreReadFromEachKindOfList) {
  NSDictionary *texts = @{@"Greeting" : @"Gr\u00fc\u00dfe \u2603"};
  NSData *binary = [NSPropertyListSerialization dataWithPropertyList:texts
                                                              format:NSPropertyListBinaryFormat_v1_0
                                                             options:0
                                                               error:NULL];
  write(@"/Example.bundle/en.lproj/Binary.strings", {static_cast<const char *>([binary bytes]), [binary length]});
  for (const bool isLittle : {true, false}) {
    std::string wide = isLittle ? "\xff\xfe" : "\xfe\xff";
    NSData *units = [@"\"Greeting\" = \"Gr\u00fc\u00dfe \u2603\";"
        dataUsingEncoding:isLittle ? NSUTF16LittleEndianStringEncoding : NSUTF16BigEndianStringEncoding];
    wide.append(static_cast<const char *>([units bytes]), [units length]);
    write(isLittle ? @"/Example.bundle/en.lproj/Little.strings" : @"/Example.bundle/en.lproj/Big.strings", wide);
  }
  std::string many;
  for (int at = 0; at < 20'000; ++at) many += "\"Key " + std::to_string(at) + "\" = \"Value\";\n";
  write(@"/Example.bundle/en.lproj/Large.strings", many + "Greeting = \"Gr\u00fc\u00dfe \u2603\";");
  for (NSString *table in @[ @"Binary", @"Little", @"Big", @"Large" ]) {
    EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Greeting" value:nil table:table], @"Gr\u00fc\u00dfe \u2603");
  }
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Key 19999" value:nil table:@"Large"], @"Value");
}

TEST_F(MakersFoundationTest, AFileThatHoldsNoTextsIsToldOfOnceAndLeavesTheKeys) {
  std::vector<std::string> log;
  const auto collect = [](NSString *line, void *lines) {
    static_cast<std::vector<std::string> *>(lines)->push_back([line UTF8String]);
  };
  write(@"/Example.bundle/en.lproj/Broken.strings", "\"Name\" = \"Value\";\n\"Open = ");
  write(@"/Example.bundle/en.lproj/Array.strings", "(1, 2)");
  for (NSString *table in @[ @"Broken", @"Array" ]) {
    log.clear();
    SIMSetLogHandler(collect, &log);
    for (int round = 0; round < 3; ++round) {
      EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Name" value:nil table:table], @"Name");
      EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Name" value:@"Other" table:table], @"Other");
    }
    SIMSetLogHandler(nullptr, nullptr);
    EXPECT_EQ(log.size(), 1u) << [table UTF8String];
    for (const std::string &line : log) EXPECT_NE(line.find([table UTF8String]), std::string::npos) << line;
  }
  log.clear();
  write(@"/Example.bundle/en.lproj/Empty.strings", "");
  SIMSetLogHandler(collect, &log);
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Name" value:nil table:@"Empty"], @"Name");
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Name" value:nil table:@"Missing"], @"Name");
  SIMSetLogHandler(nullptr, nullptr);
  EXPECT_EQ(log, std::vector<std::string>()) << "nothing is wrong with these";
}

TEST_F(MakersFoundationTest, TextsAreThoseOfTheFileOfTheirTable) {
  write(@"/Example.bundle/en.lproj/Localizable.strings", "\"Name\" = \"Of no table\";");
  write(@"/Example.bundle/en.lproj/Other.strings", "\"Name\" = \"Of another\"; \"Number\" = (1);");
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Name" value:nil table:nil], @"Of no table");
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Name" value:nil table:@""], @"Of no table");
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Name" value:nil table:@"Other"], @"Of another");
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Number" value:nil table:@"Other"], @"Number") << "no text";
  EXPECT_OBJC_EQ([bundle() localizedStringForKey:@"Name" value:nil table:@"None"], @"Name");
}

TEST_F(MakersFoundationTest, BytesAreTold) {
  const testing_support::LeaksIgnored ignored;  // What each formatter of GNUstep's forgets.
  NSByteCountFormatter *formatter = [[[NSByteCountFormatter alloc] init] autorelease];
  EXPECT_OBJC_EQ([formatter stringFromByteCount:0], @"Zero KB");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:999], @"999 bytes");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:1500], @"2 KB");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:1500000], @"1.5 MB");
  EXPECT_OBJC_EQ([NSByteCountFormatter stringFromByteCount:2147483648 countStyle:NSByteCountFormatterCountStyleMemory],
                 @"2 GB");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:1], @"1 byte");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:1'234'567'890], @"1.23 GB");
  [formatter setAllowedUnits:NSByteCountFormatterUseMB];
  EXPECT_OBJC_EQ([formatter stringFromByteCount:1'234'567'890], @"1,234.6 MB");
  [formatter setIncludesUnit:NO];
  EXPECT_OBJC_EQ([formatter stringFromByteCount:1'500'000], @"1.5");
}

TEST_F(MakersFoundationTest, BytesAreToldExactlyAndInThreeDigits) {
  const testing_support::LeaksIgnored ignored;  // What each formatter of GNUstep's forgets.
  NSByteCountFormatter *formatter = [[[NSByteCountFormatter alloc] init] autorelease];
  [formatter setIncludesActualByteCount:YES];
  EXPECT_OBJC_EQ([formatter stringFromByteCount:722'842], @"723 KB (722,842 bytes)");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:-722'842], @"-723 KB (-722,842 bytes)");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:500], @"500 bytes");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:0], @"Zero KB");
  [formatter setIncludesUnit:NO];
  EXPECT_OBJC_EQ([formatter stringFromByteCount:722'842], @"723");
  formatter = [[[NSByteCountFormatter alloc] init] autorelease];
  [formatter setAdaptive:NO];
  EXPECT_OBJC_EQ([formatter stringFromByteCount:1'234'567], @"1.23 MB");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:12'345'678], @"12.3 MB");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:123'456'789], @"123 MB");
  EXPECT_OBJC_EQ([formatter stringFromByteCount:1'000'000], @"1 MB");
  [formatter setZeroPadsFractionDigits:YES];
  EXPECT_OBJC_EQ([formatter stringFromByteCount:1'000'000], @"1.00 MB");
}

TEST_F(MakersFoundationTest, DatesAndNumbersAreFormatted) {
  NSDateFormatter *dates = [[[NSDateFormatter alloc] init] autorelease];
  [dates setLocale:[[[NSLocale alloc] initWithLocaleIdentifier:@"en_US_POSIX"] autorelease]];
  [dates setTimeZone:[NSTimeZone timeZoneForSecondsFromGMT:0]];
  [dates setDateFormat:@"yyyy-MM-dd HH:mm:ss"];
  EXPECT_OBJC_EQ([dates stringFromDate:[NSDate dateWithTimeIntervalSince1970:86'400]], @"1970-01-02 00:00:00");
  EXPECT_OBJC_EQ([dates dateFromString:@"1970-01-02 00:00:01"], [NSDate dateWithTimeIntervalSince1970:86'401]);
  NSNumberFormatter *numbers = [[[NSNumberFormatter alloc] init] autorelease];
  [numbers setNumberStyle:NSNumberFormatterDecimalStyle];
  [numbers setMaximumFractionDigits:1];
  EXPECT_OBJC_EQ([numbers stringFromNumber:@1234.56], @"1,234.6");
  EXPECT_OBJC_EQ([numbers numberFromString:@"1,234.5"], @1234.5);
}

TEST_F(MakersFoundationTest, TextsAreMatchedAndArraysFiltered) {
  NSError *error = nil;
  NSRegularExpression *digits = [NSRegularExpression regularExpressionWithPattern:@"(\\d+)-(\\d+)"
                                                                          options:0
                                                                            error:&error];
  NSTextCheckingResult *match = [digits firstMatchInString:@"a 12-34 b" options:0 range:NSMakeRange(0, 9)];
  EXPECT_OBJC_EQ([@"a 12-34 b" substringWithRange:[match rangeAtIndex:2]], @"34");
  EXPECT_OBJC_EQ(
      [digits stringByReplacingMatchesInString:@"1-2" options:0 range:NSMakeRange(0, 3) withTemplate:@"$2+$1"], @"2+1");
  EXPECT_EQ([NSRegularExpression regularExpressionWithPattern:@"(" options:0 error:&error], nil);
  NSArray *rows = @[ @{@"name" : @"Alpha", @"n" : @1}, @{@"name" : @"beta", @"n" : @2} ];
  NSPredicate *search = [NSPredicate predicateWithFormat:@"name CONTAINS[cd] %@ AND n > %d", @"BET", 1];
  EXPECT_OBJC_EQ([rows filteredArrayUsingPredicate:search], @[ [rows objectAtIndex:1] ]);
  NSPredicate *block = [NSPredicate predicateWithBlock:^BOOL(id row, NSDictionary *) {
    return [[row objectForKey:@"n"] intValue] == 1;
  }];
  EXPECT_OBJC_EQ([rows filteredArrayUsingPredicate:block], @[ [rows objectAtIndex:0] ]);
  EXPECT_OBJC_EQ([rows valueForKeyPath:@"@max.n"], @2);
}

/// The block lies on this function's stack.
__attribute__((noinline)) NSPredicate *longerThan(NSUInteger length) {
  return [NSPredicate predicateWithBlock:^BOOL(NSString *text, NSDictionary *bindings) {
    return [text length] > length + [[bindings objectForKey:@"MORE"] unsignedIntegerValue];
  }];
}

TEST_F(MakersFoundationTest, APredicateKeepsItsBlock) {
  NSPredicate *predicate = longerThan(2);
  const auto other = longerThan(30);
  EXPECT_TRUE([predicate evaluateWithObject:@"four"]);
  EXPECT_FALSE([predicate evaluateWithObject:@"it"]);
  EXPECT_FALSE([other evaluateWithObject:@"four"]);
  NSDictionary *more = @{@"MORE" : @2};
  EXPECT_FALSE([predicate evaluateWithObject:@"four" substitutionVariables:more]);
  EXPECT_FALSE([[predicate predicateWithSubstitutionVariables:more] evaluateWithObject:@"four"]);
  EXPECT_EQ([[predicate copy] autorelease], predicate);
  EXPECT_TRUE([[predicate predicateFormat] hasPrefix:@"BLOCKPREDICATE("]);
  NSPredicate *both = [NSCompoundPredicate andPredicateWithSubpredicates:@[ predicate, other ]];
  EXPECT_FALSE([both evaluateWithObject:@"four"]);
}

TEST_F(MakersFoundationTest, TheSystemSaysItsVersion) {
  const NSOperatingSystemVersion version = [[NSProcessInfo processInfo] operatingSystemVersion];
  EXPECT_EQ(version.majorVersion, 16);
  EXPECT_EQ(version.minorVersion, 5);
  EXPECT_EQ(version.patchVersion, 0);
  const auto isAtLeast = [](NSInteger major, NSInteger minor, NSInteger patch) {
    const NSOperatingSystemVersion wanted{major, minor, patch};
    return [[NSProcessInfo processInfo] isOperatingSystemAtLeastVersion:wanted];
  };
  EXPECT_TRUE(isAtLeast(15, 9, 9));
  EXPECT_TRUE(isAtLeast(16, 5, 0));
  EXPECT_FALSE(isAtLeast(16, 5, 1));
  EXPECT_FALSE(isAtLeast(16, 6, 0));
  EXPECT_FALSE(isAtLeast(17, 0, 0));
}

TEST_F(MakersFoundationTest, FilesAreAddresses) {
  NSFileManager *files = [NSFileManager defaultManager];
  NSURL *folder = [NSURL fileURLWithPath:makeFolder(@"/var/mobile/Documents") isDirectory:YES];
  NSURL *made = [folder URLByAppendingPathComponent:@"new"];
  NSError *error = nil;
  EXPECT_TRUE([files createDirectoryAtURL:made withIntermediateDirectories:YES attributes:nil error:&error]);
  EXPECT_TRUE([@"text" writeToURL:[made URLByAppendingPathComponent:@"a.txt"]
                       atomically:YES
                         encoding:NSUTF8StringEncoding
                            error:&error]);
  EXPECT_TRUE([files copyItemAtURL:[made URLByAppendingPathComponent:@"a.txt"]
                             toURL:[made URLByAppendingPathComponent:@"b.txt"]
                             error:&error]);
  NSArray *found = [files contentsOfDirectoryAtURL:made includingPropertiesForKeys:nil options:0 error:&error];
  EXPECT_OBJC_EQ([[found valueForKey:@"lastPathComponent"] sortedArrayUsingSelector:@selector(compare:)],
                 (@[ @"a.txt", @"b.txt" ]));
  EXPECT_TRUE([files removeItemAtURL:[made URLByAppendingPathComponent:@"a.txt"] error:&error]);
  EXPECT_TRUE([[made URLByAppendingPathComponent:@"b.txt"] checkResourceIsReachableAndReturnError:&error]);
}

}  // namespace
