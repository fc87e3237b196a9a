#include "ObjCMatchers.h"

#include <string>

namespace {

std::string text(id object) {
  if (!object) return "nil";
  NSString *shown = [NSString stringWithFormat:@"%@ %@", [object class], object];
  return [shown UTF8String] ?: "(not printable)";
}

}  // namespace

namespace testing_support {

::testing::AssertionResult equalObjects(const char *actualText, const char *expectedText, id actual, id expected) {
  if (actual == expected || [actual isEqual:expected]) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << actualText << " is\n  " << text(actual) << "\nand " << expectedText
                                       << " is\n  " << text(expected);
}

::testing::AssertionResult differentObjects(const char *actualText, const char *otherText, id actual, id other) {
  if (actual != other && ![actual isEqual:other]) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << actualText << " and " << otherText << " are both\n  " << text(actual);
}

}  // namespace testing_support
