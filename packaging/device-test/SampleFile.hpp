// The samples of the property-list look-up: written on this computer, read in the emulator. For each document its bytes
// and the number of keys, and for each key its bytes and those of `encoded` of the expected answer. Bytes come behind
// their number; numbers have 32 bits, the lowest byte first.
#pragma once

#include <string>
#include <type_traits>
#include <variant>

#include "core/PropertyListScan.hpp"

namespace device_test {

/// Outcome, type and value. A lent text and a decoded one are the same.
inline std::string encoded(const zuno::PropertyListScan& scan) {
  std::string result(1, static_cast<char>(scan.outcome));
  if (scan.outcome != zuno::PropertyListScan::Outcome::kFound) return result;
  return std::visit(
      [&](const auto& value) {
        using Value = std::decay_t<decltype(value)>;
        if constexpr (std::is_arithmetic_v<Value>) {
          result += static_cast<char>(scan.value.index());
          return result.append(reinterpret_cast<const char*>(&value), sizeof value);
        } else {
          return result.append("\xff").append(value);
        }
      },
      scan.value);
}

}  // namespace device_test
