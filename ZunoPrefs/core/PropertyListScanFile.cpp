#include "core/PropertyListScanFile.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zuno {
namespace {

/// Closes a file at the end of a scope.
class Descriptor final {
 public:
  explicit Descriptor(int number) noexcept : number_(number) {}
  ~Descriptor() { ::close(number_); }  // Of a file that was not opened this does nothing.
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
  state_ = fileState(file.number());
  struct stat status;
  if (::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) return;
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
  const auto count = ::read(file, buffer_.data(), size);  // Less than `size` only where the file has become shorter.
  if (count > 0) bytes_ = std::span(buffer_).first(static_cast<std::size_t>(count));
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
