// What a scan answers for property lists in XML.
#include <gtest/gtest.h>

#include <locale>
#include <string>
#include <string_view>
#include <vector>

#include "ZunoPrefs/core/PropertyListScanSamples.hpp"

namespace {

using namespace testing_support;
using namespace std::string_view_literals;

/// A dictionary with `entries` as it is written, and one entry behind them.
std::string dictionary(std::string_view entries) {
  return std::string(kXMLHead) + "<dict>\n" + std::string(entries) + "\t<key>last</key>\n\t<true/>\n</dict>\n" +
         std::string(kXMLTail);
}

/// A dictionary whose key "k" has the value `element`.
std::string holding(std::string_view element) { return dictionary("\t<key>k</key>\n\t" + std::string(element) + "\n"); }

using Scans = std::vector<zuno::PropertyListScan>;

/// The value of "k" in a dictionary that holds `element` for it.
zuno::PropertyListScan valueOf(std::string_view element) { return scanGuarded(holding(element), "k"); }

/// What is told of another key of that dictionary.
zuno::PropertyListScan besides(std::string_view element) { return scanGuarded(holding(element), "last"); }

TEST(PropertyListScanXMLTest, FindsEveryKindOfScalar) {
  EXPECT_EQ(valueOf("<true/>"), found(true));
  EXPECT_EQ(valueOf("<false/>"), found(false));
  EXPECT_EQ(valueOf("<string>iPhone</string>"), found("iPhone"sv));
  EXPECT_EQ(valueOf("<integer>42</integer>"), found(std::int64_t{42}));
  EXPECT_EQ(valueOf("<real>0.5</real>"), found(0.5));
}

TEST(PropertyListScanXMLTest, FindsSeveralKeysInOnePass) {
  const auto document = dictionary(
      "\t<key>a</key>\n\t<integer>1</integer>\n\t<key>b</key>\n\t<string>two</string>\n"
      "\t<key>c</key>\n\t<dict>\n\t<key>d</key>\n\t<true/>\n\t</dict>\n");
  const Scans all{found(true), found("two"sv), absent(), found(std::int64_t{1})};
  EXPECT_EQ(scanGuardedKeys(document, {"last", "b", "d", "a"}), all);
  EXPECT_EQ(scanGuardedKeys(document, {}), Scans{});
  EXPECT_EQ(scanGuardedKeys(document, {"a", "c", "none"}), Scans(3)) << "one that is undecided leaves all so";
  const auto twice = dictionary("\t<key>a</key>\n\t<true/>\n\t<key>a</key>\n\t<true/>\n");
  EXPECT_EQ(scanGuardedKeys(twice, {"last", "a"}), Scans(2));
  EXPECT_EQ(scanGuardedKeys(twice, {"last", "b"}), (Scans{found(true), absent()}));
}

TEST(PropertyListScanXMLTest, ReadsIntegersOf64Bits) {
  EXPECT_EQ(valueOf("<integer>0</integer>"), found(std::int64_t{0}));
  EXPECT_EQ(valueOf("<integer>-1</integer>"), found(std::int64_t{-1}));
  EXPECT_EQ(valueOf("<integer>9223372036854775807</integer>"), found(std::int64_t{INT64_MAX}));
  EXPECT_EQ(valueOf("<integer>-9223372036854775808</integer>"), found(std::int64_t{INT64_MIN}));
  EXPECT_EQ(valueOf("<integer>9223372036854775808</integer>"), found(std::uint64_t{INT64_MAX} + 1));
  EXPECT_EQ(valueOf("<integer>18446744073709551615</integer>"), found(std::uint64_t{UINT64_MAX}));
}

TEST(PropertyListScanXMLTest, LeavesIntegersThatReadersTakeDifferently) {
  for (const char* text : {"", " 1", "1 ", "+1", "-0", "010", "0x1F", "1.0", "1e3", "--1", "-", "one",
                           "18446744073709551616", "-9223372036854775809", "99999999999999999999999999"}) {
    const auto element = "<integer>" + std::string(text) + "</integer>";
    EXPECT_EQ(valueOf(element), undecided()) << element;
    EXPECT_EQ(besides(element), undecided()) << element;
  }
  EXPECT_EQ(valueOf("<integer/>"), undecided());
}

TEST(PropertyListScanXMLTest, ReadsRealsToTheNearestNumber) {
  EXPECT_EQ(valueOf("<real>-20</real>"), found(-20.0));
  EXPECT_EQ(valueOf("<real>0.29999999999999999</real>"), found(0.3));
  EXPECT_EQ(valueOf("<real>0.30000001192092896</real>"), found(static_cast<double>(0.3f)));
  EXPECT_EQ(valueOf("<real>1e+20</real>"), found(1e20));
  EXPECT_EQ(valueOf("<real>1.7976931348623157E-99</real>"), found(1.7976931348623157e-99));
  EXPECT_EQ(valueOf("<real>0.000000</real>"), found(0.0));
  const std::string longest = "0." + std::string(46, '3');
  EXPECT_EQ(valueOf("<real>" + longest + "</real>"), found(1.0 / 3));
  EXPECT_EQ(valueOf("<real>" + longest + "3</real>"), undecided());
}

TEST(PropertyListScanXMLTest, ReadsRealsWithAPointInEveryLocale) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const auto before = std::locale::global(std::locale(std::locale::classic(), new Comma));
  const auto scan = valueOf("<real>0.5</real>");
  std::locale::global(before);
  EXPECT_EQ(scan, found(0.5));
}

TEST(PropertyListScanXMLTest, LeavesRealsThatReadersTakeDifferently) {
  for (const char* text : {"", " 0.5", "0.5 ", "+0.5", ".5", "5.", "0,5", "1e", "1e+", "1e400", "1e-400", "nan", "inf",
                           "+infinity", "0x1p3", "1.5.2", "1 2", "1~"}) {
    const auto element = "<real>" + std::string(text) + "</real>";
    EXPECT_EQ(valueOf(element), undecided()) << element;
    EXPECT_EQ(besides(element), undecided()) << element;
  }
  EXPECT_EQ(valueOf("<real>" + std::string(400, '9') + "</real>"), undecided());
}

TEST(PropertyListScanXMLTest, KeepsTextsByteForByte) {
  EXPECT_EQ(valueOf("<string></string>"), found(""sv));
  EXPECT_EQ(valueOf("<string/>"), found(""sv));
  EXPECT_EQ(valueOf("<string>  two\tspaces \n</string>"), found("  two\tspaces \n"sv));
  EXPECT_EQ(valueOf("<string>one\r\ntwo\r\n</string>"), found("one\r\ntwo\r\n"sv));
  EXPECT_EQ(valueOf("<string>naïve 日本語 😀👍🏽</string>"), found("naïve 日本語 😀👍🏽"sv));
  EXPECT_EQ(valueOf("<string>a > b ]]> \"c\" 'd'</string>"), found("a > b ]]> \"c\" 'd'"sv));
}

TEST(PropertyListScanXMLTest, LendsTextsWithoutEntities) {
  const std::string document = holding("<string>lent</string>");
  const auto scan = zuno::scanPropertyList(std::as_bytes(std::span(document)), "k");
  const auto* text = std::get_if<std::string_view>(&scan.value);
  ASSERT_TRUE(text);
  EXPECT_EQ(text->data(), document.data() + document.find("lent"));
}

TEST(PropertyListScanXMLTest, DecodesTheNamedEntities) {
  EXPECT_EQ(valueOf("<string>a &lt;b&gt; &amp; &quot;c&quot; &apos;d&apos;</string>"), found("a <b> & \"c\" 'd'"sv));
  EXPECT_EQ(valueOf("<string>&amp;</string>"), found("&"sv));
  EXPECT_EQ(valueOf("<string>&amp;lt;</string>"), found("&lt;"sv));
}

TEST(PropertyListScanXMLTest, LeavesWhatWritersDoNotPutIntoTexts) {
  for (const char* text : {"&#65;",
                           "&#x1F600;",
                           "&#0;",
                           "&bogus;",
                           "&",
                           "& ",
                           "&lt",
                           "&LT;",
                           "<![CDATA[x]]>",
                           "a<!-- b -->",
                           "<b>",
                           "\x01",
                           "\x1f",
                           "\xef\xbf\xbe",
                           "\xef\xbf\xbf",
                           "\x80",
                           "\xc3",
                           "\xc0\x80",
                           "\xe0\x80\x80",
                           "\xed\xa0\x80",
                           "\xf0\x80\x80\x80",
                           "\xf4\x90\x80\x80",
                           "\xf5\x80\x80\x80",
                           "\xff"}) {
    for (const std::string& before : {std::string(), std::string(700, 'x')}) {
      const auto element = "<string>" + before + text + "</string>";
      EXPECT_EQ(valueOf(element), undecided()) << element;
      EXPECT_EQ(besides(element), undecided()) << element;
    }
  }
  EXPECT_EQ(valueOf("<string>a\0b</string>"sv), undecided());
}

// Foundation drops the mark, at the start of a key too.
TEST(PropertyListScanXMLTest, LeavesByteOrderMarks) {
  EXPECT_EQ(besides("<string>\xef\xbb\xbfx</string>"), undecided());
  EXPECT_EQ(besides("<string>x\xef\xbb\xbf</string>"), undecided());
  EXPECT_EQ(scanGuarded(dictionary("<key>\xef\xbb\xbfk</key><true/>"), "k"), undecided());
}

// Every place in and around the blocks that are checked at once.
TEST(PropertyListScanXMLTest, ChecksEveryByteOfALongText) {
  std::string text(1100, 'a');
  for (std::size_t at = 0; at < text.size(); ++at) {
    for (const char wrong : {'\x01', '\xff', '&', '\x80'}) {
      text[at] = wrong;
      ASSERT_EQ(besides("<string>" + text + "</string>"), undecided()) << "byte " << at;
    }
    text[at] = at % 2 ? '\n' : '\r';
    ASSERT_EQ(valueOf("<string>" + text + "</string>"), found(text)) << "byte " << at;
    text[at] = 'a';
    const auto wide = text.substr(0, at) + "€" + text.substr(at);
    ASSERT_EQ(valueOf("<string>" + wide + "</string>"), found(wide)) << "byte " << at;
  }
}

TEST(PropertyListScanXMLTest, SkipsAPhoto) {
  std::string photo;
  while (photo.size() < 200'000) photo += "QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVphYmNkZWZnaGlqa2xtbm9wcXJzdHV2\r\n";
  const auto element = "<string>" + photo + "</string>";
  EXPECT_EQ(besides(element), found(true));
  EXPECT_EQ(valueOf(element), found(photo));
}

TEST(PropertyListScanXMLTest, TellsAbsentKeys) {
  EXPECT_EQ(scanGuarded(holding("<true/>"), "other"), absent());
  EXPECT_EQ(scanGuarded(holding("<true/>"), "K"), absent());
  EXPECT_EQ(scanGuarded(holding("<string>last</string>"), "las"), absent());
  EXPECT_EQ(scanGuarded(holding("<true/>"), ""), absent());
  EXPECT_EQ(scanGuarded(holding("<true/>"), "k\0"sv), absent());
  for (const std::string& root : {"<dict/>", "<dict></dict>", "<dict>\n</dict>"}) {
    EXPECT_EQ(scanGuarded(std::string(kXMLHead) + root + std::string(kXMLTail), "k"), absent()) << root;
  }
}

TEST(PropertyListScanXMLTest, ComparesKeysDecoded) {
  const auto document =
      dictionary("<key>blur &amp; dim</key><true/><key>größe 🔑</key><false/><key></key><integer>1</integer>");
  EXPECT_EQ(scanGuarded(document, "blur & dim"), found(true));
  EXPECT_EQ(scanGuarded(document, "blur &amp; dim"), absent());
  EXPECT_EQ(scanGuarded(document, "größe 🔑"), found(false));
  EXPECT_EQ(scanGuarded(document, ""), found(std::int64_t{1}));
}

TEST(PropertyListScanXMLTest, LooksOnlyIntoTheRoot) {
  const auto document = dictionary(
      "<key>before</key><dict><key>k</key><integer>1</integer><key>k</key><true/></dict>"
      "<key>list</key><array><dict><key>k</key><string>2</string></dict><array/><dict/><string>k</string></array>"
      "<key>k</key><integer>3</integer>"
      "<key>after</key><dict><key>k</key><integer>4</integer></dict>");
  EXPECT_EQ(scanGuarded(document, "k"), found(std::int64_t{3}));
  EXPECT_EQ(scanGuarded(document, "last"), found(true));
  EXPECT_EQ(scanGuarded(document, "2"), absent());
}

TEST(PropertyListScanXMLTest, LeavesValuesThatAreContainers) {
  for (const char* element : {"<array/>", "<dict/>", "<array><true/></array>", "<dict><key>a</key><true/></dict>"}) {
    EXPECT_EQ(valueOf(element), undecided()) << element;
    EXPECT_EQ(besides(element), found(true)) << element;
  }
}

TEST(PropertyListScanXMLTest, LeavesDatesAndData) {
  for (const char* element : {"<date>2024-02-29T12:00:00Z</date>", "<data>AAAA</data>", "<data/>"}) {
    EXPECT_EQ(valueOf(element), undecided()) << element;
    EXPECT_EQ(besides(element), undecided()) << element;
  }
}

TEST(PropertyListScanXMLTest, LeavesKeysThatOccurTwice) {
  const auto document = dictionary("<key>k</key><true/><key>k</key><false/>");
  EXPECT_EQ(scanGuarded(document, "k"), undecided());
  EXPECT_EQ(scanGuarded(document, "last"), found(true));
  EXPECT_EQ(scanGuarded(dictionary("<key>k</key><true/><key>k</key><key>a</key><true/>"), "k"), undecided());
}

TEST(PropertyListScanXMLTest, AcceptsTheSpellingsOfTheWriters) {
  const std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
  const std::string entries = "<dict><key>k</key><string>v</string></dict></plist>";
  for (const std::string& head :
       {"\n<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n",
        "\n<!DOCTYPE plist PUBLIC \"-//GNUstep//DTD plist 0.9//EN\" \"http://www.gnustep.org/plist-0_9.xml\">\n"
        "<plist version=\"0.9\">\n",
        "<!DOCTYPE plist PUBLIC \"a\" \"http://a/~b\"><plist version=\"1.0\">", "<plist version=\"1.0\">",
        "\r\n<plist version=\"1.0\">\r\n"}) {
    EXPECT_EQ(scanGuarded(xml + head + entries, "k"), found("v"sv)) << head;
    EXPECT_EQ(scanGuarded(xml + head + entries + "\r\n \t\n", "k"), found("v"sv)) << head;
  }
}

TEST(PropertyListScanXMLTest, LeavesOtherSpellings) {
  const std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
  const std::string plist = "<plist version=\"1.0\">";
  const std::string rest = "<dict><key>k</key><true/></dict></plist>";
  ASSERT_EQ(scanGuarded(xml + plist + rest, "k"), found(true));
  for (const std::string& document :
       {plist + rest, "\n" + xml + plist + rest, "\xef\xbb\xbf" + xml + plist + rest,
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + plist + rest, xml + "<plist>" + rest,
        xml + "<plist version='1.0'>" + rest, xml + "<dict><key>k</key><true/></dict>",
        xml + "<!DOCTYPE plist PUBLIC \"a\" \"b\" [<!ENTITY k \"v\">]>" + plist + rest,
        xml + "<!DOCTYPE plist PUBLIC \"a\" \"b>" + plist + rest,
        xml + "<!DOCTYPE plist PUBLIC \"\xff\" \"b\">" + plist + rest,
        xml + "<!DOCTYPE plist PUBLIC \xff\"a\" \"b\">" + plist + rest,
        xml + "<!DOCTYPE plist SYSTEM \"b\">" + plist + rest, xml + "<!-- a -->" + plist + rest,
        xml + plist + "<!-- a -->" + rest, xml + plist + "<?a?>" + rest, xml + plist + rest + "<!-- a -->",
        xml + plist + rest + "x", xml + plist + rest + std::string(1, '\0'), xml + plist + rest + plist + rest}) {
    EXPECT_EQ(scanGuarded(document, "k"), undecided()) << document;
  }
}

TEST(PropertyListScanXMLTest, LeavesMalformedDictionaries) {
  for (const char* entries :
       {"<key>a</key>", "<true/>", "<key>a</key><key>b</key><true/>", "<key>a<true/>", "<key/><true/>", "text",
        "<key>a</key>text<true/>", "<key>a</key><true></true>", "<key>a</key><true />", "<key>a</key><string>b</key>",
        "<key>a</key><array><true/></dict>", "<key>a</key><array><key>b</key></array>", "<key>a</key><bogus/>",
        "<key>a</key></array>", "<key>a</key><dict><true/></dict>", "<key>a</key><dict><key>b</key></dict>",
        "<key>a</key><string>b", "<KEY>a</KEY><true/>", "<key>a</key><string attribute=\"1\">b</string>"}) {
    EXPECT_EQ(scanGuarded(dictionary(entries), "last"), undecided()) << entries;
  }
}

TEST(PropertyListScanXMLTest, LeavesOtherRoots) {
  for (const std::string& root : {"", "<array/>", "<array><dict><key>k</key><true/></dict></array>",
                                  "<string>k</string>", "<true/>", "<dict/><dict/>"}) {
    EXPECT_EQ(scanGuarded(std::string(kXMLHead) + root + std::string(kXMLTail), "k"), undecided()) << root;
  }
}

TEST(PropertyListScanXMLTest, LeavesOtherTexts) {
  for (const std::string_view document : {""sv, "<"sv, " "sv, "\0"sv, "{ k = v; }"sv, "k = v;"sv, "garbage"sv,
                                          "{\"k\":true}"sv, "<html></html>"sv, "\xff\xfe<\0?\0"sv}) {
    EXPECT_EQ(scanGuarded(document, "k"), undecided()) << document;
  }
}

// Nothing but the white space behind the last tag may be missing.
TEST(PropertyListScanXMLTest, LeavesTruncatedDocuments) {
  const auto document = dictionary(
      "<key>k</key><string>a &amp; b</string><key>a</key><array><integer>1</integer><real>0.5</real><dict/></array>");
  ASSERT_EQ(scanGuarded(document, "k"), found("a & b"sv));
  const auto whole = document.find_last_not_of('\n') + 1;
  for (std::size_t size = 0; size < whole; ++size) {
    EXPECT_EQ(scanGuarded(document.substr(0, size), "k"), undecided()) << size;
  }
  EXPECT_EQ(scanGuarded(document.substr(0, whole), "k"), found("a & b"sv));
}

TEST(PropertyListScanXMLTest, LeavesWhatIsNestedTooDeeply) {
  const auto nested = [](std::size_t containers, const char* innermost = "<true/>") {  // Besides the root.
    std::string element;
    for (std::size_t i = 0; i < containers; ++i) element += i % 2 ? "<array>" : "<dict><key>k</key>";
    element += innermost;
    for (std::size_t i = containers; i > 0; --i) element += i % 2 ? "</dict>" : "</array>";
    return element;
  };
  EXPECT_EQ(besides(nested(511)), found(true));
  EXPECT_EQ(besides(nested(512)), undecided());
  for (const char* innermost : {"<array/>", "<dict/>"}) {
    EXPECT_EQ(besides(nested(510, innermost)), found(true));
    EXPECT_EQ(besides(nested(511, innermost)), undecided());
  }
  EXPECT_EQ(besides(nested(300'000)), undecided());
}

}  // namespace
