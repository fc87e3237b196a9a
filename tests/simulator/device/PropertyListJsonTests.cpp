#include "device/PropertyListJson.hpp"

#include "device/PropertyListGuard.hpp"

#include <plist/plist.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using nlohmann::json;
using sim::isSafePropertyList;
using sim::propertyListJson;

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
  const auto fromXml = propertyListJson(xml(content));
  const auto fromBinary = propertyListJson(binary(content));
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

// A binary property list made of objects that refer to others by number, in references of four bytes.
class BinaryMaker {
 public:
  void addArray(const std::vector<std::uint32_t>& references) {
    offsets_.push_back(bytes_.size());
    bytes_ += static_cast<char>(0xA0 + references.size());
    for (const std::uint32_t reference : references) add(reference, 4);
  }
  void addData(std::uint32_t size) {
    offsets_.push_back(bytes_.size());
    bytes_ += "\x4F\x12";
    add(size, 4);
    bytes_ += std::string(size, 'x');
  }
  std::string finish() {
    const std::size_t table = bytes_.size();
    for (const std::size_t offset : offsets_) add(offset, 4);
    bytes_ += std::string("\0\0\0\0\0\0\4\4", 8);
    add(offsets_.size(), 8);
    add(0, 8);
    add(table, 8);
    return bytes_;
  }

 private:
  void add(std::uint64_t value, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) bytes_ += static_cast<char>(value >> shift);
  }

  std::string bytes_ = "bplist00";
  std::vector<std::size_t> offsets_;
};

TEST(PropertyListJsonTests, ReadsEveryType) {
  EXPECT_EQ(read("<dict><key>text</key><string>gr\u00FC\u00DFe \U0001F600 &lt;</string><key>yes</key><true/>"
                 "<key>no</key><false/><key>whole</key><integer>7</integer><key>real</key><real>2.5</real>"
                 "<key>list</key><array><integer>1</integer><string/></array><key>none</key><dict/>"
                 "<key>data</key><data>AAEC/w==</data><key>date</key><date>2020-02-29T12:34:56Z</date></dict>"),
            json::parse("{\"text\":\"gr\u00FC\u00DFe \U0001F600 <\",\"yes\":true,\"no\":false,\"whole\":7,\"real\":2.5,"
                        "\"list\":[1,\"\"],\"none\":{},\"data\":{\"data\":\"AAEC/w==\"},"
                        "\"date\":{\"date\":\"2020-02-29T12:34:56Z\"}}"));
}

TEST(PropertyListJsonTests, TheRootMayBeAnything) {
  EXPECT_EQ(read("<string>x</string>"), "x");
  EXPECT_EQ(read("<array/>"), json::array());
  EXPECT_EQ(read("<true/>"), true);
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
  EXPECT_EQ(read("<data>" + repeated("AAAA", 5'000) + "</data>"), json::parse(R"({"data":null,"bytes":15000})"));
  const json text = read("<string>" + repeated("\u00E4", 10'000) + "</string>");
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
  EXPECT_LT(read("<array>" + repeated(inner, 40) + "</array>").dump().size(), 150'000u);
}

TEST(PropertyListJsonTests, NumbersThatAreNotFiniteHaveAForm) {
  EXPECT_EQ(read("<array><real>nan</real><real>inf</real><real>-inf</real></array>"),
            json::parse(R"([{"real":"nan"},{"real":"inf"},{"real":"-inf"}])"));
}

TEST(PropertyListJsonTests, AnythingElseIsNone) {
  const std::string whole = binary("<dict><key>a</key><string>b</string></dict>");
  for (const std::string& bytes :
       {std::string(), std::string("hello"), std::string("{ a = b; }"), std::string("bplist00"),
        std::string(1000, '\0'), whole.substr(0, whole.size() / 2), xml("<dict><key>a</key>").substr(0, 200),
        std::string("<plist>"), xml(""), std::string("{\"a\":1}")})
    EXPECT_EQ(propertyListJson(bytes), std::nullopt) << bytes.substr(0, 60);
}

TEST(PropertyListJsonTests, EveryCutOfAFileIsSurvived) {
  const std::string content = "<dict><key>a</key><array><integer>1</integer><data>AAAA</data></array></dict>";
  for (const std::string& whole : {xml(content), binary(content)})
    for (std::size_t i = 0; i < whole.size(); ++i) (void)propertyListJson(whole.substr(0, i));
}

TEST(PropertyListJsonTests, EveryChangedByteOfABinaryFileIsSurvived) {
  const std::string whole = binary("<dict><key>a</key><array><integer>1</integer><data>AAAA</data></array></dict>");
  for (std::size_t i = 8; i < whole.size(); ++i)
    for (const int value : {0, 1, 0x0F, 0x7F, 0xA1, 0xD1, 0xDF, 0xFF}) {
      std::string changed = whole;
      changed[i] = static_cast<char>(value);
      (void)propertyListJson(changed);
    }
}

TEST(PropertyListGuardTests, DeepXmlIsRefused) {
  const auto nested = [](std::size_t depth) { return xml(repeated("<array>", depth) + repeated("</array>", depth)); };
  EXPECT_TRUE(isSafePropertyList(nested(512)));
  EXPECT_FALSE(isSafePropertyList(nested(513)));
  EXPECT_EQ(propertyListJson(nested(1'000'000)), std::nullopt);
  EXPECT_TRUE(isSafePropertyList(xml(repeated("<array></array>", 1'000)))) << "one after the other is not deep";
  EXPECT_FALSE(isSafePropertyList(xml(repeated("<array><!-- </array> -->", 600))));
}

TEST(PropertyListGuardTests, DeepBinaryIsRefused) {
  const auto nested = [](std::uint32_t depth) {
    BinaryMaker maker;
    for (std::uint32_t i = 1; i < depth; ++i) maker.addArray({i});
    maker.addArray({});
    return maker.finish();
  };
  EXPECT_TRUE(propertyListJson(nested(512)));
  EXPECT_FALSE(isSafePropertyList(nested(513)));
  EXPECT_EQ(propertyListJson(nested(200'000)), std::nullopt);
}

TEST(PropertyListGuardTests, ReferencesThatMultiplyAreRefused) {
  BinaryMaker maker;
  for (std::uint32_t i = 1; i < 60; ++i) maker.addArray({i, i});
  maker.addArray({});
  EXPECT_EQ(propertyListJson(maker.finish()), std::nullopt);
}

TEST(PropertyListGuardTests, DataThatMultipliesIsRefused) {
  BinaryMaker maker;
  maker.addArray({1, 1, 1, 1, 1, 1, 1, 1});
  maker.addArray({2, 2, 2, 2, 2, 2, 2, 2});
  maker.addArray({3, 3, 3, 3, 3, 3, 3, 3});
  maker.addData(2 << 20);
  EXPECT_EQ(propertyListJson(maker.finish()), std::nullopt);
}

TEST(PropertyListGuardTests, CirclesAreRefused) {
  BinaryMaker maker;
  maker.addArray({1});
  maker.addArray({0});
  EXPECT_EQ(propertyListJson(maker.finish()), std::nullopt);
}

}  // namespace
