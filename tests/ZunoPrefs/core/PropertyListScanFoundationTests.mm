// Scans of random and of damaged property lists, compared with what Foundation reads.
#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include <string>

#include "ZunoPrefs/core/PropertyListScanSamples.hpp"
#include "support/objc/ObjCTest.h"

namespace {

using namespace testing_support;
using Outcome = zuno::PropertyListScan::Outcome;

class PropertyListScanFoundationTest : public ObjCTest {
 protected:
  static NSString *string(std::string_view text) {
    return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding] autorelease];
  }

  /// The dictionary in `document`; nil when it holds none.
  static NSDictionary *dictionary(const std::string &document) {
    NSData *data = [NSData dataWithBytes:document.data() length:document.size()];
    id root = [NSPropertyListSerialization propertyListWithData:data options:0 format:nullptr error:nullptr];
    return [root isKindOfClass:[NSDictionary class]] ? root : nil;
  }

  static bool agrees(NSDictionary *contents, const std::string &key, const zuno::PropertyListScan &scan) {
    if (!contents) return false;
    id value = [contents objectForKey:string(key)];
    if (scan.outcome == Outcome::kAbsent) return !value;
    return value && std::visit([value](const auto &scanned) { return isSame(value, scanned); }, scan.value);
  }

 private:
  static bool isTruth(id value) { return [value isKindOfClass:[[NSNumber numberWithBool:YES] class]]; }
  static bool isSame(id value, std::string_view text) { return [value isEqual:string(text)]; }
  static bool isSame(id value, const std::string &text) { return [value isEqual:string(text)]; }
  static bool isSame(id value, bool truth) { return isTruth(value) && [value boolValue] == truth; }
  template <typename Number>
  static bool isSame(id value, Number number) {
    return !isTruth(value) && [value isKindOfClass:[NSNumber class]] && [value isEqual:@(number)];
  }
};

TEST_F(PropertyListScanFoundationTest, FindsWhatFoundationReads) {
  Random random(7);
  for (int i = 0; i < 1500; ++i) {
    const auto sample = randomSample(random);
    const GuardedCopy copy(sample.document);
    NSDictionary *contents = dictionary(sample.document);
    for (const auto &[key, expected] : sample.expectations) {
      const auto scan = copy.scan(key);
      ASSERT_EQ(scan, expected) << key << " in document " << i << "\n" << sample.document;
      if (scan.outcome != Outcome::kUndecided) {
        ASSERT_TRUE(agrees(contents, key, scan)) << key << " in document " << i << "\n" << sample.document;
      }
    }
    drainPool();
  }
}

TEST_F(PropertyListScanFoundationTest, DecidesNothingThatFoundationRefuses) {
  Random random(8);
  int decided = 0, refused = 0;
  for (int i = 0; i < 20'000; ++i) {
    const auto sample = randomSample(random);
    const auto document = damaged(sample.document, random);
    const GuardedCopy copy(document);
    NSDictionary *contents = dictionary(document);
    refused += !contents;
    for (const auto &[key, expected] : sample.expectations) {
      const auto scan = copy.scan(key);
      if (scan.outcome == Outcome::kUndecided) continue;
      ++decided;
      ASSERT_TRUE(agrees(contents, key, scan))
          << key << " in document " << i << ": " << ::testing::PrintToString(scan) << "\n"
          << document;
    }
    drainPool();
  }
  // The changes must leave both kinds, or the comparison would show nothing.
  EXPECT_GT(decided, 10'000);
  EXPECT_GT(refused, 5'000);
}

}  // namespace
