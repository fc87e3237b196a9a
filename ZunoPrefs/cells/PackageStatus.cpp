#include "cells/PackageStatus.hpp"

namespace zuno {

std::optional<std::string_view> statusField(std::string_view record, std::string_view name) noexcept {
  constexpr std::string_view kSeparator = ": ";
  std::optional<std::string_view> value;
  while (!record.empty()) {
    const std::size_t end = record.find('\n');
    const std::string_view line = record.substr(0, end);
    record.remove_prefix(end == std::string_view::npos ? record.size() : end + 1);
    const std::size_t split = line.find(kSeparator);
    if (split != std::string_view::npos && line.substr(0, split) == name)
      value = line.substr(split + kSeparator.size());
  }
  return value;
}

}  // namespace zuno
