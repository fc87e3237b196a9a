#include "base/Files.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <variant>

#include "base/Descriptor.hpp"
#include "base/TemporaryFile.hpp"

namespace sim {

namespace {

std::string folderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == path.npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

/// Gives the open file the owner and the permissions of the one that it replaces, where they are kept.
int setMode(int descriptor, const struct stat* old, std::optional<mode_t> mode) {
  const bool keeps = !mode && old && S_ISREG(old->st_mode);
  if (keeps && ::fchown(descriptor, old->st_uid, old->st_gid) != 0 && errno != EPERM) return errno;
  return ::fchmod(descriptor, keeps ? old->st_mode & 07777 : mode.value_or(kNewFileMode)) == 0 ? 0 : errno;
}

/// Fills the new file and puts it at `path`.
int fillAndMove(TemporaryFile& file, const std::string& path, std::span<const std::byte> bytes,
                std::optional<mode_t> mode) {
  struct stat old{};
  const bool replaces = ::lstat(path.c_str(), &old) == 0;
  if (replaces && S_ISDIR(old.st_mode)) return EISDIR;  // With a slash at its end, renaming would call it no folder.
  if (const int error = setMode(file.descriptor(), replaces ? &old : nullptr, mode)) return error;
  if (const int error = writeAll(file.descriptor(), bytes)) return error;
  if (::fsync(file.descriptor()) != 0) return errno;
  return file.moveTo(path);
}

/// The bytes of the open file; otherwise the `errno` value that says why not.
std::variant<FileContent, int> contentOf(int file) {
  struct stat status{};
  if (::fstat(file, &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  if (!S_ISREG(status.st_mode)) return EINVAL;
  const auto size = static_cast<std::size_t>(status.st_size);
  std::unique_ptr<std::byte[]> bytes(new (std::nothrow) std::byte[size]);
  if (!bytes) return EFBIG;
  std::size_t read = 0;
  while (read < size) {
    const auto count = ::read(file, bytes.get() + read, size - read);
    if (count < 0 && errno != EINTR) return errno;
    if (count == 0) break;  // Somebody has just cut the file.
    if (count > 0) read += static_cast<std::size_t>(count);
  }
  return FileContent(std::move(bytes), read);
}

}  // namespace

std::optional<FileContent> readFile(const std::string& path, int* error) {
  // Opening a pipe would wait for its writer; O_NONBLOCK does not, and changes nothing for regular files.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  auto content = file ? contentOf(file.get()) : std::variant<FileContent, int>(errno);
  if (auto* read = std::get_if<FileContent>(&content)) return std::move(*read);
  if (error) *error = std::get<int>(content);
  return std::nullopt;
}

int writeAll(int descriptor, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const auto count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) return errno;
    if (count > 0) bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return 0;
}

int writeFileAtomically(const std::string& path, std::span<const std::byte> bytes, std::optional<mode_t> mode) {
  if (path.empty()) return ENOENT;
  const auto folder = folderOf(path);
  TemporaryFile file(folder);
  if (file.error() != 0) return file.error();
  if (const int error = fillAndMove(file, path, bytes, mode)) return error;
  // Not every file system can do this with a folder, and the file stands already.
  const Descriptor parent(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (parent) ::fsync(parent.get());
  return 0;
}

int writeFileInPlace(const std::string& path, std::span<const std::byte> bytes) {
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kNewFileMode));
  if (!file) return errno;
  if (const int error = writeAll(file.get(), bytes)) return error;
  return ::close(file.release()) == 0 ? 0 : errno;
}

}  // namespace sim
