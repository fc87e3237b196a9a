#include "Foundation/Files.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <new>
#include <utility>

namespace sim {

namespace {

constexpr mode_t kNewFileMode = 0644;

class Descriptor final {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }
  int close() { return ::close(std::exchange(number_, -1)) == 0 ? 0 : errno; }

 private:
  int number_;
};

int writeAll(int descriptor, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const auto count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) return errno;
    if (count > 0) bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return 0;
}

std::string folderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == path.npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

/// Fills the open temporary file and puts it at `path`.
int fillAndRename(Descriptor& file, const std::string& temporary, const std::string& path,
                  std::span<const std::byte> bytes) {
  struct stat old {};
  const bool replaces = ::lstat(path.c_str(), &old) == 0;
  if (replaces && S_ISDIR(old.st_mode)) return EISDIR;
  const bool keepsMode = replaces && S_ISREG(old.st_mode);
  if (keepsMode && ::fchown(file.number(), old.st_uid, old.st_gid) != 0 && errno != EPERM) return errno;
  if (::fchmod(file.number(), keepsMode ? old.st_mode & 07777 : kNewFileMode) != 0) return errno;
  if (const int error = writeAll(file.number(), bytes)) return error;
  if (::fsync(file.number()) != 0) return errno;
  if (const int error = file.close()) return error;
  return ::rename(temporary.c_str(), path.c_str()) == 0 ? 0 : errno;
}

}  // namespace

std::variant<FileContent, int> readFile(const std::string& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file) return errno;
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  if (!S_ISREG(status.st_mode)) return EINVAL;
  const auto size = static_cast<std::size_t>(status.st_size);
  std::unique_ptr<std::byte[]> bytes(new (std::nothrow) std::byte[size]);
  if (!bytes) return EFBIG;
  std::size_t read = 0;
  while (read < size) {
    const auto count = ::read(file.number(), bytes.get() + read, size - read);
    if (count < 0 && errno != EINTR) return errno;
    if (count == 0) break;  // Somebody has just cut the file.
    if (count > 0) read += static_cast<std::size_t>(count);
  }
  return FileContent(std::move(bytes), read);
}

int writeFileAtomically(const std::string& path, std::span<const std::byte> bytes) {
  if (path.empty()) return ENOENT;
  const auto folder = folderOf(path);
  auto temporary = folder + "/.write-XXXXXX";
  Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
  if (!file) return errno;
  if (const int error = fillAndRename(file, temporary, path, bytes)) {
    ::unlink(temporary.c_str());
    return error;
  }
  const Descriptor parent(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (parent) ::fsync(parent.number());
  return 0;
}

int writeFileInPlace(const std::string& path, std::span<const std::byte> bytes) {
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kNewFileMode));
  if (!file) return errno;
  if (const int error = writeAll(file.number(), bytes)) return error;
  return file.close();
}

}  // namespace sim
