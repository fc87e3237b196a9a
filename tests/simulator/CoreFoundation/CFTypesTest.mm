// CoreFoundation's strings, collections, numbers and the rest, which are Foundation's.
#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <objcxx/Retained.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <string>

namespace {

class CFTypesTest : public ObjCTest {};

/// Ends what a function with Create or Copy in its name gave, later.
template <typename Ref>
Ref lent(Ref object) {
  if (object) CFAutorelease(object);
  return object;
}

TEST_F(CFTypesTest, StringsAreMadeOfBytesOfAnEncoding) {
  EXPECT_OBJC_EQ((NSString *)lent(CFStringCreateWithCString(nullptr, "Größe", kCFStringEncodingUTF8)), @"Größe");
  EXPECT_OBJC_EQ((NSString *)lent(CFStringCreateWithCString(nullptr,
                                                            "Gr\xf6\xdf"
                                                            "e",
                                                            kCFStringEncodingISOLatin1)),
                 @"Größe");
  EXPECT_EQ(CFStringCreateWithCString(nullptr, "\xff", kCFStringEncodingUTF8), nullptr);
  EXPECT_EQ(CFStringCreateWithCString(nullptr, "a", 0x7777), nullptr);
  const UniChar units[] = {'a', 0xd83d, 0xde00};
  EXPECT_OBJC_EQ((NSString *)lent(CFStringCreateWithCharacters(nullptr, units, 3)), @"a😀");
  EXPECT_OBJC_EQ((NSString *)lent(CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%@ %d"), @"a", 3)), @"a 3");
}

TEST_F(CFTypesTest, StringsGiveTheirText) {
  char buffer[8];
  EXPECT_TRUE(CFStringGetCString(CFSTR("Größe"), buffer, sizeof buffer, kCFStringEncodingUTF8));
  EXPECT_STREQ(buffer, "Größe");
  EXPECT_FALSE(CFStringGetCString(CFSTR("Größe"), buffer, 7, kCFStringEncodingUTF8)) << "The zero does not fit.";
  EXPECT_FALSE(CFStringGetCString(CFSTR("Größe"), buffer, sizeof buffer, kCFStringEncodingASCII));
  EXPECT_STREQ(CFStringGetCStringPtr(CFSTR("plain"), kCFStringEncodingUTF8), "plain");
  EXPECT_EQ(CFStringGetCStringPtr(CFSTR("ö"), kCFStringEncodingUTF8), nullptr);
  EXPECT_EQ(CFStringGetLength(CFSTR("a😀")), 3);
  EXPECT_EQ(CFStringGetCharacterAtIndex(CFSTR("abc"), 1), 'b');
  EXPECT_GE(CFStringGetMaximumSizeForEncoding(3, kCFStringEncodingUTF8), 9);
  CFDataRef data = lent(CFStringCreateExternalRepresentation(nullptr, CFSTR("ö"), kCFStringEncodingUTF8, 0));
  EXPECT_EQ(CFDataGetLength(data), 2);
  EXPECT_OBJC_EQ((NSString *)lent(CFStringCreateFromExternalRepresentation(nullptr, data, kCFStringEncodingUTF8)),
                 @"ö");
  EXPECT_EQ(CFStringConvertEncodingToNSStringEncoding(kCFStringEncodingUTF8), NSUTF8StringEncoding);
  EXPECT_EQ(CFStringConvertNSStringEncodingToEncoding(NSASCIIStringEncoding), kCFStringEncodingASCII);
}

TEST_F(CFTypesTest, StringsAreComparedAndSearched) {
  const auto none = CFStringCompareFlags(0);
  EXPECT_EQ(CFStringCompare(CFSTR("a"), CFSTR("b"), none), kCFCompareLessThan);
  EXPECT_EQ(CFStringCompare(CFSTR("B"), CFSTR("b"), kCFCompareCaseInsensitive), kCFCompareEqualTo);
  EXPECT_EQ(CFStringCompare(CFSTR("a10"), CFSTR("a9"), kCFCompareNumerically), kCFCompareGreaterThan);
  EXPECT_TRUE(CFStringHasPrefix(CFSTR("abc"), CFSTR("ab")));
  EXPECT_FALSE(CFStringHasSuffix(CFSTR("abc"), CFSTR("ab")));
  const CFRange last = CFStringFind(CFSTR("abcabc"), CFSTR("bc"), kCFCompareBackwards);
  EXPECT_EQ(last.location, 4);
  EXPECT_EQ(last.length, 2);
  EXPECT_EQ(CFStringFind(CFSTR("abc"), CFSTR("x"), none).location, kCFNotFound);
  EXPECT_EQ(CFStringGetIntValue(CFSTR("12 apples")), 12);
  EXPECT_EQ(CFStringGetDoubleValue(CFSTR("1.5")), 1.5);
  CFArrayRef parts = lent(CFStringCreateArrayBySeparatingStrings(nullptr, CFSTR("a,b"), CFSTR(",")));
  EXPECT_OBJC_EQ((NSArray *)parts, (@[ @"a", @"b" ]));
  EXPECT_OBJC_EQ((NSString *)lent(CFStringCreateByCombiningStrings(nullptr, parts, CFSTR("+"))), @"a+b");
  EXPECT_OBJC_EQ((NSString *)lent(CFStringCreateWithSubstring(nullptr, CFSTR("abcd"), CFRangeMake(1, 2))), @"bc");
}

TEST_F(CFTypesTest, MutableStringsChange) {
  CFMutableStringRef text = lent(CFStringCreateMutable(nullptr, 0));
  CFStringAppend(text, CFSTR(" One"));
  CFStringAppendCString(text, " two", kCFStringEncodingUTF8);
  CFStringAppendFormat(text, nullptr, CFSTR(" %d "), 3);
  const UniChar unit = '!';
  CFStringAppendCharacters(text, &unit, 1);
  EXPECT_OBJC_EQ((NSString *)text, @" One two 3 !");
  CFStringDelete(text, CFRangeMake(10, 1));
  CFStringInsert(text, 0, CFSTR("\n"));
  CFStringTrimWhitespace(text);
  EXPECT_OBJC_EQ((NSString *)text, @"One two 3!");
  EXPECT_EQ(CFStringFindAndReplace(text, CFSTR("o"), CFSTR("0"), CFRangeMake(0, 10), kCFCompareCaseInsensitive), 2);
  EXPECT_OBJC_EQ((NSString *)text, @"0ne tw0 3!");
  CFStringReplace(text, CFRangeMake(0, 3), CFSTR("x"));
  CFStringUppercase(text, nullptr);
  EXPECT_OBJC_EQ((NSString *)text, @"X TW0 3!");
  CFStringLowercase(text, nullptr);
  EXPECT_OBJC_EQ((NSString *)text, @"x tw0 3!");
  CFMutableStringRef copy = lent(CFStringCreateMutableCopy(nullptr, 0, text));
  CFStringReplaceAll(text, CFSTR("new"));
  EXPECT_OBJC_EQ((NSString *)copy, @"x tw0 3!");
  EXPECT_OBJC_EQ((NSString *)text, @"new");
}

void sum(const void *value, void *context) { *static_cast<int *>(context) += [(NSNumber *)(id)value intValue]; }
CFComparisonResult descending(const void *one, const void *other, void *) {
  return CFNumberCompare((CFNumberRef)other, (CFNumberRef)one, nullptr);
}

TEST_F(CFTypesTest, ArraysHoldObjects) {
  const void *values[] = { @3, @1, @2 };
  CFArrayRef array = lent(CFArrayCreate(nullptr, values, 3, &kCFTypeArrayCallBacks));
  EXPECT_OBJC_EQ((NSArray *)array, (@[ @3, @1, @2 ]));
  EXPECT_EQ(CFGetTypeID(array), CFArrayGetTypeID());
  EXPECT_EQ(CFArrayGetCount(array), 3);
  EXPECT_OBJC_EQ((id)CFArrayGetValueAtIndex(array, 1), @1);
  const CFRange all = CFRangeMake(0, 3);
  EXPECT_TRUE(CFArrayContainsValue(array, all, @2));
  EXPECT_FALSE(CFArrayContainsValue(array, CFRangeMake(0, 2), @2));
  EXPECT_EQ(CFArrayGetFirstIndexOfValue(array, all, @2), 2);
  EXPECT_EQ(CFArrayGetFirstIndexOfValue(array, all, @9), kCFNotFound);
  int total = 0;
  CFArrayApplyFunction(array, all, sum, &total);
  EXPECT_EQ(total, 6);

  CFMutableArrayRef other = lent(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
  CFArrayAppendArray(other, array, all);
  CFArraySortValues(other, all, descending, nullptr);
  EXPECT_OBJC_EQ((NSArray *)other, (@[ @3, @2, @1 ]));
  CFArrayAppendValue(other, @"end");
  CFArrayInsertValueAtIndex(other, 0, @"begin");
  CFArraySetValueAtIndex(other, 1, @"set");
  CFArraySetValueAtIndex(other, 5, @"after");
  CFArrayRemoveValueAtIndex(other, 2);
  EXPECT_OBJC_EQ((NSArray *)other, (@[ @"begin", @"set", @1, @"end", @"after" ]));
  CFArrayRemoveAllValues(other);
  EXPECT_EQ(CFArrayGetCount(other), 0);
}

void join(const void *key, const void *value, void *context) {
  static_cast<std::string *>(context)
      ->append([(NSString *)(id)key UTF8String])
      .append([(NSString *)(id)value UTF8String]);
}

TEST_F(CFTypesTest, DictionariesHoldObjects) {
  CFMutableDictionaryRef dictionary =
      lent(CFDictionaryCreateMutable(nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
  EXPECT_EQ(CFGetTypeID(dictionary), CFDictionaryGetTypeID());
  CFDictionarySetValue(dictionary, CFSTR("k"), CFSTR("v"));
  CFDictionaryAddValue(dictionary, CFSTR("k"), CFSTR("not"));
  CFDictionaryReplaceValue(dictionary, CFSTR("missing"), CFSTR("not"));
  EXPECT_OBJC_EQ((NSDictionary *)dictionary, @{@"k" : @"v"});
  CFDictionaryReplaceValue(dictionary, CFSTR("k"), CFSTR("w"));
  std::string text;
  CFDictionaryApplyFunction(dictionary, join, &text);
  EXPECT_EQ(text, "kw");
  const void *value = nullptr, *keys[1], *values[1];
  EXPECT_TRUE(CFDictionaryGetValueIfPresent(dictionary, CFSTR("k"), &value));
  EXPECT_OBJC_EQ((id)value, @"w");
  EXPECT_FALSE(CFDictionaryGetValueIfPresent(dictionary, CFSTR("x"), nullptr));
  CFDictionaryGetKeysAndValues(dictionary, keys, values);
  EXPECT_OBJC_EQ((id)keys[0], @"k");
  EXPECT_OBJC_EQ((id)values[0], @"w");
  EXPECT_TRUE(CFDictionaryContainsKey(dictionary, CFSTR("k")));
  EXPECT_TRUE(CFDictionaryContainsValue(dictionary, CFSTR("w")));
  CFDictionaryRef same = lent(
      CFDictionaryCreate(nullptr, keys, values, 1, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
  EXPECT_TRUE(CFEqual(same, dictionary));
  CFDictionaryRemoveValue(dictionary, CFSTR("k"));
  EXPECT_EQ(CFDictionaryGetCount(dictionary), 0);
  EXPECT_EQ(CFDictionaryGetCount(same), 1);
}

using CFTypesDeathTest = CFTypesTest;

TEST_F(CFTypesDeathTest, CollectionsOfOtherThingsThanObjectsEndTheProcess) {
  EXPECT_DEATH(CFArrayCreateMutable(nullptr, 0, nullptr), "CFArrayCreateMutable: only call-backs");
  EXPECT_DEATH(CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr), "CFDictionaryCreateMutable: only call-backs");
}

TEST_F(CFTypesTest, NumbersAreOfATypeAndTellWhatIsLost) {
  const int number = 300;
  const double fraction = 1.5;
  CFNumberRef whole = lent(CFNumberCreate(nullptr, kCFNumberIntType, &number));
  CFNumberRef part = lent(CFNumberCreate(nullptr, kCFNumberDoubleType, &fraction));
  EXPECT_OBJC_EQ((NSNumber *)whole, @300);
  EXPECT_FALSE(CFNumberIsFloatType(whole));
  EXPECT_TRUE(CFNumberIsFloatType(part));
  std::int64_t wide = 0;
  std::int8_t narrow = 0;
  double real = 0;
  EXPECT_TRUE(CFNumberGetValue(whole, kCFNumberSInt64Type, &wide));
  EXPECT_EQ(wide, 300);
  EXPECT_FALSE(CFNumberGetValue(whole, kCFNumberCharType, &narrow));
  EXPECT_TRUE(CFNumberGetValue(part, kCFNumberFloat64Type, &real));
  EXPECT_EQ(real, 1.5);
  EXPECT_FALSE(CFNumberGetValue(part, kCFNumberNSIntegerType, &wide));
  EXPECT_EQ(wide, 1);
  EXPECT_EQ(CFNumberCreate(nullptr, static_cast<CFNumberType>(99), &number), nullptr);
  EXPECT_EQ(CFNumberCompare(part, whole, nullptr), kCFCompareLessThan);
}

TEST_F(CFTypesTest, ConstantsAreObjects) {
  EXPECT_OBJC_EQ((NSNumber *)kCFBooleanTrue, @(YES));
  EXPECT_TRUE(CFBooleanGetValue(kCFBooleanTrue));
  EXPECT_FALSE(CFBooleanGetValue(kCFBooleanFalse));
  EXPECT_EQ(CFGetTypeID(kCFBooleanFalse), CFBooleanGetTypeID());
  EXPECT_EQ((id)kCFNull, [NSNull null]);
  EXPECT_EQ(CFGetTypeID(kCFNull), CFNullGetTypeID());
  EXPECT_GE(kCFCoreFoundationVersionNumber, 1946) << "of iOS 16.0";
  EXPECT_LT(kCFCoreFoundationVersionNumber, 2000) << "of iOS 17.0";
}

TEST_F(CFTypesTest, ErrorsAreErrors) {
  const void *keys[] = {kCFErrorLocalizedDescriptionKey, kCFErrorLocalizedFailureReasonKey};
  const void *values[] = {@"what", @"why"};
  CFErrorRef error = (CFErrorRef)lent(CFErrorCreateWithUserInfoKeysAndValues(nullptr, CFSTR("d"), 7, keys, values, 2));
  EXPECT_EQ(CFGetTypeID(error), CFErrorGetTypeID());
  EXPECT_EQ([(NSError *)error code], 7);
  EXPECT_EQ(CFErrorGetCode(error), 7);
  EXPECT_OBJC_EQ((NSString *)CFErrorGetDomain(error), @"d");
  EXPECT_OBJC_EQ((NSString *)lent(CFErrorCopyDescription(error)), @"what");
  EXPECT_OBJC_EQ((NSString *)lent(CFErrorCopyFailureReason(error)), @"why");
  EXPECT_EQ(CFErrorCopyRecoverySuggestion(error), nullptr);
  EXPECT_EQ(CFDictionaryGetCount(lent(CFErrorCopyUserInfo(error))), 2);
  EXPECT_OBJC_EQ((NSString *)kCFErrorLocalizedDescriptionKey, NSLocalizedDescriptionKey);
  EXPECT_OBJC_EQ((NSString *)kCFErrorDomainCocoa, NSCocoaErrorDomain);
}

TEST_F(CFTypesTest, AddressesDatesAndIdentifiers) {
  CFURLRef url = lent(CFURLCreateWithString(nullptr, CFSTR("https://example.com/a/b.png"), nullptr));
  EXPECT_OBJC_EQ((NSString *)CFURLGetString(url), @"https://example.com/a/b.png");
  EXPECT_OBJC_EQ((NSString *)lent(CFURLCopyScheme(url)), @"https");
  EXPECT_OBJC_EQ((NSString *)lent(CFURLCopyHostName(url)), @"example.com");
  EXPECT_OBJC_EQ((NSString *)lent(CFURLCopyPath(url)), @"/a/b.png");
  EXPECT_OBJC_EQ((NSString *)lent(CFURLCopyLastPathComponent(url)), @"b.png");
  EXPECT_OBJC_EQ((NSString *)lent(CFURLCopyPathExtension(url)), @"png");
  CFURLRef folder = lent(CFURLCreateWithFileSystemPath(nullptr, CFSTR("/a b"), kCFURLPOSIXPathStyle, true));
  CFURLRef file = lent(CFURLCreateCopyAppendingPathComponent(nullptr, folder, CFSTR("c"), false));
  EXPECT_OBJC_EQ((NSString *)lent(CFURLCopyFileSystemPath(file, kCFURLPOSIXPathStyle)), @"/a b/c");
  EXPECT_EQ(CFURLCopyPathExtension(file), nullptr);
  EXPECT_OBJC_EQ((NSString *)lent(CFURLCopyPath(lent(CFURLCreateCopyDeletingLastPathComponent(nullptr, file)))),
                 @"/a b");
  CFDateRef date = lent(CFDateCreate(nullptr, 5));
  EXPECT_EQ(CFDateGetAbsoluteTime(date), 5);
  EXPECT_NEAR(CFAbsoluteTimeGetCurrent(), [[NSDate date] timeIntervalSinceReferenceDate], 60);
  CFStringRef one = lent(CFUUIDCreateString(nullptr, (CFUUIDRef)lent(CFUUIDCreate(nullptr))));
  CFStringRef other = lent(CFUUIDCreateString(nullptr, (CFUUIDRef)lent(CFUUIDCreate(nullptr))));
  EXPECT_EQ(CFStringGetLength(one), 36);
  EXPECT_FALSE(CFEqual(one, other));
}

TEST_F(CFTypesTest, PropertyListsAreBytes) {
  NSDictionary *values = @{@"k" : @[ @1, @"v" ]};
  CFErrorRef error = nullptr;
  for (const auto format : {kCFPropertyListXMLFormat_v1_0, kCFPropertyListBinaryFormat_v1_0}) {
    CFDataRef data = lent(CFPropertyListCreateData(nullptr, (CFPropertyListRef)values, format, 0, &error));
    CFPropertyListFormat read{};
    EXPECT_OBJC_EQ((id)lent(CFPropertyListCreateWithData(nullptr, data, kCFPropertyListImmutable, &read, &error)),
                   values);
    EXPECT_EQ(read, format);
  }
  EXPECT_EQ(error, nullptr);
  CFDataRef broken = (CFDataRef)[@"<plist" dataUsingEncoding:NSUTF8StringEncoding];
  EXPECT_EQ(CFPropertyListCreateWithData(nullptr, broken, 0, nullptr, &error), nullptr);
  ASSERT_NE(error, nullptr);
  EXPECT_NE(CFErrorGetCode(error), 0);
  CFRelease(error);
  EXPECT_FALSE(CFPropertyListIsValid((CFPropertyListRef) @[ [NSNull null] ], kCFPropertyListXMLFormat_v1_0));
}

struct Heard {
  int count = 0;
  objcxx::Retained<NSString> name;
  const void *object = nullptr;
  objcxx::Retained<NSDictionary> information;
};

void hear(CFNotificationCenterRef center, void *observer, CFNotificationName name, const void *object,
          CFDictionaryRef information) {
  EXPECT_EQ(center, CFNotificationCenterGetLocalCenter());
  auto &heard = *static_cast<Heard *>(observer);
  ++heard.count;
  heard.name = objcxx::share((NSString *)name);
  heard.object = object;
  heard.information = objcxx::share((NSDictionary *)information);
}

TEST_F(CFTypesTest, TheLocalCentreIsFoundationsAndSendsAtOnce) {
  CFNotificationCenterRef center = CFNotificationCenterGetLocalCenter();
  Heard heard;
  const auto observe = [&](CFStringRef name, const void *object) {
    CFNotificationCenterAddObserver(center, &heard, hear, name, object,
                                    CFNotificationSuspensionBehaviorDeliverImmediately);
  };
  observe(CFSTR("local"), nullptr);
  [[NSNotificationCenter defaultCenter] postNotificationName:@"local" object:@"sender" userInfo:@{@"k" : @1}];
  EXPECT_EQ(heard.count, 1);
  EXPECT_OBJC_EQ(heard.name.get(), @"local");
  EXPECT_OBJC_EQ((id)heard.object, @"sender");
  EXPECT_OBJC_EQ(heard.information.get(), @{@"k" : @1});
  CFNotificationCenterRemoveObserver(center, &heard, CFSTR("other"), nullptr);
  CFNotificationCenterPostNotification(center, CFSTR("local"), nullptr, nullptr, true);
  EXPECT_EQ(heard.count, 2);
  CFNotificationCenterRemoveObserver(center, &heard, CFSTR("local"), nullptr);
  CFNotificationCenterPostNotification(center, CFSTR("local"), nullptr, nullptr, true);
  EXPECT_EQ(heard.count, 2);
  NSString *sender = @"sender";
  observe(CFSTR("local"), (const void *)sender);
  CFNotificationCenterPostNotification(center, CFSTR("local"), nullptr, nullptr, true);
  EXPECT_EQ(heard.count, 2) << "of another object";
  CFNotificationCenterPostNotification(center, CFSTR("local"), (const void *)sender, nullptr, true);
  EXPECT_EQ(heard.count, 3);
  CFNotificationCenterRemoveEveryObserver(center, &heard);
  CFNotificationCenterPostNotification(center, CFSTR("local"), (const void *)sender, nullptr, true);
  EXPECT_EQ(heard.count, 3);
}

}  // namespace
