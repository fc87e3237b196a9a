// Scans property lists in XML, spelled as the programs that write them do.
#include <algorithm>
#include <bitset>
#include <charconv>
#include <locale>
#include <sstream>
#include <system_error>
#include <utility>

#include "core/PropertyListScanFormats.hpp"
#include "core/PropertyListScanText.hpp"

namespace zuno::detail {
namespace {

constexpr std::pair<std::string_view, char> kEntities[] = {
    {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&apos;", '\''}, {"&quot;", '"'}};

bool startsWith(std::string_view text, std::string_view start) { return text.substr(0, start.size()) == start; }

/// Removes `start` from the front of `text`; false when it does not stand there.
bool take(std::string_view& text, std::string_view start) {
  if (!startsWith(text, start)) return false;
  text.remove_prefix(start.size());
  return true;
}

/// Removes the decimal digits at the front of `text`. Returns how many there were.
std::size_t takeDigits(std::string_view& text) {
  const auto count = std::min(text.find_first_not_of("0123456789"), text.size());
  text.remove_prefix(count);
  return count;
}

/// The entity at the front of `text`; null for those that only a full parse knows.
const std::pair<std::string_view, char>* entityAt(std::string_view text) {
  for (const auto& entity : kEntities) {
    if (startsWith(text, entity.first)) return &entity;
  }
  return nullptr;
}

/// The text between two tags, checked but not yet decoded.
struct RawText {
  std::string_view bytes;
  bool hasEntities = false;

  std::string decoded() const {
    std::string text;
    for (auto rest = bytes; !rest.empty();) {
      const auto plain = std::min(rest.find('&'), rest.size());
      text.append(rest, 0, plain);
      rest.remove_prefix(plain);
      if (const auto* entity = entityAt(rest)) {
        text.push_back(entity->second);
        rest.remove_prefix(entity->first.size());
      }
    }
    return text;
  }

  ScannedValue value() const { return hasEntities ? ScannedValue(decoded()) : ScannedValue(bytes); }
  bool equals(std::string_view text) const { return hasEntities ? decoded() == text : bytes == text; }
};

/// Reads "[-]digits" without leading zeros, which some readers take for octal.
bool readInteger(std::string_view text, ScannedValue& value) {
  auto digits = text;
  const bool isNegative = take(digits, "-");
  if (digits.empty() || (startsWith(digits, "0") && (isNegative || digits.size() > 1))) return false;

  const auto* const end = text.data() + text.size();
  std::int64_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (stop != end) return false;
  value = number;
  if (error == std::errc()) return true;
  std::uint64_t large = 0;
  if (std::from_chars(text.data(), end, large).ec != std::errc()) return false;
  value = large;
  return true;
}

/// Whether `text` is "[-]digits[.digits][e[+|-]digits]" and too short to be beyond the range of normal numbers.
bool isReal(std::string_view text) {
  constexpr std::size_t kLongest = 48;
  constexpr std::size_t kExponentDigits = 2;
  if (text.size() > kLongest) return false;
  take(text, "-");
  if (takeDigits(text) == 0 || (take(text, ".") && takeDigits(text) == 0)) return false;
  if (take(text, "e") || take(text, "E")) {
    if (!take(text, "+")) take(text, "-");
    const auto digits = takeDigits(text);
    if (digits == 0 || digits > kExponentDigits) return false;
  }
  return text.empty();
}

/// The number nearest to `text`, with the decimal point of no locale.
double realNumber(std::string_view text) {
  std::istringstream stream{std::string(text)};
  stream.imbue(std::locale::classic());
  double number = 0;
  stream >> number;
  return number;
}

class Scanner final {
 public:
  Scanner(std::string_view document, const Lookups& lookups) : rest_(document), lookups_(lookups) {}

  bool readDocument() {
    if (!take(rest_, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>")) return false;
    if (takeAfterSpace("<!DOCTYPE plist PUBLIC ") && !skipDoctype()) return false;
    if (!takeAfterSpace("<plist version=\"1.0\">") && !take(rest_, "<plist version=\"0.9\">")) return false;
    lookups_.setAbsent();
    if (!takeAfterSpace("<dict/>")) {
      if (!take(rest_, "<dict>") || !open(Container::kDictionary)) return false;
      while (depth_ > 0) {
        if (!readNext()) return false;
      }
    }
    if (!takeAfterSpace("</plist>")) return false;
    skipSpace();
    return rest_.empty();
  }

 private:
  void skipSpace() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size())); }

  bool takeAfterSpace(std::string_view start) {
    skipSpace();
    return take(rest_, start);
  }

  /// Skips two quoted names and the end of the tag; declarations in brackets are not for this scanner.
  bool skipDoctype() {
    const auto end = rest_.find_first_of("[<>");
    if (end == rest_.npos || rest_[end] != '>' || !isASCII(rest_.substr(0, end))) return false;
    const bool quotesMatch = std::count(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(end), '"') == 4;
    rest_.remove_prefix(end + 1);
    return quotesMatch;
  }

  enum class Container : bool { kArray, kDictionary };

  bool open(Container container) {
    if (depth_ == kMaximumDepth) return false;
    isDictionary_[depth_++] = container == Container::kDictionary;
    return true;
  }

  /// Reads an entry of the innermost container, or its end.
  bool readNext() {
    const bool inDictionary = isDictionary_[depth_ - 1];
    if (takeAfterSpace(inDictionary ? "</dict>" : "</array>")) {
      --depth_;
      return true;
    }
    if (!inDictionary) return readValue(nullptr);

    RawText key;
    if (!take(rest_, "<key>") || !readText(key) || !take(rest_, "</key>")) return false;
    skipSpace();
    if (depth_ > 1) return readValue(nullptr);
    const auto place = lookups_.find([&](std::string_view wanted) { return key.equals(wanted); });
    if (place == lookups_.keys.size()) return readValue(nullptr);
    return lookups_.setFound(place) && readValue(&lookups_.results[place].value);
  }

  /// Reads one value, or the start of one that is a container. `wanted` takes the value, which must be no container.
  bool readValue(ScannedValue* wanted) {
    if (take(rest_, "<string>")) return readString(wanted);
    if (take(rest_, "<integer>")) return readNumber("</integer>", wanted);
    if (take(rest_, "<real>")) return readNumber("</real>", wanted);
    if (take(rest_, "<true/>")) return give(wanted, true);
    if (take(rest_, "<false/>")) return give(wanted, false);
    if (take(rest_, "<string/>")) return give(wanted, std::string_view());
    if (wanted) return false;
    if (take(rest_, "<dict>")) return open(Container::kDictionary);
    if (take(rest_, "<array>")) return open(Container::kArray);
    return depth_ < kMaximumDepth && (take(rest_, "<dict/>") || take(rest_, "<array/>"));
  }

  static bool give(ScannedValue* wanted, ScannedValue value) {
    if (wanted) *wanted = std::move(value);
    return true;
  }

  /// Reads up to the next tag.
  bool readText(RawText& text) {
    const auto start = rest_;
    for (;;) {
      rest_.remove_prefix(plainLength(rest_));
      if (startsWith(rest_, "<")) break;
      const auto* entity = entityAt(rest_);
      if (!entity) return false;
      rest_.remove_prefix(entity->first.size());
      text.hasEntities = true;
    }
    text.bytes = start.substr(0, start.size() - rest_.size());
    return true;
  }

  bool readString(ScannedValue* wanted) {
    RawText text;
    if (!readText(text) || !take(rest_, "</string>")) return false;
    if (wanted) *wanted = text.value();
    return true;
  }

  bool readNumber(std::string_view closingTag, ScannedValue* wanted) {
    const auto text = rest_.substr(0, rest_.find('<'));
    rest_.remove_prefix(text.size());
    if (!take(rest_, closingTag)) return false;
    if (closingTag == "</real>") {
      if (!isReal(text)) return false;
      if (wanted) *wanted = realNumber(text);
      return true;
    }
    ScannedValue number;
    return readInteger(text, number) && give(wanted, std::move(number));
  }

  std::string_view rest_;
  const Lookups& lookups_;
  std::size_t depth_ = 0;
  std::bitset<kMaximumDepth> isDictionary_;  // The open containers, the root first.
};

}  // namespace

bool scanXMLPropertyList(std::string_view document, const Lookups& lookups) {
  return Scanner(document, lookups).readDocument();
}

}  // namespace zuno::detail
