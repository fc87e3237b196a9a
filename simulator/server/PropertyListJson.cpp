#include "server/PropertyListJson.hpp"

#include "base/Base64.hpp"
#include "base/PropertyListDate.hpp"
#include "base/PropertyListReader.hpp"
#include "base/UTF8.hpp"

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sim {
namespace {

constexpr std::size_t kLongestData = 1'024;  // Bytes shown; so are the next.
constexpr std::size_t kLongestString = 4'096;
constexpr std::size_t kMostItems = 1'000;  // Of one collection.
constexpr std::size_t kMostItemsInAll = 20'000;
// Read, whether shown or not. Reading as many takes less than a second, which all other requests wait for.
constexpr std::size_t kMostValues = 1'000'000;
constexpr std::size_t kMostBytes = 128 << 20;
constexpr std::string_view kEllipsis = "\u2026";
constexpr std::size_t kCutKey =
    kLongestString + 3;  // No character has more than 4 bytes: longer than any that is whole.

nlohmann::json jsonOfString(std::string_view text) {
  if (text.size() <= kLongestString) return text;
  return {{"string", beginningOf(text, kLongestString)}, {"bytes", text.size()}};
}

nlohmann::json jsonOfData(std::span<const std::byte> bytes) {
  if (bytes.size() <= kLongestData) return {{"data", base64Encoded(bytes)}};
  return {{"data", nullptr}, {"bytes", bytes.size()}};
}

nlohmann::json jsonOfReal(double value) {
  if (std::isfinite(value)) return value;
  return {{"real", std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf"}};
}

nlohmann::json jsonOfDate(double seconds) {
  if (const auto text = iso8601FromSeconds(seconds)) return {{"date", *text}};
  return {{"date", nullptr}};
}

// Takes the values of one document and keeps what is shown of them.
class JsonCollector final : public ValueSink {
 public:
  // The document, once it has ended.
  nlohmann::json finished() && { return std::move(root_); }

  // Whether the document was given up, because it holds too much.
  bool isTooMuch() const { return isTooMuch_; }

  bool beginDictionary(std::size_t) override { return begin(nlohmann::json::object()); }
  bool beginArray(std::size_t) override { return begin(nlohmann::json::array()); }
  bool endDictionary() override { return end(); }
  bool endArray() override { return end(); }
  bool key(std::string_view text) override {
    if (!readBytes(text.size())) return false;
    if (hidden_ > 0 || !hasRoom()) return true;
    Collection& dictionary = open_.back();
    dictionary.key = text.size() > kLongestString ? unusedName(dictionary, beginningOf(text, kCutKey)) : text;
    return true;
  }
  bool string(std::string_view text) override {
    return readBytes(text.size()) && leaf([&] { return jsonOfString(text); });
  }
  bool integer(std::int64_t value) override {
    return leaf([&] { return nlohmann::json(value); });
  }
  bool unsignedInteger(std::uint64_t value) override {
    return leaf([&] { return nlohmann::json(value); });
  }
  bool real(double value) override {
    return leaf([&] { return jsonOfReal(value); });
  }
  bool boolean(bool value) override {
    return leaf([&] { return nlohmann::json(value); });
  }
  bool date(double seconds) override {
    return leaf([&] { return jsonOfDate(seconds); });
  }
  bool data(std::span<const std::byte> bytes) override {
    return readBytes(bytes.size()) && leaf([&] { return jsonOfData(bytes); });
  }
  bool null() override { return false; }

 private:
  // A collection that is shown and has not ended. It is the last item of the one before, and so stays where it is.
  struct Collection {
    nlohmann::json* json;
    std::size_t shown = 0;
    std::size_t omitted = 0;
    std::size_t repeated = 0;  // How many of its names had to be told apart.
    std::string key;           // Of the next value.
  };

  // `beginning` and an ellipsis, and a number where the dictionary has that already.
  static std::string unusedName(Collection& dictionary, std::string_view beginning) {
    const std::string name = std::string(beginning).append(kEllipsis);
    std::string unused = name;
    while (dictionary.json->contains(unused)) unused = name + " (" + std::to_string(++dictionary.repeated + 1) + ")";
    return unused;
  }

  bool readBytes(std::size_t count) {
    isTooMuch_ = isTooMuch_ || count > bytesLeft_;
    if (!isTooMuch_) bytesLeft_ -= count;
    return !isTooMuch_;
  }

  bool readValue() {
    isTooMuch_ = isTooMuch_ || valuesLeft_ == 0;
    if (!isTooMuch_) --valuesLeft_;
    return !isTooMuch_;
  }

  // Whether one more item is shown of what is open, which is shown itself.
  bool hasRoom() const { return open_.empty() || (open_.back().shown < kMostItems && left_ > 0); }

  // Whether the next value is shown; else it is counted.
  bool isShown() {
    if (hidden_ > 0) return false;
    if (open_.empty()) return true;
    Collection& collection = open_.back();
    if (!hasRoom()) {
      ++collection.omitted;
      return false;
    }
    ++collection.shown;
    --left_;
    return true;
  }

  nlohmann::json& put(nlohmann::json value) {
    if (open_.empty()) return root_ = std::move(value);
    Collection& collection = open_.back();
    if (collection.json->is_object()) return (*collection.json)[collection.key] = std::move(value);
    collection.json->push_back(std::move(value));
    return collection.json->back();
  }

  template <typename Make>
  bool leaf(Make make) {
    if (open_.empty() || !readValue()) return false;  // A file holds a collection.
    if (isShown()) put(make());
    return true;
  }

  bool begin(nlohmann::json empty) {
    if (!readValue()) return false;
    if (isShown()) open_.push_back({&put(std::move(empty)), 0, 0, 0, {}});
    else ++hidden_;
    return true;
  }

  bool end() {
    if (hidden_ > 0) {
      --hidden_;
      return true;
    }
    Collection ended = std::move(open_.back());
    open_.pop_back();
    const nlohmann::json rest{{"omitted", ended.omitted}};
    if (ended.omitted > 0 && ended.json->is_object()) (*ended.json)[unusedName(ended, {})] = rest;
    if (ended.omitted > 0 && ended.json->is_array()) ended.json->push_back(rest);
    return true;
  }

  nlohmann::json root_;
  std::vector<Collection> open_;
  std::size_t hidden_ = 0;  // How many open collections are not shown.
  std::size_t left_ = kMostItemsInAll;
  std::size_t valuesLeft_ = kMostValues;
  std::size_t bytesLeft_ = kMostBytes;
  bool isTooMuch_ = false;
};

}  // namespace

std::optional<nlohmann::json> propertyListJson(std::span<const std::byte> bytes, const char** problem) {
  JsonCollector collector;
  if (!readPropertyList(bytes, collector)) return std::move(collector).finished();
  if (problem)
    *problem = collector.isTooMuch() ? "The file holds too much to be shown." : "The file is no property list.";
  return std::nullopt;
}

}  // namespace sim
