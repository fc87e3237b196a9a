// Comparison of Objective-C objects by -isEqual:; nil equals nil.
#pragma once

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

namespace testing_support {

/// Success when both are nil or `[actual isEqual:expected]`; the message names the expressions, classes and
/// descriptions.
::testing::AssertionResult equalObjects(const char* actualText, const char* expectedText, id actual, id expected);
::testing::AssertionResult differentObjects(const char* actualText, const char* otherText, id actual, id other);

}  // namespace testing_support

#define EXPECT_OBJC_EQ(actual, expected) EXPECT_PRED_FORMAT2(::testing_support::equalObjects, (actual), (expected))
#define ASSERT_OBJC_EQ(actual, expected) ASSERT_PRED_FORMAT2(::testing_support::equalObjects, (actual), (expected))
#define EXPECT_OBJC_NE(actual, other) EXPECT_PRED_FORMAT2(::testing_support::differentObjects, (actual), (other))
