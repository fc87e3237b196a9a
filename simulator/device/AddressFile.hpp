// Where the programs that build for the device find the simulator that runs on its folder.
#pragma once

#include <filesystem>
#include <string>

namespace sim {

/// A file with the address, token included, that only its user can read. It goes with this object; what a simulator
/// that was killed has left behind is replaced.
class AddressFile final {
 public:
  /// Throws Failure when the file cannot be written.
  AddressFile(std::filesystem::path file, const std::string& address);
  ~AddressFile();
  AddressFile(const AddressFile&) = delete;
  AddressFile& operator=(const AddressFile&) = delete;

 private:
  std::filesystem::path file_;
};

}  // namespace sim
