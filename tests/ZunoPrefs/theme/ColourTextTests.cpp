#include "theme/ColourText.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using zuno::Colour;
using zuno::colourText;
using zuno::parseColour;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(ColourText, SixDigitsAreAnOpaqueColour) {
  EXPECT_EQ(parseColour("FF8000"), (Colour{1, 128 / 255.0, 0, 1}));
  EXPECT_EQ(parseColour("000000"), (Colour{0, 0, 0, 1}));
}

TEST(ColourText, EightDigitsHaveTheOpacityLast) {
  EXPECT_EQ(parseColour("0000FF33"), (Colour{0, 0, 1, 51 / 255.0}));
  EXPECT_EQ(parseColour("00000000"), (Colour{0, 0, 0, 0}));
}

TEST(ColourText, CaseDoesNotMatter) {
  EXPECT_EQ(parseColour("abcdef"), parseColour("ABCDEF"));
  EXPECT_EQ(parseColour("aBcDeF0f"), parseColour("AbCdEf0F"));
}

TEST(ColourText, EverythingElseIsNoColour) {
  for (const char* text :
       {"",         "F",       "FF",      "FFF",     "FFFF",     "FFFFF",  "FFFFFFF", "FFFFFFFFF",
        "#FFFFFF",  "#FFFFF",  " FFFFFF", "FFFFFF ", "FFFFF\n",  "0xFFFF", "GGGGGG",  "@@@@@@",
        "``````",   "//////",  "::::::",  "gggggg",  "F F F F ", "+1+1+1", "red",     "\xef\xbc\x91\xef\xbc\x91",
        "FFFFFFFG", "FFFFFFGF"}) {
    EXPECT_FALSE(parseColour(text)) << text;
  }
  EXPECT_FALSE(parseColour(std::string_view("FFFFF\0", 6)));
  EXPECT_FALSE(parseColour(std::string(1 << 20, 'F')));
}

TEST(ColourText, EveryByteComesBackAsItWas) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  for (unsigned byte = 0; byte < 256; ++byte) {
    const std::string two = {digits[byte / 16], digits[byte % 16]};
    const std::string text = two + two + two;
    const auto opaque = parseColour(text);
    ASSERT_TRUE(opaque) << text;
    EXPECT_EQ(colourText(*opaque), text);

    const auto clear = parseColour("123456" + two);
    ASSERT_TRUE(clear) << two;
    EXPECT_EQ(colourText(*clear), byte == 255 ? "123456" : "123456" + two);
  }
}

TEST(ColourText, PartsAreRoundedToEightBits) {
  EXPECT_EQ(colourText({0.5 / 255, 0.49 / 255, 254.5 / 255, 1}), "0100FF");
  EXPECT_EQ(colourText({127.4 / 255, 127.6 / 255, 254.4 / 255, 1}), "7F80FE");
}

TEST(ColourText, WhatIsOpaqueToEightBitsHasNoOpacity) {
  EXPECT_EQ(colourText({1, 1, 1, 254.6 / 255}), "FFFFFF");
  EXPECT_EQ(colourText({1, 1, 1, 254.4 / 255}), "FFFFFFFE");
  EXPECT_EQ(colourText({0, 0, 0, 0}), "00000000");
}

TEST(ColourText, PartsOutOfRangeAreBroughtIntoIt) {
  EXPECT_EQ(colourText({1.3, -0.2, 0.5, 2}), "FF0080");
  EXPECT_EQ(colourText({kInfinity, -kInfinity, 1e300, -1}), "FF00FF00");
  EXPECT_EQ(colourText({kNoNumber, 1, 1, 1}), "00FFFF");
  EXPECT_EQ(colourText({1, 1, 1, kNoNumber}), "FFFFFF00");
}

}  // namespace
