#include "core/PropertyListScanFile.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace zuno {
namespace {

/// Closes a file at the end of a scope.
class Descriptor final {
 public:
  explicit Descriptor(int number) noexcept : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const noexcept { return number_; }

 private:
  const int number_;
};

}  // namespace

FileBytes::FileBytes(const char* path) {
  // Opening a pipe would wait for its writer; O_NONBLOCK does not and changes nothing for regular files.
  const Descriptor file(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status;
  if (file.number() < 0 || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) return;
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size < kMappedSize) {
    read(file.number(), size);
  } else {
    map(file.number(), size);
  }
}

FileBytes::~FileBytes() {
  if (mapping_) ::munmap(mapping_, bytes_.size());
}

void FileBytes::read(int file, std::size_t size) {
  buffer_.resize(size);
  std::size_t end = 0;
  while (end < size) {
    const auto count = ::read(file, buffer_.data() + end, size - end);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return;
    if (count == 0) break;  // It became shorter meanwhile.
    end += static_cast<std::size_t>(count);
  }
  bytes_ = std::span(buffer_).first(end);
}

void FileBytes::map(int file, std::size_t size) noexcept {
  int flags = MAP_PRIVATE;
#if defined(MAP_POPULATE)
  flags |= MAP_POPULATE;
#endif
  void* const start = ::mmap(nullptr, size, PROT_READ, flags, file, 0);
  if (start == MAP_FAILED) return;
  mapping_ = start;
  bytes_ = {static_cast<const std::byte*>(start), size};
}

}  // namespace zuno
