// The bytes of a preference file, for a scan.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "core/FileState.hpp"

namespace zuno {

/// The content of a file as it was when the object was made. Any thread, one at a time.
///
/// A small file is read; a large one is mapped, because copying twenty megabytes for every row of a page would take
/// longer than scanning them. The programs that write preference files replace them by renaming, which leaves a mapped
/// file as it was. Only a program that shortens a large file in place, while it is being scanned, would end this
/// process (SIGBUS).
class FileBytes final {
 public:
  /// Files from this size on, in bytes, are mapped.
  static constexpr std::size_t kMappedSize = std::size_t{1} << 18;

  /// Opens the file at `path`. Without one that is regular and readable the content is empty.
  explicit FileBytes(const char* path);
  ~FileBytes();
  FileBytes(const FileBytes&) = delete;
  FileBytes& operator=(const FileBytes&) = delete;

  /// Lent; lives as long as this object.
  std::span<const std::byte> bytes() const noexcept { return bytes_; }
  /// Of the file when it was opened.
  const FileState& state() const noexcept { return state_; }

 private:
  void read(int file, std::size_t size);
  void map(int file, std::size_t size) noexcept;

  std::vector<std::byte> buffer_;
  void* mapping_ = nullptr;
  FileState state_;
  std::span<const std::byte> bytes_;
};

}  // namespace zuno
