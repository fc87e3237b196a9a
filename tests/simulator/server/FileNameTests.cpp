// Names of files in a header: which are names, and which lead anywhere else.
#include "server/FileName.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using sim::decodedFileName;

TEST(FileNameTests, NamesAreDecoded) {
  EXPECT_EQ(decodedFileName("Dark.plist"), "Dark.plist");
  EXPECT_EQ(decodedFileName("a%20b%2Ec"), "a b.c");
  EXPECT_EQ(decodedFileName("a b"), "a b");
  EXPECT_EQ(decodedFileName("%c3%A9%F0%9F%8E%89"), "\u00E9\U0001F389");
  EXPECT_EQ(decodedFileName("\u00E9"), "\u00E9");
  EXPECT_EQ(decodedFileName("%25"), "%");
  EXPECT_EQ(decodedFileName("..."), "...");
  EXPECT_EQ(decodedFileName(".hidden"), ".hidden");
  EXPECT_EQ(decodedFileName("a\\b\"c"), "a\\b\"c");
}

TEST(FileNameTests, WhatIsNoNameInAFolderIsNone) {
  for (const char* text : {"", ".", "..", "%2e%2e", "/", "a/b", "a%2Fb", "..%2Fa", "%2E%2E%2F", "/etc/passwd", "%00",
                           "a%00b", "a%0Ab", "a%7F", "%C2%85", "%1F"})
    EXPECT_EQ(decodedFileName(text), std::nullopt) << text;
}

TEST(FileNameTests, BytesThatAreNoTextAreNone) {
  for (const char* text : {"%FF", "%C3", "%C3%28", "%ED%A0%80", "%C0%AF", "%F5%80%80%80", "\xFF", "a%E2%82"})
    EXPECT_EQ(decodedFileName(text), std::nullopt) << text;
}

TEST(FileNameTests, APercentSignNeedsItsDigits) {
  for (const char* text : {"%", "%4", "a%", "%4g", "%g4", "%+1", "% 1", "%-1", "%0x", "100%"})
    EXPECT_EQ(decodedFileName(text), std::nullopt) << text;
}

TEST(FileNameTests, NamesHaveAtMost255Bytes) {
  EXPECT_EQ(decodedFileName(std::string(255, 'a')), std::string(255, 'a'));
  EXPECT_EQ(decodedFileName(std::string(256, 'a')), std::nullopt);
  std::string escaped;
  for (int i = 0; i < 255; ++i) escaped += "%61";
  EXPECT_EQ(decodedFileName(escaped), std::string(255, 'a'));
  EXPECT_EQ(decodedFileName(escaped + "%61"), std::nullopt);
}

}  // namespace
