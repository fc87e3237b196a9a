#include "ZunoPrefs/core/PropertyListScanSamples.hpp"

#include <plist/plist.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <utility>

namespace zuno {
namespace {

std::optional<std::string_view> textIn(const ScannedValue& value) {
  if (const auto* lent = std::get_if<std::string_view>(&value)) return *lent;
  if (const auto* decoded = std::get_if<std::string>(&value)) return *decoded;
  return std::nullopt;
}

}  // namespace

bool operator==(const PropertyListScan& a, const PropertyListScan& b) {
  if (a.outcome != b.outcome) return false;
  if (a.outcome != PropertyListScan::Outcome::kFound) return true;
  const auto textA = textIn(a.value), textB = textIn(b.value);
  return textA || textB ? textA == textB : a.value == b.value;
}

void PrintTo(const PropertyListScan& scan, std::ostream* out) {
  if (scan.outcome != PropertyListScan::Outcome::kFound) {
    *out << (scan.outcome == PropertyListScan::Outcome::kAbsent ? "absent" : "undecided");
    return;
  }
  constexpr const char* kTypes[] = {"bool", "int64", "uint64", "float", "double", "text", "text"};
  *out << "found " << kTypes[scan.value.index()] << " ";
  std::visit([&](const auto& value) { *out << value; }, scan.value);
}

}  // namespace zuno

namespace testing_support {
namespace {

using zuno::PropertyListScan;
using zuno::ScannedValue;
using Outcome = PropertyListScan::Outcome;

std::size_t below(std::size_t limit, Random& random) { return random() % limit; }

template <typename List>
const auto& oneOf(const List& list, Random& random) {
  return list[below(std::size(list), random)];
}

constexpr const char* kWords[] = {
    "blur", "device",        "iPhone 15 & co",         "a < b > c",        "naïve",        "ﬁ", "日本語", "😀👍🏽",
    "",     " spaced\tout ", "line one\r\nline two\n", "\"quoted\" 'too'", "\x7f\xc2\x80", "0"};
constexpr const char* kKeys[] = {"enabled", "useCustom", "device", "iosVersion", "backgroundImage",   "blur & dim",
                                 "größe",   "鍵",        "🔑",     "x",          "A key with spaces", "\"<>'"};

std::string randomText(Random& random) {
  std::string text;
  for (auto count = below(4, random); count > 0; --count) text += oneOf(kWords, random);
  if (below(8, random) == 0) {
    for (auto lines = below(30, random); lines > 0; --lines) text += std::string(64, "aZ09+/"[lines % 6]) + "\r\n";
  }
  return text;
}

plist_t randomNode(Random& random, std::size_t depth, std::string& xml, ScannedValue* value);

/// The spellings of `text` that a writer may choose.
std::string escaped(std::string_view text, Random& random) {
  const bool quotesToo = below(2, random) == 0;
  std::string result;
  for (const char character : text) {
    switch (character) {
      case '<': result += "&lt;"; break;
      case '>': result += quotesToo ? "&gt;" : ">"; break;
      case '&': result += "&amp;"; break;
      case '"': result += quotesToo ? "&quot;" : "\""; break;
      case '\'': result += quotesToo ? "&apos;" : "'"; break;
      default: result += character;
    }
  }
  return result;
}

std::string space(Random& random) {
  constexpr const char* kSpaces[] = {"", "\n", "\r\n\t", "\n    ", " \t\r\n", "\n\n\n"};
  return oneOf(kSpaces, random);
}

plist_t randomArray(Random& random, std::size_t depth, std::string& xml) {
  plist_t node = plist_new_array();
  xml += "<array>";
  for (auto count = below(4, random); count > 0; --count) {
    xml += space(random);
    plist_array_append_item(node, randomNode(random, depth + 1, xml, nullptr));
  }
  xml += space(random) + "</array>";
  return node;
}

/// With `expectations` it is the root, whose containers they cannot tell.
plist_t randomDictionary(Random& random, std::size_t depth, std::string& xml, std::vector<Expectation>* expectations) {
  plist_t node = plist_new_dict();
  xml += "<dict>";
  std::vector<std::string> keys(std::begin(kKeys), std::end(kKeys));
  std::shuffle(keys.begin(), keys.end(), random);
  const auto count = below(depth == 0 ? keys.size() : 4, random);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    ScannedValue value;
    if (i >= count) {
      if (expectations) expectations->push_back({keys[i], absent()});
      continue;
    }
    xml += space(random) + "<key>" + escaped(keys[i], random) + "</key>" + space(random);
    plist_t item = randomNode(random, depth + 1, xml, &value);
    const auto type = plist_get_node_type(item);
    const bool isContainer = type == PLIST_DICT || type == PLIST_ARRAY;
    if (expectations) expectations->push_back({keys[i], isContainer ? undecided() : found(std::move(value))});
    plist_dict_set_item(node, keys[i].c_str(), item);
  }
  xml += space(random) + "</dict>";
  return node;
}

/// Numbers are read, because what plist_new_uint makes is written in sixteen bytes by some libplists.
plist_t readNode(const std::string& document) {
  plist_t node = nullptr;
  plist_from_xml(document.data(), static_cast<std::uint32_t>(document.size()), &node);
  return node;
}

/// A node for libplist, the same in `xml`, and what a scan answers for it in `value`.
plist_t randomNode(Random& random, std::size_t depth, std::string& xml, ScannedValue* value) {
  ScannedValue ignored;
  if (!value) value = &ignored;
  constexpr std::uint64_t kNumbers[] = {
      0, 1, 2, 9, 127, 128, 255, 256, 65535, 65536, 0xffffffff, 0x100000000, std::numeric_limits<std::int64_t>::max()};
  constexpr std::pair<double, const char*> kReals[] = {{0.5, "0.5"},    {-20.0, "-20"}, {0.1, "0.1"},
                                                       {1e20, "1e+20"}, {0.0, "0.0"},   {-0.25, "-2.5E-1"}};
  switch (below(depth < 4 ? 7 : 5, random)) {
    case 0: {
      const auto text = randomText(random);
      xml += "<string>" + escaped(text, random) + "</string>";
      *value = text;
      return plist_new_string(text.c_str());
    }
    case 1: {
      const auto number = oneOf(kNumbers, random);
      const auto text = "<integer>" + std::to_string(number) + "</integer>";
      xml += text;
      *value = static_cast<std::int64_t>(number);
      return readNode("<plist>" + text + "</plist>");
    }
    case 2: {
      const auto [number, text] = oneOf(kReals, random);
      xml += std::string("<real>") + text + "</real>";
      *value = number;
      return plist_new_real(number);
    }
    case 3:
    case 4: {
      const bool truth = below(2, random) == 0;
      xml += truth ? "<true/>" : "<false/>";
      *value = truth;
      return plist_new_bool(truth);
    }
    case 5: return randomArray(random, depth, xml);
    default: return randomDictionary(random, depth, xml, nullptr);
  }
}

std::string written(plist_t root, decltype(plist_to_xml)* write) {
  char* text = nullptr;
  std::uint32_t size = 0;
  write(root, &text, &size);
  std::string document(text, size);
  std::free(text);
  return document;
}

/// libplist writes reals in four bytes where that loses nothing.
void shorten(ScannedValue& value) {
  const auto* real = std::get_if<double>(&value);
  if (real && static_cast<float>(*real) == *real) value = static_cast<float>(*real);
}

constexpr std::string_view kFragments[] = {"<",
                                           ">",
                                           "&",
                                           "&amp;",
                                           "&#65;",
                                           "&#x1F600;",
                                           "&bogus;",
                                           "]]>",
                                           "<![CDATA[x]]>",
                                           "<!--a-->",
                                           "<!-- -- -->",
                                           "<dict>",
                                           "</dict>",
                                           "<dict/>",
                                           "<array>",
                                           "</array>",
                                           "<array/>",
                                           "<key>",
                                           "</key>",
                                           "<key/>",
                                           "<key>device</key>",
                                           "<string>",
                                           "</string>",
                                           "<string/>",
                                           "<true/>",
                                           "<true></true>",
                                           "<integer>1</integer>",
                                           "<integer>0x1F</integer>",
                                           "<integer> 7 </integer>",
                                           "<integer>-1</integer>",
                                           "<integer>010</integer>",
                                           "<real>nan</real>",
                                           "<real>1e5</real>",
                                           "<real>.5</real>",
                                           "<data>AAAA</data>",
                                           "<date>2024-02-29T12:00:00Z</date>",
                                           "</plist>",
                                           "<?x?>",
                                           "\xef\xbb\xbf",
                                           "\xff",
                                           "\xed\xa0\x80",
                                           "\xc0\x80",
                                           "\xf0\x9f\x98\x80",
                                           "\x01",
                                           " ",
                                           std::string_view("\0", 1),
                                           std::string_view("\0\0\0\0", 4)};

}  // namespace

Sample randomSample(Random& random) {
  Sample sample;
  std::string xml;
  const std::unique_ptr<void, decltype(&plist_free)> root(randomDictionary(random, 0, xml, &sample.expectations),
                                                          plist_free);
  switch (below(3, random)) {
    case 0:
      sample.document = written(root.get(), plist_to_bin);
      for (auto& [key, scan] : sample.expectations) shorten(scan.value);
      break;
    case 1: sample.document = written(root.get(), plist_to_xml); break;
    default:
      sample.document = std::string(kXMLHead) + space(random) + xml + space(random);
      sample.document += std::string(kXMLTail) + space(random);
  }
  return sample;
}

std::string damaged(std::string document, Random& random) {
  for (auto changes = 1 + below(4, random); changes > 0; --changes) {
    // The tables of a binary document lie at its end, so that is hit more often.
    const auto size = document.size() + 1;
    const auto fromEnd = below(below(3, random) == 0 ? std::min<std::size_t>(size, 80) : size, random);
    const auto at = size - 1 - fromEnd;
    const auto length = std::min<std::size_t>(below(below(2, random) == 0 ? 4 : 40, random), document.size() - at);
    switch (below(7, random)) {
      case 0: document.erase(at, length); break;
      case 1: document.insert(at, oneOf(kFragments, random)); break;
      case 2: document.replace(at, length, oneOf(kFragments, random)); break;
      case 3: document.insert(below(size, random), document.substr(at, length)); break;
      case 4: document.resize(at); break;
      case 5:
        if (at < document.size()) document[at] = static_cast<char>(random());
        break;
      default:
        if (at < document.size()) document[at] = static_cast<char>(document[at] ^ (1 << below(8, random)));
    }
  }
  return document;
}

PropertyListScan found(ScannedValue value) { return {Outcome::kFound, std::move(value)}; }
PropertyListScan absent() { return {Outcome::kAbsent, {}}; }
PropertyListScan undecided() { return {}; }

GuardedCopy::GuardedCopy(std::string_view document) : size_(document.size()) {
  static const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const auto readable = (size_ + page - 1) / page * page;
  mappedSize_ = readable + page;
  memory_ = static_cast<char*>(mmap(nullptr, mappedSize_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  if (memory_ == MAP_FAILED || mprotect(memory_ + readable, page, PROT_NONE) != 0) std::abort();
  content_ = memory_ + readable - document.size();
  std::copy(document.begin(), document.end(), content_);
}

GuardedCopy::~GuardedCopy() { munmap(memory_, mappedSize_); }

PropertyListScan GuardedCopy::scan(std::string_view key) const {
  auto result = zuno::scanPropertyList(bytes(), key);
  // Beside other keys it is the same.
  const std::string_view keys[] = {"\x01 none has this key", key};
  PropertyListScan results[] = {found(true), found(true)};
  zuno::scanPropertyListKeys(bytes(), keys, results);
  if (!(results[1] == result)) std::abort();
  const bool isDecided = result.outcome != PropertyListScan::Outcome::kUndecided;
  if (!(results[0] == (isDecided ? absent() : undecided()))) std::abort();
  return result;
}

PropertyListScan scanGuarded(std::string_view document, std::string_view key) {
  const GuardedCopy copy(document);
  auto result = copy.scan(key);
  if (const auto* lent = std::get_if<std::string_view>(&result.value)) result.value = std::string(*lent);
  return result;
}

std::vector<PropertyListScan> scanGuardedKeys(std::string_view document, std::vector<std::string_view> keys) {
  std::vector<PropertyListScan> results(keys.size());
  const GuardedCopy copy(document);
  zuno::scanPropertyListKeys(copy.bytes(), keys, results);
  for (auto& result : results) {
    if (const auto* lent = std::get_if<std::string_view>(&result.value)) result.value = std::string(*lent);
  }
  return results;
}

}  // namespace testing_support
