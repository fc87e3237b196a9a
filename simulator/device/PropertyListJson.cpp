#include "device/PropertyListJson.hpp"

#include "device/PropertyListGuard.hpp"

#include <plist/plist.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace sim {
namespace {

constexpr std::size_t kLongestData = 1'024;  // Bytes shown; so are the next.
constexpr std::size_t kLongestString = 4'096;
constexpr std::size_t kMostItems = 1'000;  // Of one collection.
constexpr std::size_t kMostItemsInAll = 20'000;
constexpr std::int64_t kSecondsTo2001 = 978'307'200;  // From the beginning of 1970.

struct FreePlist {
  void operator()(void* node) const { plist_free(node); }
};
struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};
using Plist = std::unique_ptr<std::remove_pointer_t<plist_t>, FreePlist>;
template <typename Kind>
using Allocated = std::unique_ptr<Kind, FreeMemory>;

std::string base64(std::string_view bytes) {
  static constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t group = 0;
    for (std::size_t j = 0; j < 3; ++j)
      group = group << 8 | (i + j < bytes.size() ? static_cast<unsigned char>(bytes[i + j]) : 0);
    for (std::size_t j = 0; j < 4; ++j) text += i + j <= bytes.size() ? kDigits[group >> (18 - 6 * j) & 63] : '=';
  }
  return text;
}

nlohmann::json jsonOfString(std::string_view text) {
  if (text.size() <= kLongestString) return text;
  std::size_t end = kLongestString;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return {{"string", text.substr(0, end)}, {"bytes", text.size()}};
}

nlohmann::json jsonOfData(std::string_view bytes) {
  if (bytes.size() <= kLongestData) return {{"data", base64(bytes)}};
  return {{"data", nullptr}, {"bytes", bytes.size()}};
}

nlohmann::json jsonOfReal(double value) {
  if (std::isfinite(value)) return value;
  return {{"real", std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf"}};
}

nlohmann::json jsonOfDate(std::int64_t sinceReference) {
  const std::time_t time = static_cast<std::time_t>(sinceReference + kSecondsTo2001);
  std::tm parts{};
  char text[64];
  if (::gmtime_r(&time, &parts) == nullptr || std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts) == 0)
    return {{"date", nullptr}};
  return {{"date", text}};
}

// Walks one document. The depth of what it walks is bounded by the guard.
class Converter {
 public:
  nlohmann::json convert(plist_t node) {
    switch (plist_get_node_type(node)) {
      case PLIST_BOOLEAN: return boolean(node);
      case PLIST_UINT: return integer(node);
      case PLIST_REAL: return real(node);
      case PLIST_STRING: {
        std::uint64_t length = 0;
        const char* text = plist_get_string_ptr(node, &length);
        return jsonOfString(std::string_view(text ? text : "", text ? length : 0));
      }
      case PLIST_DATA: {
        std::uint64_t length = 0;
        const char* bytes = plist_get_data_ptr(node, &length);
        return jsonOfData(std::string_view(bytes ? bytes : "", bytes ? length : 0));
      }
      case PLIST_DATE: return date(node);
      case PLIST_UID: return uid(node);
      case PLIST_ARRAY: return array(node);
      case PLIST_DICT: return dictionary(node);
      default: return nullptr;
    }
  }

 private:
  static nlohmann::json boolean(plist_t node) {
    std::uint8_t value = 0;
    plist_get_bool_val(node, &value);
    return value != 0;
  }

  // The library gives negative integers as their two's complement; only its writer tells them from numbers above 2^63.
  static nlohmann::json integer(plist_t node) {
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) return value;
    const Plist alone(plist_copy(node));
    char* raw = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(alone.get(), &raw, &length);
    const Allocated<char> text(raw);
    const bool isNegative = text && std::string_view(raw, length).find("<integer>-") != std::string_view::npos;
    return isNegative ? nlohmann::json(static_cast<std::int64_t>(value)) : nlohmann::json(value);
  }

  static nlohmann::json real(plist_t node) {
    double value = 0;
    plist_get_real_val(node, &value);
    return jsonOfReal(value);
  }

  static nlohmann::json date(plist_t node) {
    std::int32_t seconds = 0;
    std::int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return jsonOfDate(seconds);
  }

  static nlohmann::json uid(plist_t node) {
    std::uint64_t value = 0;
    plist_get_uid_val(node, &value);
    return {{"uid", value}};
  }

  // How many of `count` items are shown.
  std::size_t takeItems(std::size_t count) {
    const std::size_t shown = std::min({count, kMostItems, left_});
    left_ -= shown;
    return shown;
  }

  nlohmann::json array(plist_t node) {
    nlohmann::json result = nlohmann::json::array();
    const std::size_t count = plist_array_get_size(node);
    const std::size_t shown = takeItems(count);
    plist_array_iter raw = nullptr;
    plist_array_new_iter(node, &raw);
    const Allocated<void> iterator(raw);
    for (std::size_t i = 0; i < shown; ++i) {
      plist_t item = nullptr;
      plist_array_next_item(node, iterator.get(), &item);
      result.push_back(convert(item));
    }
    if (shown < count) result.push_back({{"omitted", count - shown}});
    return result;
  }

  nlohmann::json dictionary(plist_t node) {
    nlohmann::json result = nlohmann::json::object();
    const std::size_t count = plist_dict_get_size(node);
    const std::size_t shown = takeItems(count);
    plist_dict_iter raw = nullptr;
    plist_dict_new_iter(node, &raw);
    const Allocated<void> iterator(raw);
    for (std::size_t i = 0; i < shown; ++i) {
      plist_t item = nullptr;
      char* key = nullptr;
      plist_dict_next_item(node, iterator.get(), &key, &item);
      const Allocated<char> ownedKey(key);
      if (key != nullptr) result[key] = convert(item);
    }
    if (shown < count) result["\u2026"] = {{"omitted", count - shown}};
    return result;
  }

  std::size_t left_ = kMostItemsInAll;
};

}  // namespace

std::optional<nlohmann::json> propertyListJson(std::string_view bytes) {
  if (!isSafePropertyList(bytes)) return std::nullopt;
  plist_t raw = nullptr;
  const auto size = static_cast<std::uint32_t>(bytes.size());
  // The library's own choice of the format knows more formats in newer versions, which the guard does not.
  if (plist_is_binary(bytes.data(), size)) plist_from_bin(bytes.data(), size, &raw);
  else plist_from_xml(bytes.data(), size, &raw);
  const Plist document(raw);
  if (!document) return std::nullopt;
  return Converter().convert(document.get());
}

}  // namespace sim
