#include "core/PropertyListScan.hpp"

#include <new>

#include "core/PropertyListScanFormats.hpp"

namespace zuno {
namespace {

PropertyListScan scan(std::string_view document, std::string_view key) {
  if (document.substr(0, 1) == "<") return detail::scanXMLPropertyList(document, key);
  return detail::scanBinaryPropertyList(document, key);
}

}  // namespace

PropertyListScan scanPropertyList(std::span<const std::byte> document, std::string_view key) noexcept {
  try {
    return scan({reinterpret_cast<const char*>(document.data()), document.size()}, key);
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace zuno
