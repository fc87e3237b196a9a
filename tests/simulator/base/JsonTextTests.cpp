// The text builder, read back by a parser of other make.
#include "base/JsonText.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <nlohmann/json.hpp>

namespace {

using sim::JsonText;

std::string readBack(std::string_view bytes) {
  JsonText out;
  out.string(bytes);
  const auto value = nlohmann::json::parse(out.text(), nullptr, false);
  return value.is_string() ? value.get<std::string>() : "(no string) " + out.text();
}

TEST(JsonTextTest, SetsCommasAndColons) {
  JsonText out;
  out.beginObject();
  out.name("a").beginArray();
  out.endArray();
  out.name("b").beginArray();
  out.integer(-1);
  out.beginObject();
  out.endObject();
  out.string(":");
  out.string("[");
  out.string("{");
  out.flag(true);
  out.null();
  out.endArray();
  out.name("c").flag(false);
  out.endObject();
  EXPECT_EQ(out.text(), R"({"a":[],"b":[-1,{},":","[","{",true,null],"c":false})");
}

TEST(JsonTextTest, StringsOfEveryByteReadBack) {
  std::string all;
  for (int code = 0; code < 0x80; ++code) all += static_cast<char>(code);
  EXPECT_EQ(readBack(all), all);
  EXPECT_EQ(readBack("é€\xf0\x9f\x98\x80"), "é€\xf0\x9f\x98\x80");
}

TEST(JsonTextTest, BytesThatAreNoUTF8AreReplaced) {
  EXPECT_EQ(readBack("a\xff"
                     "b"),
            "a\xef\xbf\xbd"
            "b");
  EXPECT_EQ(readBack("\xc3"), "\xef\xbf\xbd");
  EXPECT_EQ(readBack("é\xed\xa0\x80"), "é\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd");  // A surrogate.
}

TEST(JsonTextTest, NumbersReadBack) {
  for (const double number : {0.0, -0.5, 0.1, 44.0, 1e300, 5e-324, 123456789.125}) {
    JsonText out;
    out.number(number);
    EXPECT_EQ(nlohmann::json::parse(out.text(), nullptr, false), number) << out.text();
  }
  JsonText out;
  out.beginArray();
  out.number(0.3f);
  out.number(std::numeric_limits<double>::infinity());
  out.number(std::numeric_limits<float>::quiet_NaN());
  out.integer(std::numeric_limits<std::int64_t>::min());
  out.natural(std::numeric_limits<std::uint64_t>::max());
  out.endArray();
  EXPECT_EQ(out.text(), "[0.3,null,null,-9223372036854775808,18446744073709551615]");
}

TEST(JsonTextTest, TruncationTakesBackWhatFollowed) {
  JsonText out;
  out.beginObject();
  out.name("a").integer(1);
  const std::size_t size = out.text().size();
  out.name("b").beginArray();
  out.truncate(size);
  out.name("c").integer(2);
  out.endObject();
  EXPECT_EQ(out.text(), R"({"a":1,"c":2})");
}

TEST(JsonTextTest, EscapesAreTheShortOnes) {
  JsonText out;
  out.string("\"\\/\b\f\n\r\t\x01\x1f\x7f");
  EXPECT_EQ(out.text(), "\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001f\x7f\"");
}

TEST(JsonTextTest, SlashesAreEscapedWhereItIsAsked) {
  JsonText out(sim::JsonFormat{.escapesSlashes = true});
  out.beginObject();
  out.name("a/b").string("/c//");
  out.endObject();
  EXPECT_EQ(out.text(), R"({"a\/b":"\/c\/\/"})");
}

TEST(JsonTextTest, APrettyTextHasALineForEachEntry) {
  JsonText out(sim::JsonFormat{.isPretty = true});
  out.beginObject();
  out.name("a").beginArray();
  out.integer(1);
  out.string("x ");
  out.string("y:");
  out.beginArray();
  out.endArray();
  out.endArray();
  out.name("b").beginObject();
  out.endObject();
  out.name("c").null();
  out.endObject();
  EXPECT_EQ(std::move(out).text(),
            "{\n  \"a\" : [\n    1,\n    \"x \",\n    \"y:\",\n    [\n\n    ]\n  ],\n"
            "  \"b\" : {\n\n  },\n  \"c\" : null\n}");
}

TEST(JsonTextTest, StringsLeftEmptyAreFilledLater) {
  JsonText out;
  out.beginObject();
  out.name("a").emptyString();
  out.name("b").string("");
  const std::size_t head = out.text().size();
  out.name("c").emptyString();
  out.truncate(head);
  out.name("d").beginArray();
  out.emptyString();
  out.null();
  out.endArray();
  EXPECT_EQ(out.text(), R"({"a":"","b":"","d":["",null])");
  out.fill({"one", "two"});
  out.name("e").emptyString();
  out.endObject();
  out.fill({"three"});
  EXPECT_EQ(out.text(), R"({"a":"one","b":"","d":["two",null],"e":"three"})");
}

}  // namespace
