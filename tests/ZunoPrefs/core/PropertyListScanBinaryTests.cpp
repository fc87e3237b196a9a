// What a scan answers for property lists in the binary format.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ZunoPrefs/core/PropertyListScanSamples.hpp"

namespace {

using namespace testing_support;
using namespace std::string_literals;
using namespace std::string_view_literals;

std::string bigEndian(std::uint64_t number, std::size_t size) {
  std::string bytes;
  while (size-- > 0) bytes += size < sizeof number ? static_cast<char>(number >> (8 * size)) : '\0';
  return bytes;
}

std::string marker(unsigned kind, unsigned low) { return {static_cast<char>(kind << 4 | low)}; }

/// A marker of the kind `kind` and its count, in nine bytes behind it.
std::string longCount(unsigned kind, std::uint64_t count) {
  return marker(kind, 15) + marker(1, 3) + bigEndian(count, 8);
}

/// The same, in one byte if that holds it.
std::string counted(unsigned kind, std::uint64_t count) {
  if (count < 15) return marker(kind, static_cast<unsigned>(count));
  return longCount(kind, count);
}

std::string ascii(std::string_view text) { return counted(5, text.size()) + std::string(text); }

std::string utf16(std::u16string_view text) {
  std::string bytes = counted(6, text.size());
  for (const char16_t unit : text) bytes += bigEndian(unit, 2);
  return bytes;
}

using References = std::vector<std::uint64_t>;

std::string references(const References& numbers, std::size_t size = 1) {
  std::string bytes;
  for (const auto number : numbers) bytes += bigEndian(number, size);
  return bytes;
}

std::string array(const References& items) { return counted(0xa, items.size()) + references(items); }
std::string dictionary(const References& keys, const References& values) {
  return counted(0xd, keys.size()) + references(keys) + references(values);
}

/// A document; each test changes what it is about.
struct Document {
  std::vector<std::string> objects;
  std::string magic = "bplist00";
  std::uint64_t offsetSize = 2;
  std::uint64_t referenceSize = 1;
  std::uint64_t root = 0;
  std::size_t aliases = 0;         ///< How many more entries of the offset table name the last object.
  std::int64_t excessObjects = 0;  ///< Added to the number of objects in the trailer.
  std::int64_t tableShift = 0;     ///< Added to the place of the offset table in the trailer.

  std::string bytes() const {
    std::string document = magic, table;
    for (const auto& object : objects) {
      table += bigEndian(document.size(), offsetSize);
      document += object;
    }
    for (std::size_t i = 0; i < aliases; ++i) table += table.substr(table.size() - offsetSize);
    const auto place = document.size() + static_cast<std::uint64_t>(tableShift);
    const auto count = objects.size() + aliases + static_cast<std::uint64_t>(excessObjects);
    return document + table + std::string(6, '\0') + bigEndian(offsetSize, 1) + bigEndian(referenceSize, 1) +
           bigEndian(count, 8) + bigEndian(root, 8) + bigEndian(place, 8);
  }
};

/// A dictionary in which "k" has the value `object`, which may refer to `more`, from object 5 on, and "last" is true.
Document holding(std::string object, std::vector<std::string> more = {}) {
  Document document{{dictionary({1, 3}, {2, 4}), ascii("k"), std::move(object), ascii("last"), "\x09"}};
  for (auto& each : more) document.objects.push_back(std::move(each));
  return document;
}

zuno::PropertyListScan scan(const Document& document, std::string_view key) {
  return scanGuarded(document.bytes(), key);
}
zuno::PropertyListScan valueOf(std::string object) { return scan(holding(std::move(object)), "k"); }
zuno::PropertyListScan besides(std::string object, std::vector<std::string> more = {}) {
  return scan(holding(std::move(object), std::move(more)), "last");
}

TEST(PropertyListScanBinaryTest, FindsEveryKindOfScalar) {
  EXPECT_EQ(valueOf("\x09"), found(true));
  EXPECT_EQ(valueOf("\x08"), found(false));
  EXPECT_EQ(valueOf(ascii("iPhone")), found("iPhone"sv));
  EXPECT_EQ(valueOf(utf16(u"größe 😀")), found("größe 😀"sv));
  EXPECT_EQ(valueOf("\x10\x2a"), found(std::int64_t{42}));
  EXPECT_EQ(valueOf("\x23" + bigEndian(0x3fe0000000000000, 8)), found(0.5));
  EXPECT_EQ(valueOf("\x22" + bigEndian(0xc1a00000, 4)), found(-20.0f));
}

TEST(PropertyListScanBinaryTest, FindsSeveralKeysInOnePass) {
  using Scans = std::vector<zuno::PropertyListScan>;
  const auto document = holding(ascii("two")).bytes();
  EXPECT_EQ(scanGuardedKeys(document, {"none", "last", "k"}), (Scans{absent(), found(true), found("two"sv)}));
  EXPECT_EQ(scanGuardedKeys(document, {}), Scans{});
  EXPECT_EQ(scanGuardedKeys(holding("\xa0").bytes(), {"last", "k"}), Scans(2)) << "one that is undecided leaves all so";
  EXPECT_EQ(scanGuardedKeys(holding("\xa0").bytes(), {"none", "last"}), (Scans{absent(), found(true)}));
}

TEST(PropertyListScanBinaryTest, ReadsIntegersOf64Bits) {
  EXPECT_EQ(valueOf("\x10\xff"), found(std::int64_t{255}));
  EXPECT_EQ(valueOf("\x11\xff\xfe"), found(std::int64_t{0xfffe}));
  EXPECT_EQ(valueOf("\x12\xff\xff\xff\xfe"), found(std::int64_t{0xfffffffe}));
  EXPECT_EQ(valueOf("\x13" + bigEndian(UINT64_MAX, 8)), found(std::int64_t{-1}));
  EXPECT_EQ(valueOf("\x13" + bigEndian(std::uint64_t{1} << 63, 8)), found(std::int64_t{INT64_MIN}));
  EXPECT_EQ(valueOf("\x14" + bigEndian(0, 8) + bigEndian(UINT64_MAX, 8)), found(std::uint64_t{UINT64_MAX}));
  constexpr auto kHighBit = std::uint64_t{1} << 63;
  EXPECT_EQ(valueOf("\x14" + bigEndian(0, 8) + bigEndian(kHighBit, 8)), found(kHighBit));
}

TEST(PropertyListScanBinaryTest, LeavesIntegersThatReadersTakeDifferently) {
  for (const auto& object :
       {"\x14" + bigEndian(0, 8) + bigEndian(1, 8), "\x14" + bigEndian(UINT64_MAX, 8) + bigEndian(UINT64_MAX, 8),
        "\x14" + bigEndian(1, 8) + bigEndian(UINT64_MAX, 8), "\x15" + std::string(32, '\0'),
        "\x15" + bigEndian(0, 8) + bigEndian(UINT64_MAX, 8) + std::string(16, '\0')}) {
    EXPECT_EQ(valueOf(object), undecided());
    EXPECT_EQ(besides(object), undecided());
  }
}

TEST(PropertyListScanBinaryTest, LeavesTextsThatReadersTakeDifferently) {
  for (const auto& object :
       {ascii("caf\xc3\xa9"), ascii("a\0b"sv), ascii(std::string(700, 'x') + '\x80'), utf16(u"\xd83d"),
        utf16(u"\xd83d!"), utf16(u"\xde00"), utf16(u"a\0b"sv), utf16(u""), utf16(u"\xfeffx")}) {
    EXPECT_EQ(valueOf(object), undecided());
    EXPECT_EQ(besides(object), undecided());
  }
}

TEST(PropertyListScanBinaryTest, ChecksEveryByteOfALongText) {
  std::string text(1100, 'a');
  for (std::size_t at = 0; at < text.size(); ++at) {
    for (const char wrong : {'\0', '\x80', '\xff'}) {
      text[at] = wrong;
      ASSERT_EQ(besides(ascii(text)), undecided()) << "byte " << at;
    }
    text[at] = '\x01';
    ASSERT_EQ(valueOf(ascii(text)), found(text)) << "byte " << at;
    text[at] = 'a';
  }
}

TEST(PropertyListScanBinaryTest, LendsASCIITexts) {
  const std::string document = holding(ascii("lent")).bytes();
  const auto result = zuno::scanPropertyList(std::as_bytes(std::span(document)), "k");
  const auto* text = std::get_if<std::string_view>(&result.value);
  ASSERT_TRUE(text);
  EXPECT_EQ(text->data(), document.data() + document.find("lent"));
}

TEST(PropertyListScanBinaryTest, LeavesDatesAndData) {
  const auto date = "\x33" + std::string(8, '\x41');
  for (const auto& object : {date, counted(4, 300) + std::string(300, '\xff'), counted(4, 0)}) {
    EXPECT_EQ(valueOf(object), undecided());
    EXPECT_EQ(besides(object), undecided());
  }
}

TEST(PropertyListScanBinaryTest, LeavesUnknownKinds) {
  for (const auto& object : {marker(0, 0), marker(0, 15), marker(0, 12), marker(2, 1) + "aa",
                             marker(2, 4) + std::string(16, 'a'), marker(3, 2) + "aaaa", marker(7, 1) + "a",
                             marker(8, 0) + "a", marker(0xc, 0), marker(0xe, 0), marker(0xf, 0)}) {
    EXPECT_EQ(besides(object), undecided());
  }
}

TEST(PropertyListScanBinaryTest, ComparesKeysDecoded) {
  const Document document{{dictionary({1, 2, 3}, {4, 4, 4}), utf16(u"größe 🔑"), utf16(u"plain"), ascii(""), "\x09"}};
  EXPECT_EQ(scan(document, "größe 🔑"), found(true));
  EXPECT_EQ(scan(document, "plain"), found(true));
  EXPECT_EQ(scan(document, ""), found(true));
  EXPECT_EQ(scan(document, "pl"), absent());
  EXPECT_EQ(scan(document, "plain\0"sv), absent());
}

TEST(PropertyListScanBinaryTest, TellsAbsentKeys) {
  EXPECT_EQ(scan(holding("\x09"), "other"), absent());
  EXPECT_EQ(scan(Document{{dictionary({}, {})}}, "k"), absent());
}

TEST(PropertyListScanBinaryTest, LooksOnlyIntoTheRoot) {
  const auto inner = dictionary({1}, {5});
  EXPECT_EQ(scan(holding("\x10\x03", {ascii("other")}), "other"), absent());
  Document document{{dictionary({3, 1}, {2, 4}), ascii("k"), array({5, 6}), ascii("list"), "\x08",
                     dictionary({1, 3}, {7, 7}), array({}), "\x10\x07"}};
  EXPECT_EQ(scan(document, "k"), found(false));
  EXPECT_EQ(scan(document, "list"), undecided());
  document.root = 5;
  EXPECT_EQ(scan(document, "k"), found(std::int64_t{7}));
}

TEST(PropertyListScanBinaryTest, LeavesKeysThatOccurTwice) {
  const Document document{{dictionary({1, 2, 3}, {4, 5, 4}), ascii("k"), utf16(u"k"), ascii("last"), "\x09", "\x08"}};
  EXPECT_EQ(scan(document, "k"), undecided());
  EXPECT_EQ(scan(document, "last"), found(true));
}

TEST(PropertyListScanBinaryTest, LeavesKeysThatAreNoTexts) {
  for (const auto& object : {"\x10\x01"s, "\x09"s, array({}), dictionary({}, {}), counted(4, 1) + "k"}) {
    const Document document{{dictionary({1, 2}, {3, 3}), object, ascii("k"), "\x09"}};
    EXPECT_EQ(scan(document, "k"), undecided());
  }
}

TEST(PropertyListScanBinaryTest, LeavesContainersThatHoldThemselves) {
  EXPECT_EQ(besides(array({2})), undecided());
  EXPECT_EQ(besides(array({0})), undecided());
  EXPECT_EQ(besides(array({5}), {array({6}), array({5})}), undecided());
  EXPECT_EQ(besides(dictionary({1}, {2})), undecided());
}

TEST(PropertyListScanBinaryTest, LeavesContainersThatAreSharedAndTakesScalarsThatAre) {
  EXPECT_EQ(besides(array({5, 5}), {array({})}), undecided());
  EXPECT_EQ(besides(array({5, 5, 1, 4}), {ascii("shared")}), found(true));
}

// Many objects are the same bytes: unfolded, they would be as many as the square of the document's size.
TEST(PropertyListScanBinaryTest, LeavesObjectsThatOverlap) {
  const auto aliased = [](const std::string& object, std::size_t times) {
    Document document{{marker(0xd, 1) + references({1, 2}, 2), ascii("k"), counted(0xa, times), "\x09", object}};
    for (std::size_t i = 0; i < times; ++i) document.objects[2] += bigEndian(4 + i, 2);
    document.referenceSize = 2;
    document.offsetSize = 4;
    document.aliases = times - 1;
    return scan(document, "other");
  };
  std::string items;
  for (int i = 0; i < 20'000; ++i) items += bigEndian(3, 2);
  const auto text = ascii(std::string(20'000, 'x'));
  for (const auto& object : {counted(0xa, 20'000) + items, text}) {
    EXPECT_EQ(aliased(object, 1), absent());
    EXPECT_EQ(aliased(object, 2), undecided());
    EXPECT_EQ(aliased(object, 2000), undecided());
  }
}

// All contents together may be as large as the document, to the byte.
TEST(PropertyListScanBinaryTest, TakesOverlappingObjectsThatAreNoLargerThanTheDocument) {
  bool wasExact = false;
  for (std::size_t length = 15; length < 80; ++length) {
    Document document{{dictionary({1}, {2}), ascii("k"), array({3, 4, 5}), "\x09", ascii(std::string(length, 'x'))}};
    document.aliases = 1;
    const std::size_t contents = 1 + 3 + 2 * length;
    const bool fits = contents <= document.bytes().size();
    EXPECT_EQ(scan(document, "other"), fits ? absent() : undecided()) << length;
    wasExact |= contents == document.bytes().size();
  }
  EXPECT_TRUE(wasExact);
}

TEST(PropertyListScanBinaryTest, LeavesWhatIsNestedTooDeeply) {
  const auto nested = [](std::uint64_t containers) {  // Besides the root.
    Document document{{counted(0xd, 1) + references({1, 2}, 4), ascii("k")}};
    document.offsetSize = document.referenceSize = 4;
    for (std::uint64_t i = 1; i < containers; ++i) document.objects.push_back(counted(0xa, 1) + bigEndian(2 + i, 4));
    document.objects.push_back(counted(0xa, 0));
    return scan(document, "other");
  };
  EXPECT_EQ(nested(511), absent());
  EXPECT_EQ(nested(512), undecided());
  EXPECT_EQ(nested(300'000), undecided());
}

TEST(PropertyListScanBinaryTest, LeavesOtherRoots) {
  for (const auto& object : {array({}), "\x09"s, ascii("k")}) EXPECT_EQ(scan(Document{{object}}, "k"), undecided());
}

TEST(PropertyListScanBinaryTest, LeavesDamagedTrailers) {
  const auto changed = [](auto change) {
    auto document = holding("\x08");
    change(document);
    return scan(document, "k");
  };
  ASSERT_EQ(changed([](Document&) {}), found(false));
  EXPECT_EQ(changed([](Document& d) { d.magic = "bplist01"; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.root = 5; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.root = UINT64_MAX; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.excessObjects = 1; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.excessObjects = -1; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.excessObjects = -5; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.excessObjects = INT64_MAX; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.tableShift = 1; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.tableShift = -2; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.tableShift = -1000; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.tableShift = INT64_MAX; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.offsetSize = 0; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.offsetSize = 9; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.referenceSize = 0; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.referenceSize = 9; }), undecided());
  EXPECT_EQ(changed([](Document& d) { d.objects[0] = dictionary({1}, {5}); }), undecided());
}

TEST(PropertyListScanBinaryTest, TakesEverySizeOfOffsetsAndReferences) {
  for (std::uint64_t size = 1; size <= 8; ++size) {
    Document document{{counted(0xd, 1) + references({1, 2}, size), ascii("k"), "\x09"}};
    document.offsetSize = document.referenceSize = size;
    EXPECT_EQ(scan(document, "k"), found(true)) << size;
  }
}

// A reference of one byte could name 256 objects, but readers want the number of objects to fit too.
TEST(PropertyListScanBinaryTest, LeavesMoreObjectsThanReferencesCanCount) {
  for (const std::size_t unused : {252u, 253u}) {
    Document document{{dictionary({1}, {2}), ascii("k"), "\x09"}};
    for (std::size_t i = 0; i < unused; ++i) document.objects.push_back("\x09");
    EXPECT_EQ(scan(document, "k"), unused == 252 ? found(true) : undecided());
  }
}

TEST(PropertyListScanBinaryTest, LeavesOffsetsOutsideTheObjects) {
  const auto original = holding("\x08").bytes();
  const auto table = original.size() - 32 - 5 * 2;
  for (const std::uint64_t offset : {std::uint64_t{0}, std::uint64_t{7}, std::uint64_t{table}, std::uint64_t{0xffff}}) {
    for (std::size_t object = 0; object < 5; ++object) {
      auto document = original;
      document.replace(table + 2 * object, 2, bigEndian(offset, 2));
      EXPECT_EQ(scanGuarded(document, "k"), undecided()) << "object " << object << " at " << offset;
    }
  }
}

// The last object before the offset table claims to be longer than it is.
TEST(PropertyListScanBinaryTest, LeavesContentThatReachesIntoTheOffsetTable) {
  constexpr auto kHighBit = std::uint64_t{1} << 63;
  for (const auto& object : {marker(5, 3) + "ab", marker(6, 2) + "abc", marker(1, 3) + "abcdefg",
                             marker(2, 3) + "abcdefg", marker(0xa, 3) + "\x01\x01", marker(0xd, 1) + "\x01",
                             marker(5, 15), marker(5, 15) + marker(1, 0), marker(5, 15) + marker(2, 0) + "\x01" + "a",
                             marker(5, 15) + marker(1, 4) + bigEndian(0, 8) + bigEndian(1, 8) + "a",
                             longCount(5, UINT64_MAX) + "a", longCount(6, kHighBit), longCount(0xd, kHighBit)}) {
    const Document document{{dictionary({1}, {2}), ascii("k"), object}};
    EXPECT_EQ(scan(document, "other"), undecided());
  }
}

// The first entry of the offset table would be one more reference to an object.
TEST(PropertyListScanBinaryTest, LeavesContainersWithReferencesInTheOffsetTable) {
  const auto ending = [](const std::string& container) {
    Document document{{marker(0xd, 1) + references({1, 9}, 2), ascii("k")}};
    document.referenceSize = 2;
    while (document.objects.size() < 9) document.objects.push_back(ascii("unused"));
    document.objects.push_back(container);
    return scan(document, "other");
  };
  ASSERT_EQ(ending(counted(0xa, 2) + references({2, 3}, 2)), absent());
  EXPECT_EQ(ending(counted(0xa, 3) + references({2, 3}, 2)), undecided());
  ASSERT_EQ(ending(counted(0xd, 1) + references({2, 3}, 2)), absent());
  EXPECT_EQ(ending(counted(0xd, 1) + references({2}, 2)), undecided());
}

TEST(PropertyListScanBinaryTest, LeavesTruncatedDocuments) {
  const auto document = holding(array({5, 6}), {ascii(std::string(40, 'x')), utf16(u"😀")}).bytes();
  ASSERT_EQ(scanGuarded(document, "last"), found(true));
  for (std::size_t size = 0; size < document.size(); ++size) {
    EXPECT_EQ(scanGuarded(document.substr(0, size), "last"), undecided()) << size;
  }
}

}  // namespace
