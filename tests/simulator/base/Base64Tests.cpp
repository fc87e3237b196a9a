// Base64, with the vectors of RFC 4648.
#include "base/Base64.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace {

using sim::Unknown;

std::string encoded(std::string_view bytes, std::size_t lineLength = 0, std::string_view lineEnd = {}) {
  return sim::base64Encoded(std::as_bytes(std::span(bytes)), lineLength, lineEnd);
}

std::string decoded(std::string_view text, Unknown unknown = Unknown::refuse) {
  const auto bytes = sim::base64Decoded(text, unknown);
  return bytes ? std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size()) : "(none)";
}

constexpr std::pair<std::string_view, std::string_view> kVectors[] = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
    {"\xfb\xff\xbf", "+/+/"},
};

TEST(Base64Tests, TheVectorsOfTheStandard) {
  for (const auto& [bytes, text] : kVectors) {
    EXPECT_EQ(encoded(bytes), text);
    EXPECT_EQ(decoded(text), bytes);
  }
}

TEST(Base64Tests, EveryByteReadsBackAtEveryLength) {
  std::string bytes;
  for (int i = 0; i < 600; ++i) {
    EXPECT_EQ(decoded(encoded(bytes)), bytes);
    bytes += static_cast<char>(i);
  }
}

TEST(Base64Tests, LinesHaveTheirLengthAndTheLastNoEnd) {
  EXPECT_EQ(encoded("foobar", 4, "\r\n"), "Zm9v\r\nYmFy");
  EXPECT_EQ(encoded("foobarf", 4, "|"), "Zm9v|YmFy|Zg==");
  EXPECT_EQ(encoded("", 4, "|"), "");
}

TEST(Base64Tests, OtherCharactersAreRefusedOrPassedOver) {
  for (const std::string_view text : {"Zm9v\n", " Zm9v", "Zm 9v", "Zm9v!", "Zm-v", "Zm9v\x80"}) {
    EXPECT_EQ(decoded(text), "(none)") << text;
    EXPECT_EQ(decoded(text, Unknown::ignore), text == "Zm-v" ? "(none)" : "foo") << text;
  }
}

TEST(Base64Tests, PaddingIsRightOrRefused) {
  for (const std::string_view text :
       {"Z", "Zg", "Zg=", "Zg===", "Zm8", "Zm8==", "Zm9v=", "=", "====", "=Zm9v", "Zg==Zm9v", "Z===", "Zm=8"}) {
    EXPECT_EQ(decoded(text), "(none)") << text;
    EXPECT_EQ(decoded(text, Unknown::ignore), "(none)") << text;
  }
}

TEST(Base64Tests, ATextMayComeInPiecesOfAnyLength) {
  const std::string text = encoded("any carnal pleasure.");
  for (std::size_t length = 1; length < text.size(); ++length) {
    sim::Base64Decoder decoder(text.size(), Unknown::refuse);
    for (std::size_t at = 0; at < text.size(); at += length)
      EXPECT_TRUE(decoder.append(std::string_view(text).substr(at, length)));
    EXPECT_TRUE(decoder.isComplete());
    const auto [bytes, size] = decoder.take();
    EXPECT_EQ(std::string_view(reinterpret_cast<const char*>(bytes.get()), size), "any carnal pleasure.");
  }
}

}  // namespace
