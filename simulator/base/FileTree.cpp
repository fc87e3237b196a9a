#include "base/FileTree.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <span>
#include <system_error>
#include <vector>

#include "base/Descriptor.hpp"
#include "base/Files.hpp"

namespace sim {

namespace {

constexpr std::size_t kCopyBytes = 256 << 10;  // At a time.

bool isPresent(const std::string& path) {
  struct stat status{};
  return ::lstat(path.c_str(), &status) == 0;
}

int copyLink(const std::string& from, const std::string& to) {
  std::error_code error;
  const auto target = std::filesystem::read_symlink(from, error);
  if (!error) std::filesystem::create_symlink(target, to, error);
  return error.value();
}

/// May leave part of a copy behind when it fails; so may the next one.
int copyFile(const std::string& from, const std::string& to, const struct stat& status) {
  const Descriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!source) return errno;
  const Descriptor copy(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode));
  if (!copy) return errno;
  std::vector<std::byte> buffer(kCopyBytes);
  while (true) {
    const auto count = ::read(source.get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) break;
    const auto read = std::span(buffer).first(static_cast<std::size_t>(count));
    if (const int error = writeAll(copy.get(), read)) return error;
  }
  const timespec times[] = {status.st_atim, status.st_mtim};
  if (::fchmod(copy.get(), status.st_mode & 07777) != 0 || ::futimens(copy.get(), times) != 0) return errno;
  return ::fsync(copy.get()) == 0 ? 0 : errno;
}

int copyTree(const std::string& from, const std::string& to) {
  struct stat status{};
  if (::lstat(from.c_str(), &status) != 0) return errno;
  if (S_ISLNK(status.st_mode)) return copyLink(from, to);
  if (S_ISREG(status.st_mode)) return copyFile(from, to, status);
  if (!S_ISDIR(status.st_mode)) return EINVAL;
  if (::mkdir(to.c_str(), 0777) != 0) return errno;
  std::error_code error;
  std::filesystem::directory_iterator item(from, error);
  for (; !error && item != std::filesystem::directory_iterator(); item.increment(error)) {
    const auto name = "/" + item->path().filename().string();
    if (const int problem = copyTree(from + name, to + name)) return problem;
  }
  if (error) return error.value();
  return ::chmod(to.c_str(), status.st_mode & 07777) == 0 ? 0 : errno;
}

}  // namespace

int copyItem(const std::string& from, const std::string& to) {
  if (isPresent(to)) return EEXIST;
  const int error = copyTree(from, to);
  std::error_code ignored;
  // What stands there when the name is taken is somebody else's.
  if (error != 0 && error != EEXIST) std::filesystem::remove_all(to, ignored);
  return error;
}

int moveItem(const std::string& from, const std::string& to) {
  if (isPresent(to)) return EEXIST;
  if (std::rename(from.c_str(), to.c_str()) == 0) return 0;
  if (errno != EXDEV) return errno;
  if (const int error = copyItem(from, to)) return error;
  std::error_code error;
  std::filesystem::remove_all(from, error);
  return error.value();
}

int removeItem(const std::string& path) {
  if (!isPresent(path)) return ENOENT;
  std::error_code error;
  std::filesystem::remove_all(path, error);
  return error.value();
}

int makeFolder(const std::string& path, bool withParents) {
  if (path.empty()) return ENOENT;
  if (!withParents) return ::mkdir(path.c_str(), 0777) == 0 ? 0 : errno;
  std::error_code error;
  std::filesystem::create_directories(path, error);
  // A link that leads nowhere stands there, but is no folder.
  return error == std::errc::file_exists ? ENOTDIR : error.value();
}

}  // namespace sim
