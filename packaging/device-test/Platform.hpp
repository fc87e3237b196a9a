// What the slice imports: stand-ins for the few functions and objects of the platform that the tests need. Everything
// else is bound to memory that cannot be touched, and whoever does is told what it was.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace device_test {

class Platform final {
 public:
  /// Signs what the platform's own images would have signed, with the keys that the process has now.
  Platform();
  ~Platform();
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;

  /// The address of an imported symbol.
  std::uint64_t import(const std::string& symbol);

  /// The import that an address stands for; empty when it is none without a stand-in.
  std::string missing(std::uint64_t address) const;

 private:
  std::map<std::string, std::uint64_t> known_;
  std::vector<std::string> missing_;
  std::uint64_t forbidden_ = 0;
};

/// The C library and the C++ library, by the names that a device's have.
std::map<std::string, std::uint64_t> systemStandIns();
/// std::istringstream, whose virtual tables are signed.
std::map<std::string, std::uint64_t> streamStandIns();

}  // namespace device_test
