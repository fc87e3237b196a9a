// Ownership of a file descriptor.
#pragma once

#include <unistd.h>

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

}  // namespace sim
