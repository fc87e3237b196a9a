#include "cells/PackageStatus.hpp"

#include <gtest/gtest.h>

namespace zuno {
namespace {

using Value = std::optional<std::string_view>;

TEST(PackageStatus, FindsTheFieldOnItsLine) {
  EXPECT_EQ(statusField("Package: a\nVersion: 1.2.3\nStatus: ok\n", "Version"), Value("1.2.3"));
  EXPECT_EQ(statusField("Version: 1.2.3", "Version"), Value("1.2.3"));
}

TEST(PackageStatus, OnlyTheFirstSeparatorSplits) {
  EXPECT_EQ(statusField("Version: 1:2.0-1", "Version"), Value("1:2.0-1"));
  EXPECT_EQ(statusField("Version: a: b: c", "Version"), Value("a: b: c"));
}

TEST(PackageStatus, ALineThatEndsAfterTheColonHasNoSeparator) {
  EXPECT_EQ(statusField("Version:\n", "Version"), Value());
  EXPECT_EQ(statusField("Version:1.0\n", "Version"), Value());
  EXPECT_EQ(statusField("Version: \n", "Version"), Value(""));
}

TEST(PackageStatus, TheLastOfSeveralCounts) {
  EXPECT_EQ(statusField("Version: 1\nVersion: 2\n", "Version"), Value("2"));
}

TEST(PackageStatus, ContinuationLinesAreOtherFields) {
  EXPECT_EQ(statusField("Description: x\n a line\n Version: stray\n", "Version"), Value());
  EXPECT_EQ(statusField("Version: 1\n Version: stray\n", "Version"), Value("1"));
}

TEST(PackageStatus, NothingInNothing) {
  EXPECT_EQ(statusField("", "Version"), Value());
  EXPECT_EQ(statusField("\n\n\n", "Version"), Value());
  EXPECT_EQ(statusField(": value", ""), Value("value"));
}

}  // namespace
}  // namespace zuno
