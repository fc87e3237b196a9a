#include "device/FileContent.hpp"

#include "device/Failure.hpp"
#include "files/Descriptor.hpp"
#include "files/TemporaryFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

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
  const auto check = [&](int error) {
    if (error != 0) throw Failure::fromErrno("Cannot write " + file.string(), error);
  };
  TemporaryFile temporary(file.parent_path().empty() ? "." : file.parent_path().string());
  check(temporary.error());
  while (!content.empty()) {
    const ssize_t count = ::write(temporary.descriptor(), content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) check(errno);
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  if (::fchmod(temporary.descriptor(), mode) != 0) check(errno);
  check(temporary.moveTo(file.string()));
}

}  // namespace sim
