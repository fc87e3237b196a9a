#include "server/UploadFolder.hpp"

#include "base/Failure.hpp"
#include "base/Files.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <span>
#include <string>
#include <system_error>
#include <utility>

namespace sim {

Upload::~Upload() { ::unlink(path_.c_str()); }

int Upload::append(std::string_view bytes) { return writeAll(descriptor_.get(), std::as_bytes(std::span(bytes))); }

UploadFolder::UploadFolder(const std::filesystem::path& deviceFolder, std::string devicePath)
    : folder_(deviceFolder.string() + devicePath), devicePath_(std::move(devicePath)) {
  std::error_code error;
  std::filesystem::remove_all(folder_, error);
  if (!error) std::filesystem::create_directory(folder_, error);
  if (error) throw Failure("Cannot empty the folder " + folder_.string() + ": " + error.message() + ".");
}

std::variant<UploadPtr, int> UploadFolder::begin() {
  const std::string name = std::to_string(++lastNumber_);
  std::filesystem::path path = folder_ / name;
  Descriptor descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
  if (!descriptor) return errno;
  return std::make_shared<Upload>(std::move(path), devicePath_ + "/" + name, std::move(descriptor));
}

}  // namespace sim
