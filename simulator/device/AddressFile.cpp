#include "device/AddressFile.hpp"

#include "base/Failure.hpp"
#include "base/Files.hpp"

#include <span>
#include <system_error>
#include <utility>

namespace sim {

AddressFile::AddressFile(std::filesystem::path file, const std::string& address) : file_(std::move(file)) {
  constexpr mode_t kOwnerOnly = 0600;
  const std::string line = address + "\n";
  if (const int error = writeFileAtomically(file_, std::as_bytes(std::span(line)), kOwnerOnly))
    throw Failure::fromErrno("Cannot write " + file_.string(), error);
}

AddressFile::~AddressFile() {
  std::error_code error;
  std::filesystem::remove(file_, error);
}

}  // namespace sim
