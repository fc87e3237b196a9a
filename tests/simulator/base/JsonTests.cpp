// The JSON library's values, to and from text; and JSON as a stream of values.
#include "base/Json.hpp"

#include "base/JSONReader.hpp"
#include "base/JSONWriter.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>
#include <string>

namespace {

using nlohmann::json;
using sim::parseJson;
using sim::toText;

std::string nested(std::size_t levels) { return std::string(levels, '[') + std::string(levels, ']'); }

/// The text read and written again.
std::string copied(std::string_view text) {
  sim::JSONWriter writer({});
  const auto problem = sim::readJSON(text, writer);
  return problem ? "(none)" : std::move(writer).finished();
}

TEST(JsonTests, TextsAreOnOneLineOrIndented) {
  const json value{{"a", {1, nullptr}}};
  EXPECT_EQ(toText(value), R"({"a":[1,null]})");
  EXPECT_EQ(toText(value, 1), "{\n \"a\": [\n  1,\n  null\n ]\n}");
}

TEST(JsonTests, BytesThatAreNoUTF8AreReplaced) { EXPECT_EQ(toText("a\xff"), "\"a\ufffd\""); }

TEST(JsonTests, OneValueOfAtMost64Levels) {
  EXPECT_EQ(parseJson(R"({"a":[1]})"), (json{{"a", {1}}}));
  EXPECT_TRUE(parseJson(nested(64)));
  EXPECT_FALSE(parseJson(nested(65)));
  EXPECT_FALSE(parseJson(std::string(1'000'000, '[')));
  for (const char* text : {"", "{", "[1] 2", "nonsense", "\"\xff\""}) EXPECT_FALSE(parseJson(text)) << text;
}

TEST(JsonTests, ATextInAnObjectIsFoundByItsKey) {
  const json value{{"text", "a"}, {"empty", ""}, {"number", 1}, {"null", nullptr}};
  ASSERT_NE(sim::textIn(value, "text"), nullptr);
  EXPECT_EQ(*sim::textIn(value, "text"), "a");
  ASSERT_NE(sim::textIn(value, "empty"), nullptr);
  EXPECT_EQ(*sim::textIn(value, "empty"), "");
  for (const char* key : {"number", "null", "missing"}) EXPECT_EQ(sim::textIn(value, key), nullptr) << key;
  for (const json& other : {json(), json("text"), json{"text"}, json(1)})
    EXPECT_EQ(sim::textIn(other, "text"), nullptr);
}

TEST(JsonTests, AStreamKeepsEveryKindOfValue) {
  const std::string text = R"({"":{},"a":[1,-2,18446744073709551615,2.5,true,false,null,"\/"],"b":[]})";
  EXPECT_EQ(copied(text), R"({"":{},"a":[1,-2,18446744073709551615,2.5,true,false,null,"/"],"b":[]})");
  EXPECT_EQ(copied(" 1 "), "1");
  EXPECT_EQ(copied("[1,]"), "(none)");
  EXPECT_EQ(copied("\"\\ud800\""), "(none)");
}

TEST(JsonTests, AStreamIsAtMost512LevelsDeep) {
  EXPECT_EQ(copied(nested(512)), nested(512));
  EXPECT_EQ(copied(nested(513)), "(none)");
}

TEST(JsonTests, WhatJsonCannotHoldIsRefused) {
  sim::JSONWriter writer({});
  EXPECT_FALSE(writer.real(std::numeric_limits<double>::infinity()));
  EXPECT_FALSE(writer.real(std::numeric_limits<double>::quiet_NaN()));
  EXPECT_FALSE(writer.date(0));
  EXPECT_FALSE(writer.data({}));
  EXPECT_EQ(std::move(writer).finished(), "");
}

}  // namespace
