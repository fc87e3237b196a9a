// Property lists in all their formats, with libplist as a second reader and writer.
#include "base/PropertyListReader.hpp"

#include "base/BinaryPropertyListWriter.hpp"
#include "base/XMLPropertyListWriter.hpp"
#include "support/plain/BinaryPropertyList.hpp"

#include <plist/plist.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

using sim::PropertyListFormat;
using test::BinaryPropertyList;
using ::testing::EndsWith;
using ::testing::StartsWith;

std::span<const std::byte> bytesOf(std::string_view text) { return std::as_bytes(std::span(text)); }

/// What a document holds, as an XML document of our own; otherwise what is wrong with it.
std::string read(std::string_view document, PropertyListFormat* format = nullptr) {
  sim::XMLPropertyListWriter writer;
  const auto problem = sim::readPropertyList(bytesOf(document), writer, format);
  return problem ? *problem : std::move(writer).finished();
}

bool isRead(std::string_view document) { return read(document).starts_with("<?xml"); }

std::string xml(std::string_view inner) { return "<plist version=\"1.0\">" + std::string(inner) + "</plist>"; }

using Read = decltype(plist_from_xml);
using Write = decltype(plist_to_xml);

/// The document as libplist reads and writes it.
std::string converted(const std::string& document, Read* read, Write* write) {
  plist_t root = nullptr;
  read(document.data(), static_cast<std::uint32_t>(document.size()), &root);
  char* bytes = nullptr;
  std::uint32_t size = 0;
  write(root, &bytes, &size);
  plist_free(root);
  std::string result(bytes != nullptr ? bytes : "", size);
  std::free(bytes);
  return result;
}

/// One value of each kind and size.
void tellEverything(sim::ValueSink& sink) {
  const auto key = [&](const char* text) -> sim::ValueSink& {
    sink.key(text);
    return sink;
  };
  const std::string bytes(300, '\xa7');
  sink.beginDictionary(0);
  key("array").beginArray(0);
  for (const std::int64_t number :
       {std::int64_t{0}, std::int64_t{255}, std::int64_t{256}, std::int64_t{65'536}, std::int64_t{1} << 32,
        std::numeric_limits<std::int64_t>::max(), std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()})
    sink.integer(number);
  sink.unsignedInteger(std::numeric_limits<std::uint64_t>::max());
  sink.endArray();
  key("data").data(bytesOf("\1\2\3"));
  key("date").date(86'400);
  key("empty").beginDictionary(0);
  sink.endDictionary();
  key("long data").data(bytesOf(bytes));
  key("long text").string(std::string(70'000, 'x'));
  key("no").boolean(false);
  key("nothing").beginArray(0);
  sink.endArray();
  key("real").real(2.5);
  key("\u00e4\U0001f600").string("<\u00df & \U0001f600>");
  key("same").string("same");
  key("yes").boolean(true);
  sink.endDictionary();
}

std::string everythingAsXML() {
  sim::XMLPropertyListWriter writer;
  tellEverything(writer);
  return std::move(writer).finished();
}

std::string everythingAsBinary() {
  sim::BinaryPropertyListWriter writer;
  tellEverything(writer);
  return std::move(writer).finished();
}

TEST(PropertyListReaderTests, WhatIsWrittenReadsBack) {
  EXPECT_EQ(read(everythingAsXML()), everythingAsXML());
  EXPECT_EQ(read(everythingAsBinary()), everythingAsXML());
}

TEST(PropertyListReaderTests, WhatIsWrittenIsReadByOthersAndWhatTheyWriteByUs) {
  EXPECT_EQ(read(converted(everythingAsXML(), plist_from_xml, plist_to_bin)), everythingAsXML());
  EXPECT_EQ(read(converted(everythingAsBinary(), plist_from_bin, plist_to_xml)), everythingAsXML());
}

TEST(PropertyListReaderTests, TheFormatIsToldByTheBeginning) {
  const auto format = [](std::string_view document) {
    PropertyListFormat format{};
    EXPECT_THAT(read(document, &format), StartsWith("<?xml")) << document;
    return format;
  };
  for (const std::string_view document :
       {"<plist><true/></plist>", "<true/>", " \n<!-- a --><dict></dict>", "\xef\xbb\xbf<array/>",
        "<?xml version=\"1.0\"?><true/>", "<string>a</string>"})
    EXPECT_EQ(format(document), PropertyListFormat::xml) << document;
  for (const std::string_view document : {"{}", "(a)", "<00ff>", "<da7a>", "text", "a = b;", " "})
    EXPECT_EQ(format(document), PropertyListFormat::oldStyle) << document;
  EXPECT_EQ(format(everythingAsBinary()), PropertyListFormat::binary);
  PropertyListFormat untouched = PropertyListFormat::binary;
  read("<plist>", &untouched);
  EXPECT_EQ(untouched, PropertyListFormat::binary);
}

TEST(PropertyListReaderTests, NothingIsNoPropertyList) { EXPECT_EQ(read(""), "There is nothing to read"); }

TEST(PropertyListReaderTests, AProblemOfATextNamesItsLine) {
  EXPECT_THAT(read("<plist>\n<dict>\n<key>a</key>\n</dict></plist>"), EndsWith("(line 4)"));
  EXPECT_THAT(read("{ a = b;\n c }"), EndsWith("(line 2)"));
}

TEST(PropertyListReaderTests, ContainersAreAtMost512Deep) {
  const auto repeated = [](std::string_view text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) result += text;
    return result;
  };
  for (const std::size_t depth : {512, 513}) {
    EXPECT_EQ(isRead(xml(repeated("<array>", depth) + repeated("</array>", depth))), depth == 512);
    EXPECT_EQ(isRead(xml(repeated("<dict><key>a</key>", depth - 1) + "<dict/>" + repeated("</dict>", depth - 1))),
              depth == 512);
    EXPECT_EQ(isRead(std::string(depth, '(') + std::string(depth, ')')), depth == 512);
    BinaryPropertyList list;
    for (std::uint32_t i = 1; i < depth; ++i) list.addArray({i});
    list.addArray({});
    EXPECT_EQ(isRead(list.finish()), depth == 512);
  }
}

TEST(PropertyListReaderTests, ASinkThatRefusesEndsTheStream) {
  sim::BinaryPropertyListWriter writer;
  writer.beginArray(0);
  writer.string("\x01");  // Which XML cannot hold.
  writer.endArray();
  EXPECT_EQ(read(std::move(writer).finished()), "The value was not taken");
}

TEST(BinaryPropertyListReaderTests, AnObjectMayBeSharedAsOftenAsTheDocumentHasBytes) {
  const auto shared = [](std::size_t times) {
    BinaryPropertyList list;
    list.addArray(std::vector<std::uint32_t>(times, 1));
    list.addArray(std::vector<std::uint32_t>(1'000, 2));
    list.addTrue();
    return list.finish();
  };
  EXPECT_TRUE(isRead(shared(4))) << "4,005 values in 4,076 bytes";
  EXPECT_EQ(read(shared(5)), "The document unfolds to too much") << "5,006 values in 4,080 bytes";
}

TEST(BinaryPropertyListReaderTests, DataThatIsSharedMayUnfoldToSixteenTimesTheDocumentAnd64MiBMore) {
  const auto shared = [](std::size_t count, bool isText) {
    BinaryPropertyList list;
    list.addArray(std::vector<std::uint32_t>(count, 1));
    if (isText) list.addText(std::string(1 << 20, 'x'));
    else list.addData(1 << 20);
    return list.finish();
  };
  struct Ignore final : sim::ValueSink {
    bool beginDictionary(std::size_t) override { return true; }
    bool key(std::string_view) override { return true; }
    bool endDictionary() override { return true; }
    bool beginArray(std::size_t) override { return true; }
    bool endArray() override { return true; }
    bool string(std::string_view) override { return true; }
    bool integer(std::int64_t) override { return true; }
    bool unsignedInteger(std::uint64_t) override { return true; }
    bool real(double) override { return true; }
    bool boolean(bool) override { return true; }
    bool date(double) override { return true; }
    bool data(std::span<const std::byte>) override { return true; }
    bool null() override { return true; }
  } sink;
  for (const bool isText : {false, true}) {
    EXPECT_EQ(sim::readPropertyList(bytesOf(shared(80, isText)), sink), std::nullopt);
    EXPECT_EQ(sim::readPropertyList(bytesOf(shared(81, isText)), sink), "The document unfolds to too much");
  }
  BinaryPropertyList keys;
  keys.addDictionary(std::vector<std::uint32_t>(81, 1), std::vector<std::uint32_t>(81, 2));
  keys.addText(std::string(1 << 20, 'k'));
  keys.addTrue();
  EXPECT_EQ(sim::readPropertyList(bytesOf(keys.finish()), sink), "The document unfolds to too much");
}

TEST(BinaryPropertyListReaderTests, EveryObjectLiesBeforeTheTableOfOffsets) {
  for (const std::string& object :
       {std::string("\x42xy"), std::string("\x52xy"), std::string("\x61\0x", 3), std::string("\x11\1\2"),
        std::string("\x22\1\2\3\4"), std::string("\x23\1\2\3\4\5\6\7\1"), std::string("\x4f\x10\1x")}) {
    BinaryPropertyList whole, cut;
    for (BinaryPropertyList* list : {&whole, &cut}) list->addArray({1});
    whole.add(object);
    cut.add(std::string_view(object).substr(0, object.size() - 1));
    EXPECT_TRUE(isRead(whole.finish())) << object;
    EXPECT_THAT(read(cut.finish()), StartsWith("An ")) << object;
  }
  BinaryPropertyList cut;
  cut.add(std::string("\xa1\0\0\0", 4));
  EXPECT_EQ(read(cut.finish()), "An object reaches beyond the document");
}

TEST(BinaryPropertyListReaderTests, TheTrailerIsChecked) {
  BinaryPropertyList list;
  list.addArray({1});
  list.addTrue();
  const std::string sound = list.finish();
  ASSERT_TRUE(isRead(sound));
  const auto with = [&](std::size_t fromEnd, const std::string& bytes) {
    std::string changed = sound;
    changed.replace(changed.size() - fromEnd, bytes.size(), bytes);
    return read(changed);
  };
  const auto number = [](std::uint64_t value) { return BinaryPropertyList::number(value, 8); };
  const std::string malformed = "The trailer is malformed";
  EXPECT_EQ(with(26, std::string(1, '\0')), malformed) << "the size of an offset";
  EXPECT_EQ(with(26, "\x09"), malformed);
  EXPECT_EQ(with(25, std::string(1, '\0')), malformed) << "the size of a reference";
  EXPECT_EQ(with(25, "\x09"), malformed);
  EXPECT_EQ(with(24, number(3)), malformed) << "the number of objects";
  EXPECT_EQ(with(24, number(~std::uint64_t{0})), malformed);
  EXPECT_EQ(with(16, number(2)), malformed) << "the root";
  EXPECT_EQ(with(8, number(8)), malformed) << "the table";
  EXPECT_EQ(with(8, number(sound.size() - 31)), malformed);
  EXPECT_EQ(with(8, number(~std::uint64_t{0})), malformed);
  EXPECT_EQ(read(sound.substr(0, 40)), "The document ends early");
  EXPECT_EQ(read("bplist00"), "The document ends early");
}

TEST(BinaryPropertyListReaderTests, ReferencesAndKeysAreChecked) {
  BinaryPropertyList beyond;
  beyond.addArray({2});
  beyond.addTrue();
  EXPECT_EQ(read(beyond.finish()), "A reference names no object");
  BinaryPropertyList keys;
  keys.addDictionary({1}, {1});
  keys.addTrue();
  EXPECT_EQ(read(keys.finish()), "A key is not a string");
  BinaryPropertyList circle;
  circle.addArray({1});
  circle.addArray({0});
  EXPECT_EQ(read(circle.finish()), "The document unfolds to too much");
  BinaryPropertyList header;
  header.addArray({1});
  header.addTrue();
  std::string offset = header.finish();
  offset.replace(offset.size() - 36, 4, BinaryPropertyList::number(7, 4));
  EXPECT_EQ(read(offset), "An offset lies outside the objects");
}

TEST(BinaryPropertyListReaderTests, ObjectsOfUnknownKindsAreRefused) {
  for (const std::string_view object : {"\x0f", "\x07", "\x80\1", "\xc0",
                                        "\x15"
                                        "0123456789abcdef0123456789abcdef",
                                        "\x24", "\x34", "\x52\xff\xff", "\x61\xd8\x3d"}) {
    BinaryPropertyList list;
    list.addArray({1});
    list.add(object);
    EXPECT_FALSE(isRead(list.finish())) << object;
  }
}

TEST(PropertyListReaderTests, EveryChangedByteAndEveryCutIsSurvived) {
  const auto small = [](sim::ValueSink& sink) {
    sink.beginDictionary(0);
    sink.key("\u00e4");
    sink.beginArray(0);
    sink.integer(-1);
    sink.data(bytesOf("abc"));
    sink.date(1);
    sink.endArray();
    sink.endDictionary();
  };
  sim::XMLPropertyListWriter xml;
  sim::BinaryPropertyListWriter binary;
  small(xml);
  small(binary);
  for (const std::string& whole : {std::move(xml).finished(), std::move(binary).finished()}) {
    for (std::size_t at = 0; at < whole.size(); ++at) {
      for (const int value : {0, 1, 0x0F, 0x3C, 0x7F, 0xA1, 0xD1, 0xDF, 0xFF}) {
        std::string changed = whole;
        changed[at] = static_cast<char>(value);
        (void)isRead(changed);
      }
      (void)isRead(whole.substr(0, at));
    }
  }
}

}  // namespace
