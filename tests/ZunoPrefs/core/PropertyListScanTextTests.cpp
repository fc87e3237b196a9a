// Which characters a scan takes: every one that UTF-8, UTF-16 and XML have, and nothing that resembles one. The C
// library's converter decides.
#include <gtest/gtest.h>
#include <iconv.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "ZunoPrefs/core/PropertyListScanSamples.hpp"

namespace {

using namespace testing_support;

class Converter final {
 public:
  Converter(const char* to, const char* from) : state_(iconv_open(to, from)) {}
  ~Converter() { iconv_close(state_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  /// None when `text` is malformed.
  std::optional<std::string> operator()(std::string text) const {
    std::string result(4 * text.size() + 4, '\0');
    char *from = text.data(), *to = result.data();
    std::size_t fromLeft = text.size(), toLeft = result.size();
    if (iconv(state_, &from, &fromLeft, &to, &toLeft) == static_cast<std::size_t>(-1)) {
      iconv(state_, nullptr, nullptr, nullptr, nullptr);
      return std::nullopt;
    }
    result.resize(result.size() - toLeft);
    return result;
  }

 private:
  iconv_t state_;
};

std::string bigEndian(std::uint64_t number, int size) {
  std::string bytes;
  while (size-- > 0) bytes += static_cast<char>(number >> (8 * size));
  return bytes;
}

/// The value of "k" in an XML document that holds `text` for it.
zuno::PropertyListScan inXML(const std::string& text) {
  const auto document =
      std::string(kXMLHead) + "<dict><key>k</key><string>" + text + "</string></dict>" + std::string(kXMLTail);
  auto scan = zuno::scanPropertyList(std::as_bytes(std::span(document)), "k");
  if (const auto* lent = std::get_if<std::string_view>(&scan.value)) scan.value = std::string(*lent);
  return scan;
}

/// The value of "k" in a binary document that holds the UTF-16 text `units`, big-endian, for it.
zuno::PropertyListScan inBinary(const std::string& units) {
  const auto count = static_cast<std::uint32_t>(units.size() / 2);
  const std::string objects[] = {"\xd1\x01\x02", "\x51k", "\x6f\x12" + bigEndian(count, 4) + units};
  std::string document = "bplist00", table;
  for (const auto& object : objects) {
    table += bigEndian(static_cast<std::uint32_t>(document.size()), 4);
    document += object;
  }
  const auto place = static_cast<std::uint32_t>(document.size());
  document += table + std::string(6, '\0') + "\x04\x01" + bigEndian(0, 4) + bigEndian(3, 4) + bigEndian(0, 8) +
              bigEndian(0, 4) + bigEndian(place, 4);
  return zuno::scanPropertyList(std::as_bytes(std::span(document)), "k");
}

/// Beyond the surrogates: the mark that Foundation drops, and in XML the two that are no characters.
bool isTaken(std::uint32_t code) { return code < 0xd800 || (code > 0xdfff && code < 0x110000 && code != 0xfeff); }
bool isTakenInXML(std::uint32_t code) { return isTaken(code) && code != 0xfffe && code != 0xffff; }

TEST(PropertyListScanTextTest, TakesEveryCharacter) {
  const Converter utf8("UTF-8", "UTF-32BE"), utf16("UTF-16BE", "UTF-32BE");
  for (std::uint32_t first = 0x80; first < 0x110000; first += 0x400) {
    std::string allowed, allowedInXML;
    for (auto code = first; code < first + 0x400; ++code) {
      if (isTaken(code)) allowed += bigEndian(code, 4);
      if (isTakenInXML(code)) allowedInXML += bigEndian(code, 4);
    }
    if (allowed.empty()) continue;
    const auto text = utf8(allowed), textInXML = utf8(allowedInXML), units = utf16(allowed);
    ASSERT_TRUE(text && textInXML && units) << "from " << first;
    ASSERT_EQ(inXML(*textInXML), found(*textInXML)) << "from " << first;
    ASSERT_EQ(inBinary(*units), found(*text)) << "from " << first;
  }
}

TEST(PropertyListScanTextTest, LeavesEverySurrogateThatIsAlone) {
  for (std::uint32_t code = 0xd800; code < 0xe000; ++code) {
    ASSERT_EQ(inBinary(bigEndian(code, 2)), undecided()) << code;
    ASSERT_EQ(inBinary(bigEndian(code, 2) + bigEndian('a', 2)), undecided()) << code;
    if (code < 0xdc00) {
      ASSERT_EQ(inBinary(bigEndian(code, 2) + bigEndian(0xe000, 2)), undecided()) << code;
    }
  }
}

// Every first byte, and around every limit of those that follow.
TEST(PropertyListScanTextTest, LeavesEverythingThatIsNoUTF8) {
  const Converter fromUTF8("UTF-32BE", "UTF-8");
  const auto expect = [&](const std::string& bytes) {
    const auto decoded = fromUTF8(bytes);
    bool taken = decoded.has_value();
    for (std::size_t at = 0; taken && at < decoded->size(); at += 4) {
      std::uint32_t code = 0;
      for (std::size_t i = 0; i < 4; ++i) code = code << 8 | static_cast<unsigned char>((*decoded)[at + i]);
      taken = isTakenInXML(code);
    }
    ASSERT_EQ(inXML(bytes), taken ? found(bytes) : undecided()) << ::testing::PrintToString(bytes);
  };
  const auto some = {0x7f, 0x80, 0x81, 0x8f, 0x90, 0x91, 0x9f, 0xa0, 0xa1, 0xbb, 0xbe, 0xbf, 0xc0};
  for (int lead = 0x80; lead < 0x100; ++lead) {
    const std::string one(1, static_cast<char>(lead));
    expect(one);
    for (const int second : some) {
      const auto two = one + static_cast<char>(second);
      expect(two);
      for (const int third : some) {
        const auto three = two + static_cast<char>(third);
        expect(three);
        if (lead < 0xe0 || HasFatalFailure()) continue;
        for (const int fourth : some) expect(three + static_cast<char>(fourth));
      }
    }
  }
}

}  // namespace
