// UTF-8: what is, what is mended and cut, and the way to UTF-16 and back.
#include "base/UTF8.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <span>
#include <string>
#include <string_view>

namespace {

using sim::beginningOf;
using sim::isUTF8;
using sim::repairedUTF8;

constexpr char32_t kHighest = 0x10ffff;

bool isSurrogate(char32_t code) { return code >= 0xd800 && code < 0xe000; }

std::string textOf(char32_t code) {
  std::string text;
  sim::appendUTF8(text, code);
  return text;
}

std::string bigEndian(std::u16string_view units) {
  std::string bytes;
  for (const char16_t unit : units) bytes += {static_cast<char>(unit >> 8), static_cast<char>(unit)};
  return bytes;
}

auto decoded(std::string_view bytes, std::endian order = std::endian::big) {
  return sim::utf8FromUTF16(std::as_bytes(std::span(bytes)), order);
}

TEST(UTF8Tests, EveryCharacterIsTextAndGoesToUTF16AndBack) {
  std::string all;
  for (char32_t code = 0; code <= kHighest; code += code < 0x3000 || code > 0xd000 ? 1 : 7) {
    if (code >= 0x10100 && code < 0x10ff00) code = 0x10ff00;
    std::string text;
    EXPECT_EQ(sim::appendUTF8(text, code), !isSurrogate(code)) << std::hex << static_cast<unsigned>(code);
    all += text;
  }
  EXPECT_TRUE(isUTF8(all));
  EXPECT_EQ(repairedUTF8(all), all);
  const std::u16string units = sim::utf16FromUTF8(all);
  EXPECT_EQ(units.size(), sim::utf16Length(all));
  EXPECT_EQ(decoded(bigEndian(units)), all);
  std::string text = "untouched";
  EXPECT_FALSE(sim::appendUTF8(text, kHighest + 1));
  EXPECT_FALSE(sim::appendUTF8(text, 0xdfff));
  EXPECT_EQ(text, "untouched");
}

TEST(UTF8Tests, SurrogatePairsAreTheOnesOfTheStandard) {
  EXPECT_EQ(sim::utf16FromUTF8("a\u00e4\u20ac\U0001f600\U0010ffff"), u"a\u00e4\u20ac\xd83d\xde00\xdbff\xdfff");
  EXPECT_EQ(sim::utf16FromUTF8(textOf(0xffff) + textOf(0x10000)), u"\xffff\xd800\xdc00");
}

TEST(UTF8Tests, WhatIsNoneIsToldWhereverItStands) {
  for (const std::string bytes :
       {"\x80", "\xc0\xaf", "\xc1\xbf", "\xc3", "\xc3(", "\xe0\x9f\xbf", "\xed\xa0\x80", "\xed\xbf\xbf", "\xe2\x82",
        "\xe2(\x82", "\xf0\x8f\xbf\xbf", "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xf0\x9f\x98", "\xfe", "\xff"}) {
    for (std::size_t before = 0; before < 18; ++before) {
      const std::string text = std::string(before, 'a') + bytes + std::string(9, 'b');
      EXPECT_FALSE(isUTF8(text)) << before;
      EXPECT_TRUE(isUTF8(repairedUTF8(text)));
    }
    EXPECT_FALSE(isUTF8(bytes));
  }
  EXPECT_TRUE(isUTF8(""));
}

TEST(UTF8Tests, EachByteThatBelongsToNoCharacterIsReplaced) {
  EXPECT_EQ(repairedUTF8("a\xff\u00e4\xe2\x82z"), "a\ufffd\u00e4\ufffd\ufffdz");
  EXPECT_EQ(repairedUTF8(""), "");
}

TEST(UTF8Tests, ABeginningCutsNoCharacterInTwo) {
  const std::string text = "a\u00e4\u20ac\U0001f600";  // 1, 2, 3 and 4 bytes.
  const std::size_t sizes[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10};
  for (std::size_t longest = 0; longest < std::size(sizes); ++longest)
    EXPECT_EQ(beginningOf(text, longest), text.substr(0, sizes[longest])) << longest;
}

TEST(UTF8Tests, TheLengthIsInUTF16Units) {
  EXPECT_EQ(sim::utf16Length(""), 0u);
  EXPECT_EQ(sim::utf16Length("a\u00e4\u20ac\U0001f600"), 5u);
}

TEST(UTF8Tests, HalvesOfPairsAreNoText) {
  for (const std::u16string units : {u"\xd83d", u"\xde00", u"\xd83d\x61", u"\xd83d\xd83d\xde00", u"\xde00\xd83d"})
    EXPECT_EQ(decoded(bigEndian(units)), std::nullopt);
  EXPECT_EQ(decoded(std::string("a")), std::nullopt);
}

TEST(UTF8Tests, LongTextsComeInPieces) {
  for (const std::size_t before : {510, 511, 512, 513, 1'023}) {
    const std::string text = std::string(before, 'a') + "\U0001f600\u00e4";
    EXPECT_EQ(decoded(bigEndian(sim::utf16FromUTF8(text))), text) << "a pair may lie across two of them";
    EXPECT_EQ(decoded(bigEndian(sim::utf16FromUTF8(text)) + "\xd8\x3d"), std::nullopt);
  }
}

TEST(UTF8Tests, AByteOrderMarkNamesTheOrder) {
  const auto order = [](std::string_view bytes) { return sim::byteOrderMark(std::as_bytes(std::span(bytes))); };
  EXPECT_EQ(order("\xfe\xff"), std::endian::big);
  EXPECT_EQ(order("\xff\xfe"), std::endian::little);
  for (const std::string_view none : {"", "\xfe", "\xff\xff", "\xfe\xfe", "ab"}) EXPECT_EQ(order(none), std::nullopt);
  EXPECT_EQ(decoded(std::string_view("a\0", 2), std::endian::little), "a");
}

}  // namespace
