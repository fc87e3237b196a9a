#include "core/PropertyListScan.hpp"

#include <algorithm>
#include <new>

#include "core/PropertyListScanFormats.hpp"

namespace zuno {
namespace {

bool scan(std::string_view document, const detail::Lookups& lookups) {
  if (document.substr(0, 1) == "<") return detail::scanXMLPropertyList(document, lookups);
  return detail::scanBinaryPropertyList(document, lookups);
}

}  // namespace

PropertyListScan scanPropertyList(std::span<const std::byte> document, std::string_view key) noexcept {
  PropertyListScan result;
  scanPropertyListKeys(document, {&key, 1}, {&result, 1});
  return result;
}

void scanPropertyListKeys(std::span<const std::byte> document, std::span<const std::string_view> keys,
                          std::span<PropertyListScan> results) noexcept {
  try {
    if (scan({reinterpret_cast<const char*>(document.data()), document.size()}, {keys, results})) return;
  } catch (const std::bad_alloc&) {
  }
  std::fill(results.begin(), results.end(), PropertyListScan());
}

}  // namespace zuno
