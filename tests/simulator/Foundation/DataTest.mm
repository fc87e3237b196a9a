// NSData: base64, and reading and writing with errors.
#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <string>

namespace {

NSData *dataOf(const std::string &text) { return [NSData dataWithBytes:text.data() length:text.size()]; }

NSData *decoded(NSString *text, NSDataBase64DecodingOptions options = 0) {
  return [[[NSData alloc] initWithBase64EncodedString:text options:options] autorelease];
}

constexpr NSDataBase64DecodingOptions kIgnore = NSDataBase64DecodingIgnoreUnknownCharacters;

class Base64Test : public ObjCTest {};

TEST_F(Base64Test, EncodesWithPadding) {
  EXPECT_OBJC_EQ([dataOf("") base64EncodedStringWithOptions:0], @"");
  EXPECT_OBJC_EQ([dataOf("f") base64EncodedStringWithOptions:0], @"Zg==");
  EXPECT_OBJC_EQ([dataOf("fo") base64EncodedStringWithOptions:0], @"Zm8=");
  EXPECT_OBJC_EQ([dataOf("foo") base64EncodedStringWithOptions:0], @"Zm9v");
  EXPECT_OBJC_EQ([dataOf("\xfb\xff") base64EncodedStringWithOptions:0], @"+/8=");
  EXPECT_OBJC_EQ([dataOf("foo") base64EncodedDataWithOptions:0], dataOf("Zm9v"));
}

TEST_F(Base64Test, LinesEndWithCarriageReturnAndLineFeedUnlessAskedOtherwise) {
  NSData *data = dataOf(std::string(50, 'x'));
  NSString *first = @"eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4", *rest = @"eHg=";
  const auto joined = [&](NSString *end) { return [NSString stringWithFormat:@"%@%@%@", first, end, rest]; };
  const NSUInteger lines = NSDataBase64Encoding64CharacterLineLength;
  EXPECT_OBJC_EQ([data base64EncodedStringWithOptions:lines], joined(@"\r\n"));
  EXPECT_OBJC_EQ([data base64EncodedStringWithOptions:lines | NSDataBase64EncodingEndLineWithLineFeed], joined(@"\n"));
  EXPECT_OBJC_EQ([data base64EncodedStringWithOptions:lines | NSDataBase64EncodingEndLineWithCarriageReturn],
                 joined(@"\r"));
  EXPECT_OBJC_EQ([data base64EncodedStringWithOptions:lines | NSDataBase64EncodingEndLineWithCarriageReturn |
                                                      NSDataBase64EncodingEndLineWithLineFeed],
                 joined(@"\r\n"));
  EXPECT_OBJC_EQ([data base64EncodedStringWithOptions:0], joined(@""));
  NSString *wide = [data base64EncodedStringWithOptions:NSDataBase64Encoding76CharacterLineLength];
  EXPECT_EQ([wide length], 68u);
  EXPECT_EQ([[dataOf(std::string(60, 'x')) base64EncodedStringWithOptions:NSDataBase64Encoding76CharacterLineLength]
                rangeOfString:@"\r\n"]
                .location,
            76u);
}

TEST_F(Base64Test, AFullLastLineHasNoEnd) {
  NSString *text =
      [dataOf(std::string(96, 'x')) base64EncodedStringWithOptions:NSDataBase64Encoding64CharacterLineLength];
  EXPECT_EQ([text length], 130u);
  EXPECT_FALSE([text hasSuffix:@"\n"]);
}

TEST_F(Base64Test, DecodesWhatItEncodes) {
  std::string bytes;
  for (int i = 0; i < 300; ++i) {
    bytes.push_back(static_cast<char>(i * 7));
    EXPECT_OBJC_EQ(decoded([dataOf(bytes) base64EncodedStringWithOptions:0]), dataOf(bytes));
    NSString *lines = [dataOf(bytes) base64EncodedStringWithOptions:NSDataBase64Encoding64CharacterLineLength];
    EXPECT_OBJC_EQ(decoded(lines, kIgnore), dataOf(bytes));
  }
  EXPECT_OBJC_EQ(decoded(@""), [NSData data]);
}

TEST_F(Base64Test, WithoutTheOptionEveryOtherCharacterIsRefused) {
  for (NSString *text in @[ @"Zm9v\r\n", @"Zm 9v", @" Zm9v", @"Zm9v-", @"Zm9_", @"Zm9v😀", @"Zm9v\u00e9" ]) {
    EXPECT_OBJC_EQ(decoded(text), nil) << [text UTF8String];
    EXPECT_OBJC_EQ([[[NSData alloc] initWithBase64EncodedData:[text dataUsingEncoding:NSUTF8StringEncoding]
                                                      options:0] autorelease],
                   nil);
  }
  EXPECT_OBJC_EQ(decoded(@" Z m\r\n9 v 😀", kIgnore), dataOf("foo"));
}

TEST_F(Base64Test, PaddingMustBeRight) {
  for (NSString *text in @[ @"Z", @"Zg", @"Zg=", @"Zm8", @"Zg===", @"Zm8==", @"Zm9v=", @"Zg==Zg==", @"=", @"====" ]) {
    EXPECT_OBJC_EQ(decoded(text), nil) << [text UTF8String];
    EXPECT_OBJC_EQ(decoded(text, kIgnore), nil) << [text UTF8String];
  }
}

TEST_F(Base64Test, NilRaises) {
  EXPECT_EQ(raisedBy([] { decoded(nil); }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([] { (void)[[[NSData alloc] initWithBase64EncodedData:nil options:0] autorelease]; }),
            "NSInvalidArgumentException");
}

class DataFileTest : public DeviceTest {};

TEST_F(DataFileTest, ReadsWithAnError) {
  NSString *file = write(@"/a", std::string("x\0y", 3));
  NSError *error = nil;
  EXPECT_OBJC_EQ([NSData dataWithContentsOfFile:file options:NSDataReadingMappedIfSafe error:&error],
                 dataOf(std::string("x\0y", 3)));
  EXPECT_OBJC_EQ([NSData dataWithContentsOfURL:[NSURL fileURLWithPath:file] options:0 error:&error],
                 dataOf(std::string("x\0y", 3)));
  EXPECT_OBJC_EQ(error, nil);
  EXPECT_OBJC_EQ([NSData dataWithContentsOfFile:path(@"/missing") options:0 error:&error], nil);
  EXPECT_EQ([error code], NSFileReadNoSuchFileError);
  EXPECT_OBJC_EQ([NSData dataWithContentsOfFile:path(@"/") options:0 error:&error], nil);
  NSString *noPath = nil;
  NSURL *noURL = nil;
  EXPECT_OBJC_EQ([NSData dataWithContentsOfFile:noPath options:0 error:nullptr], nil);
  EXPECT_OBJC_EQ([NSData dataWithContentsOfURL:noURL options:0 error:nullptr], nil);
  [[NSMutableData dataWithContentsOfFile:file options:0 error:nullptr] setLength:10];
}

TEST_F(DataFileTest, WritesAtomicallyWithAnError) {
  NSString *file = write(@"/a", "old");
  EXPECT_TRUE([dataOf("new") writeToFile:file atomically:YES]);
  EXPECT_EQ(read(@"/a"), "new");
  EXPECT_TRUE([dataOf("n") writeToFile:file options:0 error:nullptr]);
  EXPECT_EQ(read(@"/a"), "n");
  EXPECT_TRUE([dataOf("url") writeToURL:[NSURL fileURLWithPath:file] options:NSDataWritingAtomic error:nullptr]);
  EXPECT_EQ(read(@"/a"), "url");
  for (const NSUInteger options : {0, static_cast<int>(NSDataWritingAtomic)}) {
    NSError *error = nil;
    EXPECT_FALSE([dataOf("x") writeToFile:path(@"/none/a") options:options error:&error]);
    EXPECT_OBJC_EQ([error domain], NSCocoaErrorDomain);
    EXPECT_EQ([error code], NSFileNoSuchFileError);
  }
  EXPECT_FALSE([dataOf("x") writeToURL:[NSURL URLWithString:@"https://example.com"] atomically:YES]);
  EXPECT_EQ(listing(@"/"), "a");
}

TEST_F(DataFileTest, StringsAreWrittenThroughIt) {
  NSError *error = nil;
  EXPECT_TRUE([@"Größe 😀" writeToFile:path(@"/s") atomically:YES encoding:NSUTF8StringEncoding error:&error]);
  EXPECT_EQ(read(@"/s"), "Größe 😀");
  EXPECT_FALSE([@"x" writeToFile:path(@"/none/s") atomically:YES encoding:NSUTF8StringEncoding error:&error]);
  EXPECT_EQ([error code], NSFileNoSuchFileError);
  EXPECT_EQ(listing(@"/"), "s");
}

}  // namespace
