#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <string>
#include <string_view>

namespace {

NSData *dataOf(std::string_view text) { return [NSData dataWithBytes:text.data() length:text.size()]; }

id parsed(std::string_view text, NSJSONReadingOptions options = 0, NSError **error = nullptr) {
  return [NSJSONSerialization JSONObjectWithData:dataOf(text) options:options error:error];
}

std::string written(id object, NSJSONWritingOptions options = 0) {
  NSData *data = [NSJSONSerialization dataWithJSONObject:object options:options error:nullptr];
  return {static_cast<const char *>([data bytes]), [data length]};
}

bool isBoolean(id object) { return [object class] == [[NSNumber numberWithBool:YES] class]; }

constexpr NSJSONWritingOptions kPretty = NSJSONWritingPrettyPrinted, kSorted = NSJSONWritingSortedKeys;

class JSONTest : public ObjCTest {};

TEST_F(JSONTest, EveryTypeIsRead) {
  NSDictionary *root = parsed("\n{\"text\":\"Gr\xc3\xb6\xc3\x9f"
                              "e \\ud83d\\ude00 \\/\\n\\\"\",\"list\":[1,-2,2.5,1e2],\"yes\":true,"
                              "\"no\":false,\"nothing\":null,\"\":{}} \t");
  EXPECT_OBJC_EQ([root objectForKey:@"text"], @"Größe 😀 /\n\"");
  EXPECT_OBJC_EQ([root objectForKey:@"list"], (@[ @1, @(-2), @2.5, @100.0 ]));
  EXPECT_TRUE(isBoolean([root objectForKey:@"yes"]) && [[root objectForKey:@"yes"] boolValue]);
  EXPECT_TRUE(isBoolean([root objectForKey:@"no"]) && ![[root objectForKey:@"no"] boolValue]);
  EXPECT_OBJC_EQ([root objectForKey:@"nothing"], [NSNull null]);
  EXPECT_OBJC_EQ([root objectForKey:@""], @{});
}

TEST_F(JSONTest, IntegersStayIntegers) {
  NSArray *numbers = parsed("[9007199254740993,-9223372036854775808,9223372036854775807,18446744073709551615,1.0,0]");
  EXPECT_EQ([[numbers objectAtIndex:0] longLongValue], 9007199254740993);
  EXPECT_EQ([[numbers objectAtIndex:1] longLongValue], INT64_MIN);
  EXPECT_EQ([[numbers objectAtIndex:2] longLongValue], INT64_MAX);
  EXPECT_EQ([[numbers objectAtIndex:3] unsignedLongLongValue], UINT64_MAX);
  EXPECT_EQ(*[[numbers objectAtIndex:0] objCType], 'q');
  EXPECT_EQ(*[[numbers objectAtIndex:4] objCType], 'd');
  EXPECT_FALSE(isBoolean([numbers objectAtIndex:5]));
  EXPECT_EQ(written(numbers), "[9007199254740993,-9223372036854775808,9223372036854775807,18446744073709551615,1,0]");
}

TEST_F(JSONTest, FragmentsNeedTheOption) {
  for (const std::string_view text : {"1", "\"a\"", "null", "true", " 2.5 "}) {
    NSError *error = nil;
    EXPECT_OBJC_EQ(parsed(text, 0, &error), nil) << text;
    EXPECT_EQ([error code], 3840);
    EXPECT_OBJC_EQ([error domain], NSCocoaErrorDomain);
    EXPECT_OBJC_NE(parsed(text, NSJSONReadingFragmentsAllowed), nil) << text;
  }
  EXPECT_OBJC_EQ(parsed("\"a\"", NSJSONReadingAllowFragments), @"a");
}

TEST_F(JSONTest, MalformedTextIsRefused) {
  for (const std::string_view text : {"",
                                      " ",
                                      "{",
                                      "[",
                                      "[1,]",
                                      "{\"a\":1,}",
                                      "[1 2]",
                                      "{\"a\" 1}",
                                      "{a:1}",
                                      "{'a':1}",
                                      "[1] x",
                                      "[1][2]",
                                      "[01]",
                                      "[.5]",
                                      "[1.]",
                                      "[+1]",
                                      "[NaN]",
                                      "[Infinity]",
                                      "[\"a]",
                                      "[\"\t\"]",
                                      "[\"\\x\"]",
                                      "[\"\\ud800\"]",
                                      "[\"\\udc00\"]",
                                      "[\"\xff\"]",
                                      "[\"\xed\xa0\x80\"]",
                                      "[tru]",
                                      "[//a\n1]",
                                      "[1e999]",
                                      "{\"a\":1]"}) {
    NSError *error = nil;
    EXPECT_OBJC_EQ(parsed(text, NSJSONReadingFragmentsAllowed, &error), nil) << text;
    EXPECT_EQ([error code], 3840) << text;
    EXPECT_OBJC_EQ(parsed(text, NSJSONReadingFragmentsAllowed), nil) << "without an error pointer";
  }
}

TEST_F(JSONTest, DepthIsLimited) {
  const auto nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
  EXPECT_OBJC_NE(parsed(nested(512)), nil);
  NSError *error = nil;
  EXPECT_OBJC_EQ(parsed(nested(513), 0, &error), nil);
  EXPECT_EQ([error code], 3840);
  EXPECT_OBJC_EQ(parsed(std::string(1000000, '[')), nil);
  std::string objects;
  for (int i = 0; i < 100000; ++i) objects += "{\"a\":";
  EXPECT_OBJC_EQ(parsed(objects), nil);
}

TEST_F(JSONTest, ByteOrderMarksAndUTF16AreRead) {
  NSString *text = @"{\"a\":\"ü😀\"}";
  NSDictionary *expected = @{@"a" : @"ü😀"};
  EXPECT_OBJC_EQ(parsed(std::string("\xef\xbb\xbf") + [text UTF8String]), expected);
  for (const auto encoding : {NSUTF16BigEndianStringEncoding, NSUTF16LittleEndianStringEncoding}) {
    NSData *bare = [text dataUsingEncoding:encoding];
    EXPECT_OBJC_EQ([NSJSONSerialization JSONObjectWithData:bare options:0 error:nullptr], expected);
    NSMutableData *marked = [NSMutableData data];
    [marked appendBytes:encoding == NSUTF16BigEndianStringEncoding ? "\xfe\xff" : "\xff\xfe" length:2];
    [marked appendData:bare];
    EXPECT_OBJC_EQ([NSJSONSerialization JSONObjectWithData:marked options:0 error:nullptr], expected);
  }
  EXPECT_OBJC_EQ(parsed({"[\0", 2}), nil);
  EXPECT_OBJC_EQ(parsed({"\0", 1}), nil);
}

TEST_F(JSONTest, OfEqualKeysTheLastCounts) {
  EXPECT_OBJC_EQ(parsed("{\"a\":1,\"a\":2}"), @{@"a" : @2});
}

TEST_F(JSONTest, MutabilityIsAsAsked) {
  EXPECT_FALSE([parsed("{}") isKindOfClass:[NSMutableDictionary class]]);
  EXPECT_FALSE([parsed("[]") isKindOfClass:[NSMutableArray class]]);
  NSMutableArray *array = parsed("[{}]", NSJSONReadingMutableContainers);
  [[array objectAtIndex:0] setObject:@1 forKey:@"a"];
  EXPECT_OBJC_EQ(array, (@[ @{@"a" : @1} ]));
  [[parsed("[\"a\"]", NSJSONReadingMutableLeaves) objectAtIndex:0] appendString:@"b"];
}

TEST_F(JSONTest, NilRaises) {
  EXPECT_EQ(raisedBy([] { [NSJSONSerialization JSONObjectWithData:nil options:0 error:nullptr]; }),
            "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([] { [NSJSONSerialization dataWithJSONObject:nil options:0 error:nullptr]; }),
            "NSInvalidArgumentException");
}

TEST_F(JSONTest, CompactLayout) {
  EXPECT_EQ(written(
                @{@"b" : @[ @1, @"x", @(YES), [NSNull null], @[] ],
                  @"a" : @{}},
                kSorted),
            "{\"a\":{},\"b\":[1,\"x\",true,null,[]]}");
}

TEST_F(JSONTest, PrettyLayoutIsThatOfADevice) {
  NSDictionary *root = @{@"b" : @[ @1, @{@"x" : @"y"} ], @"a" : @{}, @"c" : @[]};
  EXPECT_EQ(written(root, kPretty | kSorted), "{\n"
                                              "  \"a\" : {\n\n  },\n"
                                              "  \"b\" : [\n"
                                              "    1,\n"
                                              "    {\n"
                                              "      \"x\" : \"y\"\n"
                                              "    }\n"
                                              "  ],\n"
                                              "  \"c\" : [\n\n  ]\n"
                                              "}");
  EXPECT_EQ(written(@{}, kPretty), "{\n\n}");
}

TEST_F(JSONTest, TextIsEscapedAsOnADevice) {
  NSString *text = @"/\"\\\b\f\n\r\t\x01\x1f Größe 😀";
  EXPECT_EQ(written(@[ text ]), "[\"\\/\\\"\\\\\\b\\f\\n\\r\\t\\u0001\\u001f Größe 😀\"]");
  EXPECT_EQ(written(@[ @"a/b" ], NSJSONWritingWithoutEscapingSlashes), "[\"a/b\"]");
  EXPECT_OBJC_EQ(parsed(written(@[ text ])), @[ text ]);
}

TEST_F(JSONTest, NumbersAreWrittenExactly) {
  EXPECT_EQ(written(@[ @0.1, @(-2.5), @1e300, @(YES), @(NO), @1 ]), "[0.1,-2.5,1e+300,true,false,1]");
  for (const double value : {0.1, 1.0 / 3, 5e-324, 1.7976931348623157e308}) {
    EXPECT_EQ([[parsed(written(@[ @(value) ])) objectAtIndex:0] doubleValue], value);
  }
}

TEST_F(JSONTest, FragmentsAreWrittenWithTheOptionOnly) {
  EXPECT_EQ(written(@"a/b", NSJSONWritingFragmentsAllowed), "\"a\\/b\"");
  EXPECT_EQ(written([NSNull null], NSJSONWritingFragmentsAllowed), "null");
  EXPECT_EQ(written(@(2.5), NSJSONWritingFragmentsAllowed | kPretty), "2.5");
  EXPECT_EQ(raisedBy([] { written(@"a"); }), "NSInvalidArgumentException");
}

TEST_F(JSONTest, InvalidObjectsRaise) {
  NSMutableArray *cycle = [NSMutableArray array];
  [cycle addObject:@{@"a" : cycle}];
  NSArray *refused = @[
    @[ [NSDate date] ], @[ [NSData data] ],
    @{@1 : @2}, @[ @(NAN) ], @[ @(INFINITY) ], @[ [[[NSObject alloc] init] autorelease] ], cycle
  ];
  for (id object in refused) {
    EXPECT_FALSE([NSJSONSerialization isValidJSONObject:object]);
    EXPECT_EQ(raisedBy([=] { written(object); }), "NSInvalidArgumentException");
  }
  [cycle removeAllObjects];
  EXPECT_EQ(raisedBy([] { written([NSDate date], NSJSONWritingFragmentsAllowed); }), "NSInvalidArgumentException");
}

TEST_F(JSONTest, ValidityIsThatOfADevice) {
  EXPECT_TRUE(([NSJSONSerialization isValidJSONObject:@{@"a" : @[ @1, [NSNull null] ]}]));
  EXPECT_FALSE([NSJSONSerialization isValidJSONObject:@"a"]);
  EXPECT_FALSE([NSJSONSerialization isValidJSONObject:@1]);
  EXPECT_FALSE([NSJSONSerialization isValidJSONObject:nil]);
}

TEST_F(JSONTest, HalvesOfSurrogatePairsGiveAnError) {
  NSMutableString *text = [NSMutableString stringWithString:@"😀"];
  [text deleteCharactersInRange:NSMakeRange(0, 1)];
  NSError *error = nil;
  EXPECT_OBJC_EQ([NSJSONSerialization dataWithJSONObject:@[ text ] options:0 error:&error], nil);
  EXPECT_OBJC_EQ([error domain], NSCocoaErrorDomain);
}

TEST_F(JSONTest, StreamsAreReadAndWritten) {
  NSInputStream *input = [NSInputStream inputStreamWithData:dataOf("{\"a\":[1,2]}")];
  [input open];
  EXPECT_OBJC_EQ([NSJSONSerialization JSONObjectWithStream:input options:0 error:nullptr], (@{@"a" : @[ @1, @2 ]}));
  [input close];
  NSOutputStream *output = [NSOutputStream outputStreamToMemory];
  [output open];
  EXPECT_EQ([NSJSONSerialization writeJSONObject:@[ @1 ] toStream:output options:0 error:nullptr], 3);
  EXPECT_OBJC_EQ([output propertyForKey:NSStreamDataWrittenToMemoryStreamKey], dataOf("[1]"));
  [output close];
}

}  // namespace
