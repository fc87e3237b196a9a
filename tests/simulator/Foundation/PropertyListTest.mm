// Property lists between bytes and objects.
#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace {

NSData *dataOf(std::string_view text) { return [NSData dataWithBytes:text.data() length:text.size()]; }

std::string textOf(NSData *data) { return {static_cast<const char *>([data bytes]), [data length]}; }

id parsed(std::string_view text, NSUInteger options = NSPropertyListImmutable) {
  return [NSPropertyListSerialization propertyListWithData:dataOf(text) options:options format:nullptr error:nullptr];
}

std::string wrapped(std::string_view inner) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">" +
         std::string(inner) + "</plist>\n";
}

id parsedXML(std::string_view inner) { return parsed(wrapped(inner)); }

NSData *encoded(id root, NSPropertyListFormat format) {
  return [NSPropertyListSerialization dataWithPropertyList:root format:format options:0 error:nullptr];
}

constexpr NSPropertyListFormat kFormats[] = {NSPropertyListXMLFormat_v1_0, NSPropertyListBinaryFormat_v1_0};

id copied(id root, NSPropertyListFormat format) { return parsed(textOf(encoded(root, format))); }

bool isBoolean(id object) { return [object class] == [[NSNumber numberWithBool:YES] class]; }
bool isReal(id object) { return *[object objCType] == 'd'; }

class PropertyListTest : public ObjCTest {};

TEST_F(PropertyListTest, BothFormatsKeepEveryType) {
  NSDictionary *root = @{
    @"text" : @"Größe 😀 <&>\"' \t\n\r",
    @"empty" : @"",
    @"" : @"empty key",
    @"array" : @[ @"a", @[], @{} ],
    @"dictionary" : @{@"x" : @{@"y" : @"z"}},
    @"data" : [NSData dataWithBytes:"\0\1\377" length:3],
    @"no data" : [NSData data],
    @"date" : [NSDate dateWithTimeIntervalSinceReferenceDate:-86400 * 400],
  };
  for (const auto format : kFormats) EXPECT_OBJC_EQ(copied(root, format), root) << format;
}

TEST_F(PropertyListTest, NumbersKeepTheirKind) {
  NSDictionary *root = @{
    @"yes" : @(YES),
    @"no" : @(NO),
    @"one" : @1,
    @"half" : @0.5,
    @"whole" : @2.0,
    @"lowest" : [NSNumber numberWithLongLong:INT64_MIN],
    @"highest" : [NSNumber numberWithLongLong:INT64_MAX],
    @"unsigned" : [NSNumber numberWithUnsignedLongLong:UINT64_MAX],
    @"char" : [NSNumber numberWithChar:-3],
    @"short" : [NSNumber numberWithUnsignedShort:65535],
    @"int" : @(-40000)
  };
  for (const auto format : kFormats) {
    NSDictionary *copy = copied(root, format);
    EXPECT_TRUE(isBoolean([copy objectForKey:@"yes"]) && [[copy objectForKey:@"yes"] boolValue]);
    EXPECT_TRUE(isBoolean([copy objectForKey:@"no"]) && ![[copy objectForKey:@"no"] boolValue]);
    EXPECT_FALSE(isBoolean([copy objectForKey:@"one"]));
    EXPECT_FALSE(isReal([copy objectForKey:@"one"]));
    EXPECT_TRUE(isReal([copy objectForKey:@"half"]));
    EXPECT_TRUE(isReal([copy objectForKey:@"whole"]));
    EXPECT_EQ([[copy objectForKey:@"lowest"] longLongValue], INT64_MIN);
    EXPECT_EQ([[copy objectForKey:@"highest"] longLongValue], INT64_MAX);
    EXPECT_EQ([[copy objectForKey:@"unsigned"] unsignedLongLongValue], UINT64_MAX);
    EXPECT_EQ([[copy objectForKey:@"char"] intValue], -3);
    EXPECT_EQ([[copy objectForKey:@"short"] intValue], 65535);
    EXPECT_EQ([[copy objectForKey:@"int"] intValue], -40000);
  }
}

TEST_F(PropertyListTest, RealNumbersKeepEveryBit) {
  for (const double value : {0.1, 1e300, -5e-324, 123456789.123456789, std::numeric_limits<double>::max(), -0.0,
                             std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
    for (const auto format : kFormats) EXPECT_EQ([copied(@(value), format) doubleValue], value) << format;
  }
  for (const auto format : kFormats) EXPECT_TRUE(std::isnan([copied(@(NAN), format) doubleValue]));
}

TEST_F(PropertyListTest, XMLIsLaidOutAsOnADevice) {
  NSDictionary *root = @{
    @"b" : @[ @1, @(YES), @1.5 ],
    @"a" : @{@"none" : @{}, @"nothing" : @[]},
    @"data" : [NSData dataWithBytes:std::string(60, 'x').data() length:60],
    @"date" : [NSDate dateWithTimeIntervalSinceReferenceDate:0.9],
    @"text" : @"<a & b>"
  };
  EXPECT_EQ(textOf(encoded(root, NSPropertyListXMLFormat_v1_0)),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
            "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
            "<plist version=\"1.0\">\n"
            "<dict>\n"
            "\t<key>a</key>\n"
            "\t<dict>\n"
            "\t\t<key>none</key>\n"
            "\t\t<dict/>\n"
            "\t\t<key>nothing</key>\n"
            "\t\t<array/>\n"
            "\t</dict>\n"
            "\t<key>b</key>\n"
            "\t<array>\n"
            "\t\t<integer>1</integer>\n"
            "\t\t<true/>\n"
            "\t\t<real>1.5</real>\n"
            "\t</array>\n"
            "\t<key>data</key>\n"
            "\t<data>\n"
            "\teHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4\n"
            "\teHh4eHh4eHh4\n"
            "\t</data>\n"
            "\t<key>date</key>\n"
            "\t<date>2001-01-01T00:00:00Z</date>\n"
            "\t<key>text</key>\n"
            "\t<string>&lt;a &amp; b&gt;</string>\n"
            "</dict>\n"
            "</plist>\n");
}

TEST_F(PropertyListTest, WhatADeviceRefusesIsRefused) {
  NSMutableArray *cycle = [NSMutableArray array];
  [cycle addObject:@[ cycle ]];
  NSMutableDictionary *twice = [NSMutableDictionary dictionary];
  [twice setObject:@[ twice ] forKey:@"a"];
  [twice setObject:@[ twice ] forKey:@"b"];
  NSMutableString *high = [NSMutableString stringWithString:@"😀a"], *low = [NSMutableString stringWithString:@"😀"];
  [high deleteCharactersInRange:NSMakeRange(1, 1)];
  [low deleteCharactersInRange:NSMakeRange(0, 1)];
  NSArray *refused = @[
    [NSNull null], @[ [NSNull null] ], @{@"a" : [[[NSObject alloc] init] autorelease]},
    @{@1 : @"a"},
    @{@"a" : @{@[] : @"b"}}, cycle, twice, high, low, [NSURL fileURLWithPath:@"/a"]
  ];
  for (id root in refused) {
    for (const auto format : kFormats) {
      NSError *error = nil;
      EXPECT_OBJC_EQ([NSPropertyListSerialization dataWithPropertyList:root format:format options:0 error:&error], nil);
      EXPECT_OBJC_EQ([error domain], NSCocoaErrorDomain);
      EXPECT_EQ([error code], 3852);
      EXPECT_FALSE([NSPropertyListSerialization propertyList:root isValidForFormat:format]);
    }
  }
  [cycle removeAllObjects];
  [twice removeAllObjects];
  EXPECT_OBJC_EQ(encoded(nil, NSPropertyListXMLFormat_v1_0), nil);
  EXPECT_OBJC_EQ(encoded(@{}, NSPropertyListOpenStepFormat), nil);
  EXPECT_TRUE([NSPropertyListSerialization propertyList:@{@"a" : @1} isValidForFormat:NSPropertyListXMLFormat_v1_0]);
}

TEST_F(PropertyListTest, ControlCharactersAreRefusedInXMLAndKeptInBinary) {
  for (NSString *text in @[
         @"a\x01z", @"\x1b[0m", [NSString stringWithFormat:@"%C", (unichar)0],
         [NSString stringWithFormat:@"%C", (unichar)0xffff]
       ]) {
    EXPECT_OBJC_EQ(encoded(@[ text ], NSPropertyListXMLFormat_v1_0), nil);
    EXPECT_OBJC_EQ(encoded(@{text : @1}, NSPropertyListXMLFormat_v1_0), nil);
    EXPECT_OBJC_EQ(copied(@[ text ], NSPropertyListBinaryFormat_v1_0), @[ text ]);
  }
}

id nested(std::size_t depth) {
  id root = @[];
  for (std::size_t i = 1; i < depth; ++i) root = i % 2 ? (id) @{@"k" : root} : (id) @[ root ];
  return root;
}

TEST_F(PropertyListTest, DepthIsLimitedInBothDirections) {
  for (const auto format : kFormats) {
    EXPECT_OBJC_EQ(copied(nested(512), format), nested(512));
    EXPECT_OBJC_EQ(encoded(nested(513), format), nil);
  }
  for (const std::size_t depth : {513, 100000}) {
    std::string xml, old(depth, '(');
    for (std::size_t i = 0; i < depth; ++i) xml += "<array>";
    for (std::size_t i = 0; i < depth; ++i) xml += "</array>";
    EXPECT_OBJC_EQ(parsedXML(xml), nil);
    EXPECT_OBJC_EQ(parsed(old + std::string(depth, ')')), nil);
  }
}

TEST_F(PropertyListTest, WellFormedXMLIsRead) {
  EXPECT_OBJC_EQ(parsedXML("<string>a<![CDATA[<b> & ]]>c&amp;&lt;&gt;&quot;&apos;&#65;&#x1F600;</string>"),
                 @"a<b> & c&<>\"'A😀");
  EXPECT_OBJC_EQ(
      parsedXML("<!-- a --><dict><!-- b --><key>k</key><!-- c --><integer> 0x1F </integer></dict>"),
      @{@"k" : @31});
  EXPECT_OBJC_EQ(parsedXML("<array><integer>+7</integer><true></true><false/><string/><key/></array>"), nil);
  EXPECT_OBJC_EQ(parsedXML("<array><integer>+7</integer><true></true><string/><data/></array>"),
                 (@[ @7, @(YES), @"", [NSData data] ]));
  EXPECT_OBJC_EQ(parsedXML("<data>\n\tAQ\n\tID\n</data>"), [NSData dataWithBytes:"\1\2\3" length:3]);
  EXPECT_OBJC_EQ(parsedXML("<date>2001-01-02T00:00:01Z</date>"), [NSDate dateWithTimeIntervalSinceReferenceDate:86401]);
  EXPECT_OBJC_EQ(
      parsedXML("<dict><key>a</key><integer>1</integer><key>a</key><integer>2</integer></dict>"),
      @{@"a" : @2});
  EXPECT_OBJC_EQ(parsed("\xef\xbb\xbf  <dict><key>a</key><string>b</string></dict>\n"), @{@"a" : @"b"});
  EXPECT_OBJC_EQ(parsed("<!DOCTYPE plist [ <!ELEMENT x (y)> ]><plist><true/></plist>"), @(YES));
  EXPECT_OBJC_EQ(parsedXML("<integer>18446744073709551615</integer>"),
                 [NSNumber numberWithUnsignedLongLong:UINT64_MAX]);
  EXPECT_OBJC_EQ(parsedXML("<integer>-9223372036854775808</integer>"), [NSNumber numberWithLongLong:INT64_MIN]);
}

TEST_F(PropertyListTest, MalformedXMLIsRefused) {
  for (const std::string_view inner : {"",
                                       "<dict>",
                                       "<dict><key>a</key></dict>",
                                       "<dict><string>a</string></dict>",
                                       "<dict><key>a</key><key>b</key><string>c</string></dict>",
                                       "<dict></array>",
                                       "<array></dict>",
                                       "</array>",
                                       "<array/><array/>",
                                       "<string>a",
                                       "<string>a</key>",
                                       "<string>&foo;</string>",
                                       "<string>&lt</string>",
                                       "<string>&#xD800;</string>",
                                       "<string>&#x110000;</string>",
                                       "<string>&#0000000000000065;</string>",
                                       "<string>\xff</string>",
                                       "<string>\xed\xa0\x80</string>",
                                       "<string>a<!-- b --></string>",
                                       "<integer/>",
                                       "<integer></integer>",
                                       "<integer>abc</integer>",
                                       "<integer>1 2</integer>",
                                       "<integer>1.5</integer>",
                                       "<integer>--1</integer>",
                                       "<integer>18446744073709551616</integer>",
                                       "<integer>-9223372036854775809</integer>",
                                       "<real>abc</real>",
                                       "<real/>",
                                       "<real>1,5</real>",
                                       "<date>yesterday</date>",
                                       "<date/>",
                                       "<date>2001-02-30T00:00:00Z</date>",
                                       "<date>2001-01-01T24:00:00Z</date>",
                                       "<date>2001-01-01T00:00:00</date>",
                                       "<data>AQI</data>",
                                       "<data>=AQI</data>",
                                       "<true>x</true>",
                                       "<foo/>",
                                       "<key>a</key>",
                                       "text",
                                       "<>",
                                       "</>"}) {
    NSError *error = nil;
    EXPECT_OBJC_EQ([NSPropertyListSerialization propertyListWithData:dataOf(wrapped(inner))
                                                             options:0
                                                              format:nullptr
                                                               error:&error],
                   nil)
        << inner;
    EXPECT_EQ([error code], 3840) << inner;
    EXPECT_OBJC_EQ([error domain], NSCocoaErrorDomain);
  }
  EXPECT_OBJC_EQ(parsed(wrapped("<true/>") + "garbage"), nil);
  EXPECT_OBJC_EQ(parsed("<!-- never closed"), nil);
}

TEST_F(PropertyListTest, EveryTruncationIsRefused) {
  NSDictionary *root = @{@"a" : @[ @1, @"two", @(YES), [NSData dataWithBytes:"abc" length:3] ], @"b" : @{@"c" : @2.5}};
  for (const auto format : kFormats) {
    const auto whole = textOf(encoded(root, format));
    const auto least = format == NSPropertyListXMLFormat_v1_0 ? whole.size() - 1 : whole.size();
    for (std::size_t size = 0; size < least; ++size) {
      @autoreleasepool {
        id left = parsed(whole.substr(0, size));  // The first letters of "bplist00" alone are a string.
        EXPECT_TRUE(!left || [left isKindOfClass:[NSString class]]) << size;
      }
    }
  }
}

TEST_F(PropertyListTest, DamagedDocumentsDoNoHarm) {
  NSDictionary *root = @{
    @"a" : @[ @1, @"two", @(YES), [NSData dataWithBytes:"abc" length:3], @"größe" ],
    @"b" : @{@"c" : @2.5, @"d" : [NSDate dateWithTimeIntervalSinceReferenceDate:1], @"e" : @(-1)}
  };
  std::size_t read = 0, all = 0;
  for (const auto format : kFormats) {
    const auto whole = textOf(encoded(root, format));
    for (std::size_t at = 0; at < whole.size(); ++at) {
      for (const char change : {'\0', '\x01', '\x0f', '\x40', '\x7f', '\xff', '<', '\xd1', '\xa1'}) {
        @autoreleasepool {
          auto damaged = whole;
          damaged[at] = change;
          read += parsed(damaged) != nil;
          ++all;
        }
      }
    }
  }
  EXPECT_GT(read, 0u);
  EXPECT_LT(read, all);
}

TEST_F(PropertyListTest, BinaryContainersThatHoldThemselvesAreRefused) {
  std::string document = "bplist00";
  document += "\xa1\x00";  // [0]: an array of itself
  document.resize(10);
  document[9] = 0;
  document += "\x08";
  document += std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') + "\x01" + std::string(8, '\0') +
              std::string(7, '\0') + "\x0a";
  EXPECT_OBJC_EQ(parsed(document), nil);
}

TEST_F(PropertyListTest, BinaryDocumentsThatUnfoldToTooMuchAreRefused) {
  std::string document = "bplist00";
  const int levels = 60;
  for (int i = 0; i < levels; ++i) {
    document += "\xa2";
    document += {static_cast<char>(i + 1), static_cast<char>(i + 1)};
  }
  document += "\x09";
  const auto table = document.size();
  for (int i = 0; i <= levels; ++i) document += static_cast<char>(8 + 3 * i);
  document += std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') + static_cast<char>(levels + 1) +
              std::string(8, '\0') + std::string(7, '\0') + static_cast<char>(table);
  EXPECT_OBJC_EQ(parsed(document), nil);
}

TEST_F(PropertyListTest, LargeBinaryDocumentsUseWiderOffsets) {
  NSMutableArray *root = [NSMutableArray array];
  for (int i = 0; i < 70000; ++i) [root addObject:[NSNumber numberWithInt:i]];
  EXPECT_OBJC_EQ(copied(root, NSPropertyListBinaryFormat_v1_0), root);
  NSString *text = [@"" stringByPaddingToLength:70000 withString:@"ü" startingAtIndex:0];
  EXPECT_OBJC_EQ(copied(@[ text, text ], NSPropertyListBinaryFormat_v1_0), (@[ text, text ]));
}

TEST_F(PropertyListTest, TheOldTextFormatIsRead) {
  EXPECT_OBJC_EQ(parsed("{ a = b; \"c d\" = (1, two, {x = y;}, ()); e = <01 ff>; }"), (@{
                   @"a" : @"b",
                   @"c d" : @[ @"1", @"two", @{@"x" : @"y"}, @[] ],
                   @"e" : [NSData dataWithBytes:"\x01\xff" length:2]
                 }));
  EXPECT_OBJC_EQ(parsed("/* greeting */\n\"hello\" = \"Grüße \\U00e4 \\ud83d\\ude00\\n\\\"\\101\";\nplain;\n// end\n"),
                 (@{@"hello" : @"Grüße ä 😀\n\"A", @"plain" : @"plain"}));
  EXPECT_OBJC_EQ(parsed("( a, b, )"), (@[ @"a", @"b" ]));
  EXPECT_OBJC_EQ(parsed("{ a = { b = c } }"), (@{@"a" : @{@"b" : @"c"}}));
  EXPECT_OBJC_EQ(parsed(" \n// nothing\n"), @{});
  EXPECT_OBJC_EQ(parsed("garbage"), @"garbage");
  NSPropertyListFormat format = 0;
  [NSPropertyListSerialization propertyListWithData:dataOf("{}") options:0 format:&format error:nullptr];
  EXPECT_EQ(format, static_cast<NSPropertyListFormat>(NSPropertyListOpenStepFormat));
}

TEST_F(PropertyListTest, MalformedOldTextIsRefused) {
  for (const std::string_view text : {"{",
                                      "(",
                                      "{ a }",
                                      "{ a = }",
                                      "{ a = b c = d; }",
                                      "( a b )",
                                      "(,)",
                                      "{ a = b; } c",
                                      "a = b; )",
                                      "\"open",
                                      "<0",
                                      "<012>",
                                      "<zz>",
                                      "/* open",
                                      "a = \"\\Ud83d\";",
                                      "two words",
                                      "a = b; c = d e",
                                      "\xff\xff",
                                      "\x01\x02",
                                      "}",
                                      "'a' = \"\\Uzz\";"}) {
    EXPECT_OBJC_EQ(parsed(text), nil) << text;
  }
}

TEST_F(PropertyListTest, UTF16TextIsRead) {
  NSString *xml = @"<plist><string>Größe 😀</string></plist>";
  for (const auto encoding : {NSUTF16BigEndianStringEncoding, NSUTF16LittleEndianStringEncoding}) {
    NSMutableData *data = [NSMutableData data];
    [data appendBytes:encoding == NSUTF16BigEndianStringEncoding ? "\xfe\xff" : "\xff\xfe" length:2];
    [data appendData:[xml dataUsingEncoding:encoding]];
    EXPECT_OBJC_EQ(parsed(textOf(data)), @"Größe 😀");
    [data setLength:[data length] - 1];
    EXPECT_OBJC_EQ(parsed(textOf(data)), nil);
  }
}

TEST_F(PropertyListTest, NothingIsNotAPropertyList) {
  NSError *error = nil;
  EXPECT_OBJC_EQ([NSPropertyListSerialization propertyListWithData:nil options:0 format:nullptr error:&error], nil);
  EXPECT_EQ([error code], 3840);
  EXPECT_OBJC_EQ(parsed(""), nil);
}

TEST_F(PropertyListTest, MutabilityIsAsAsked) {
  const auto document = wrapped("<dict><key>a</key><array><string>b</string><data/></array></dict>");
  NSDictionary *fixed = parsed(document);
  EXPECT_FALSE([fixed isKindOfClass:[NSMutableDictionary class]]);
  EXPECT_FALSE([[fixed objectForKey:@"a"] isKindOfClass:[NSMutableArray class]]);
  NSMutableDictionary *containers = parsed(document, NSPropertyListMutableContainers);
  NSMutableArray *array = [containers objectForKey:@"a"];
  [containers setObject:@1 forKey:@"n"];
  [array addObject:@2];
  EXPECT_EQ([array count], 3u);
  EXPECT_FALSE([[array objectAtIndex:0] isKindOfClass:[NSMutableString class]]);
  array = [parsed(document, NSPropertyListMutableContainersAndLeaves) objectForKey:@"a"];
  [[array objectAtIndex:0] appendString:@"c"];
  EXPECT_OBJC_EQ([array objectAtIndex:0], @"bc");
  EXPECT_TRUE([[array objectAtIndex:1] isKindOfClass:[NSMutableData class]]);
}

TEST_F(PropertyListTest, TheFormatIsReported) {
  for (const auto format : kFormats) {
    NSPropertyListFormat found = 0;
    [NSPropertyListSerialization propertyListWithData:encoded(@[], format) options:0 format:&found error:nullptr];
    EXPECT_EQ(found, format);
  }
}

TEST_F(PropertyListTest, DatesBeyondTheFormatAreRefusedInXML) {
  NSDate *far = [NSDate dateWithTimeIntervalSinceReferenceDate:1e15];
  EXPECT_OBJC_EQ(encoded(@[ far ], NSPropertyListXMLFormat_v1_0), nil);
  EXPECT_OBJC_EQ(copied(@[ far ], NSPropertyListBinaryFormat_v1_0), @[ far ]);
}

TEST_F(PropertyListTest, ADateThatIsNoPointInTimeIsRefused) {
  std::string document("bplist00\x33\x7f\xf8\0\0\0\0\0\0\x08", 18);
  document.append(std::string("\0\0\0\0\0\0\x01\x01", 8));                                   // Sizes.
  document.append(std::string("\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x11", 24));  // Count, root, offsets.
  NSData *data = [NSData dataWithBytes:document.data() length:document.size()];
  EXPECT_OBJC_EQ([NSPropertyListSerialization propertyListWithData:data options:0 format:nullptr error:nullptr], nil);
}

}  // namespace
