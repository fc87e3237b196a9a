#include "device/FileContent.hpp"

#include "device/Descriptor.hpp"
#include "device/Failure.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace sim {

std::optional<std::string> readFile(const std::filesystem::path& file) {
  const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status{};
  if (!descriptor || ::fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;

  std::string content(static_cast<std::size_t>(status.st_size), '\0');
  std::size_t filled = 0;
  while (filled < content.size()) {
    const ssize_t count = ::read(descriptor.get(), content.data() + filled, content.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  content.resize(filled);
  return content;
}

void writeFileAtomically(const std::filesystem::path& file, std::string_view content, mode_t mode) {
  std::string temporary = file.string() + ".XXXXXX";
  const Descriptor descriptor(::mkostemp(temporary.data(), O_CLOEXEC));
  if (!descriptor) throw Failure::fromErrno("Cannot write " + file.string(), errno);

  const auto fail = [&](int error) {
    ::unlink(temporary.c_str());
    throw Failure::fromErrno("Cannot write " + file.string(), error);
  };
  while (!content.empty()) {
    const ssize_t count = ::write(descriptor.get(), content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail(errno);
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  if (::fchmod(descriptor.get(), mode) != 0) fail(errno);
  if (std::rename(temporary.c_str(), file.c_str()) != 0) fail(errno);
}

}  // namespace sim
