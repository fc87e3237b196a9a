// Property-list files as the panel shows them. Those of these tests are written with libplist.
#include "server/PropertyListJson.hpp"

#include "support/plain/BinaryPropertyList.hpp"

#include <plist/plist.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using nlohmann::json;

std::optional<json> shown(std::string_view bytes) { return sim::propertyListJson(std::as_bytes(std::span(bytes))); }

std::string problemOf(std::string_view bytes) {
  const char* problem = "";
  EXPECT_EQ(sim::propertyListJson(std::as_bytes(std::span(bytes)), &problem), std::nullopt);
  return problem;
}

std::string xml(const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">" +
         content + "</plist>\n";
}

std::string binary(const std::string& content) {
  const std::string text = xml(content);
  plist_t node = nullptr;
  plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &node);
  char* bytes = nullptr;
  std::uint32_t length = 0;
  plist_to_bin(node, &bytes, &length);
  plist_free(node);
  const std::string result(bytes, length);
  std::free(bytes);
  return result;
}

// The content read from both formats, which must agree.
json read(const std::string& content) {
  const auto fromXml = shown(xml(content));
  const auto fromBinary = shown(binary(content));
  EXPECT_TRUE(fromXml && fromBinary);
  if (!fromXml || !fromBinary) return {};
  EXPECT_EQ(*fromXml, *fromBinary);
  return *fromXml;
}

std::string repeated(const std::string& text, std::size_t count) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

TEST(PropertyListJsonTests, ReadsEveryType) {
  EXPECT_EQ(read("<dict><key>text</key><string>gr\u00FC\u00DFe \U0001F600 &lt;</string><key>yes</key><true/>"
                 "<key>no</key><false/><key>whole</key><integer>7</integer><key>real</key><real>2.5</real>"
                 "<key>list</key><array><integer>1</integer><string/></array><key>none</key><dict/>"
                 "<key>data</key><data>AAEC/w==</data><key>date</key><date>2020-02-29T12:34:56Z</date></dict>"),
            json::parse("{\"text\":\"gr\u00FC\u00DFe \U0001F600 <\",\"yes\":true,\"no\":false,\"whole\":7,\"real\":2.5,"
                        "\"list\":[1,\"\"],\"none\":{},\"data\":{\"data\":\"AAEC/w==\"},"
                        "\"date\":{\"date\":\"2020-02-29T12:34:56Z\"}}"));
}

TEST(PropertyListJsonTests, AFileHoldsADictionaryOrAnArray) {
  EXPECT_EQ(read("<array/>"), json::array());
  EXPECT_EQ(read("<dict/>"), json::object());
  for (const char* value : {"<string>x</string>", "<true/>", "<integer>1</integer>", "<real>1</real>", "<data/>",
                            "<date>2020-02-29T12:34:56Z</date>"}) {
    EXPECT_EQ(shown(xml(value)), std::nullopt) << value;
    EXPECT_EQ(shown(binary(value)), std::nullopt) << value;
  }
}

TEST(PropertyListJsonTests, ReadsTheOldTextFormatAndUTF16) {
  EXPECT_EQ(shown("{ a = b; c = (1, <00ff>); }"), json::parse(R"({"a":"b","c":["1",{"data":"AP8="}]})"));
  std::string wide = "\xff\xfe";
  for (const char letter : xml("<array><true/></array>")) wide += {letter, '\0'};
  EXPECT_EQ(shown(wide), json::array({true}));
}

TEST(PropertyListJsonTests, TellsNegativeFromHugeIntegers) {
  EXPECT_EQ(
      read("<array><integer>-5</integer><integer>9223372036854775807</integer><integer>-9223372036854775808</integer>"
           "<integer>9223372036854775808</integer><integer>18446744073709551615</integer><integer>0</integer></array>"),
      json::parse("[-5,9223372036854775807,-9223372036854775808,9223372036854775808,18446744073709551615,0]"));
}

TEST(PropertyListJsonTests, DataOfEveryLength) {
  EXPECT_EQ(read("<array><data></data><data>QQ==</data><data>QUI=</data><data>QUJD</data></array>"),
            json::parse(R"([{"data":""},{"data":"QQ=="},{"data":"QUI="},{"data":"QUJD"}])"));
}

TEST(PropertyListJsonTests, LargeThingsAreOnlyHintedAt) {
  const json large = read("<array><data>" + repeated("AAAA", 5'000) + "</data><string>" + repeated("\u00E4", 10'000) +
                          "</string></array>");
  EXPECT_EQ(large[0], json::parse(R"({"data":null,"bytes":15000})"));
  const json& text = large[1];
  EXPECT_EQ(text["bytes"], 20'000);
  EXPECT_EQ(text["string"], repeated("\u00E4", 2'048));
  const json many = read("<array>" + repeated("<true/>", 3'000) + "</array>");
  EXPECT_EQ(many.size(), 1'001u);
  EXPECT_EQ(many.back(), json::parse(R"({"omitted":2000})"));
  std::string entries;
  for (int i = 0; i < 3'000; ++i) entries += "<key>" + std::to_string(i) + "</key><true/>";
  EXPECT_EQ(read("<dict>" + entries + "</dict>")["\u2026"], json::parse(R"({"omitted":2000})"));
}

TEST(PropertyListJsonTests, TheWholeIsLimitedToo) {
  const std::string inner = "<array>" + repeated("<true/>", 900) + "</array>";
  const json all = read("<array>" + repeated(inner, 40) + "</array>");
  EXPECT_EQ(all.size(), 24u) << "20,000 are 22 arrays of 900, and of the next one 177";
  EXPECT_EQ(all[21].size(), 900u);
  EXPECT_EQ(all[22].size(), 178u);
  EXPECT_EQ(all[22].back(), json::parse(R"({"omitted":723})"));
  EXPECT_EQ(all.back(), json::parse(R"({"omitted":17})"));
}

TEST(PropertyListJsonTests, WhatIsLeftOutIsReadAllTheSame) {
  const std::string many = repeated("<true/>", 1'000);
  EXPECT_EQ(read("<array>" + many + "<dict><key>a</key><array><true/></array></dict><false/></array>").back(),
            json::parse(R"({"omitted":2})"));
  EXPECT_EQ(read("<array>" + many + "<array/></array>").size(), 1'001u);
  EXPECT_EQ(shown(xml("<array>" + many + "<dict><key>a</key></dict></array>")), std::nullopt);
}

TEST(PropertyListJsonTests, LongKeysAreCut) {
  const std::string key = repeated("\u00E4", 3'000);
  const json expected{{repeated("\u00E4", 2'049) + "\u2026", true}};
  EXPECT_EQ(read("<dict><key>" + key + "</key><true/></dict>"), expected);
  EXPECT_EQ(read("<dict><key>" + repeated("k", 4'096) + "</key><true/></dict>"), (json{{repeated("k", 4'096), true}}));
}

TEST(PropertyListJsonTests, LongKeysThatBeginAlikeAreToldApart) {
  const std::string key = repeated("k", 5'000);
  const std::string cut = repeated("k", 4'099) + "\u2026";
  EXPECT_EQ(read("<dict><key>" + key + "1</key><string>a</string><key>" + key + "2</key><string>b</string><key>" + key +
                 "3</key><array><string>c</string></array></dict>"),
            (json{{cut, "a"}, {cut + " (2)", "b"}, {cut + " (3)", {"c"}}}));
  const std::string whole = repeated("k", 4'093) + "\u2026";
  EXPECT_EQ(read("<dict><key>" + repeated("k", 4'093) + "\U0001F600</key><string>a</string><key>" + whole +
                 "</key><string>b</string></dict>")
                .size(),
            2u)
      << "a short key is never mistaken for a cut one";
}

TEST(PropertyListJsonTests, WhatIsLeftOutTakesNoKeysPlace) {
  std::string entries = "<key>\u2026</key><string>dots</string><key>\u2026 (2)</key><string>two</string>";
  for (int i = 0; i < 1'000; ++i) entries += "<key>" + std::to_string(i) + "</key><true/>";
  const json all = read("<dict>" + entries + "</dict>");
  EXPECT_EQ(all.value("\u2026", json()), "dots");
  EXPECT_EQ(all.value("\u2026 (2)", json()), "two");
  EXPECT_EQ(all.value("\u2026 (3)", json()), json::parse(R"({"omitted":2})"));
}

TEST(PropertyListJsonTests, OfEqualKeysTheLastCounts) {
  EXPECT_EQ(shown("{ a = { b = c; }; a = d; }"), json::parse(R"({"a":"d"})"));
}

TEST(PropertyListJsonTests, DatesBeyondTheFormatHaveNoText) {
  std::string far = binary("<array><date>2001-01-01T00:00:00Z</date></array>");
  const auto at = far.find('\x33') + 1;
  far.replace(at, 8, std::string("\x43\x0c\x6b\xf5\x26\x34\0\0", 8));  // 1e15 seconds.
  EXPECT_EQ(shown(far), json::parse(R"([{"date":null}])"));
}

TEST(PropertyListJsonTests, NumbersThatAreNotFiniteHaveAForm) {
  EXPECT_EQ(read("<array><real>nan</real><real>inf</real><real>-inf</real></array>"),
            json::parse(R"([{"real":"nan"},{"real":"inf"},{"real":"-inf"}])"));
}

TEST(PropertyListJsonTests, AnythingElseIsNone) {
  const std::string whole = binary("<dict><key>a</key><string>b</string></dict>");
  for (const std::string& bytes :
       {std::string(), std::string("hello"), std::string("bplist00"), std::string(1000, '\0'),
        whole.substr(0, whole.size() / 2), xml("<dict><key>a</key>").substr(0, 200), std::string("<plist>"), xml(""),
        std::string("{\"a\":1}")})
    EXPECT_EQ(problemOf(bytes), "The file is no property list.") << bytes.substr(0, 60);
}

TEST(PropertyListJsonTests, EveryCutOfAFileIsSurvived) {
  const std::string content = "<dict><key>a</key><array><integer>1</integer><data>AAAA</data></array></dict>";
  for (const std::string& whole : {xml(content), binary(content)})
    for (std::size_t i = 0; i < whole.size(); ++i) (void)shown(whole.substr(0, i));
}

TEST(PropertyListJsonTests, EveryChangedByteOfABinaryFileIsSurvived) {
  const std::string whole = binary("<dict><key>a</key><array><integer>1</integer><data>AAAA</data></array></dict>");
  for (std::size_t i = 8; i < whole.size(); ++i)
    for (const int value : {0, 1, 0x0F, 0x7F, 0xA1, 0xD1, 0xDF, 0xFF}) {
      std::string changed = whole;
      changed[i] = static_cast<char>(value);
      (void)shown(changed);
    }
}

TEST(PropertyListJsonTests, DeepFilesAreRefused) {
  const auto nestedXml = [](std::size_t depth) {
    return xml(repeated("<array>", depth) + repeated("</array>", depth));
  };
  const auto nestedBinary = [](std::uint32_t depth) {
    test::BinaryPropertyList maker;
    for (std::uint32_t i = 1; i < depth; ++i) maker.addArray({i});
    maker.addArray({});
    return maker.finish();
  };
  EXPECT_TRUE(shown(nestedXml(512)));
  EXPECT_TRUE(shown(nestedBinary(512)));
  for (const std::uint32_t depth : {513, 200'000}) {
    EXPECT_EQ(shown(nestedXml(depth)), std::nullopt);
    EXPECT_EQ(shown(nestedBinary(depth)), std::nullopt);
  }
}

TEST(PropertyListJsonTests, ReferencesThatMultiplyAreRefused) {
  test::BinaryPropertyList maker;
  for (std::uint32_t i = 1; i < 60; ++i) maker.addArray({i, i});
  maker.addArray({});
  EXPECT_EQ(shown(maker.finish()), std::nullopt);
}

TEST(PropertyListJsonTests, DataThatMultipliesIsRefused) {
  test::BinaryPropertyList maker;
  maker.addArray({1, 1, 1, 1, 1, 1, 1, 1});
  maker.addArray({2, 2, 2, 2, 2, 2, 2, 2});
  maker.addArray({3, 3, 3, 3, 3, 3, 3, 3});
  maker.addData(2 << 20);
  EXPECT_EQ(shown(maker.finish()), std::nullopt);
}

TEST(PropertyListJsonTests, ValuesBeyondAMillionAreTooMuch) {
  const auto list = [](std::uint32_t values) {
    test::BinaryPropertyList maker;
    maker.addArray(std::vector<std::uint32_t>(values - 1, 1));
    maker.addArray({});
    return maker.finish();
  };
  EXPECT_EQ(shown(list(1'000'000))->back(), json::parse(R"({"omitted":998999})"));
  EXPECT_EQ(problemOf(list(1'000'001)), "The file holds too much to be shown.");
  EXPECT_EQ(problemOf(xml("<array>" + repeated("<true/>", 1'000'000) + "</array>")),
            "The file holds too much to be shown.");
}

TEST(PropertyListJsonTests, BytesBeyondTheLimitAreTooMuch) {
  const auto list = [](void (*add)(test::BinaryPropertyList&), std::uint32_t count) {
    test::BinaryPropertyList maker;
    maker.addArray(std::vector<std::uint32_t>(count, 1));
    add(maker);
    return maker.finish();
  };
  constexpr std::size_t size = 16 << 20;
  const auto addText = [](test::BinaryPropertyList& maker) { maker.addText(std::string(size, 'x')); };
  const auto addData = [](test::BinaryPropertyList& maker) { maker.addData(size); };
  const auto addKey = [](test::BinaryPropertyList& maker) {
    maker.addDictionary({2}, {3});
    maker.addText(std::string(size, 'x'));
    maker.addTrue();
  };
  for (const auto add : {+addText, +addData, +addKey}) {
    EXPECT_EQ(shown(list(add, 8))->size(), 8u);
    EXPECT_EQ(problemOf(list(add, 9)), "The file holds too much to be shown.");
  }
}

TEST(PropertyListJsonTests, CirclesAreRefused) {
  test::BinaryPropertyList maker;
  maker.addArray({1});
  maker.addArray({0});
  EXPECT_EQ(shown(maker.finish()), std::nullopt);
}

}  // namespace
