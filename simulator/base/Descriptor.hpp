// Ownership of a file descriptor, and what it stands for.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <utility>

namespace sim {

/// Owns one file descriptor and closes it; -1 when empty.
class Descriptor final {
 public:
  Descriptor() noexcept = default;
  explicit Descriptor(int descriptor) noexcept : value_(descriptor) {}
  Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    if (this != &other) {
      reset();
      value_ = std::exchange(other.value_, -1);
    }
    return *this;
  }
  ~Descriptor() { reset(); }

  int get() const noexcept { return value_; }
  explicit operator bool() const noexcept { return value_ >= 0; }
  int release() noexcept { return std::exchange(value_, -1); }
  void reset() noexcept {
    if (value_ >= 0) ::close(std::exchange(value_, -1));
  }

 private:
  int value_ = -1;
};

/// Whether `path` names the open file, and no link to it.
inline bool isAt(const std::string& path, const Descriptor& file) {
  struct stat open{};
  struct stat named{};
  return ::fstat(file.get(), &open) == 0 && ::lstat(path.c_str(), &named) == 0 && open.st_ino == named.st_ino &&
         open.st_dev == named.st_dev;
}

}  // namespace sim
