// Whole files: reading, and replacing in one step.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace sim {

/// The permissions of files that nobody gives others.
inline constexpr mode_t kNewFileMode = 0644;

/// The bytes of a file.
class FileContent final {
 public:
  FileContent(std::unique_ptr<std::byte[]> bytes, std::size_t size) : bytes_(std::move(bytes)), size_(size) {}
  std::span<const std::byte> bytes() const { return {bytes_.get(), size_}; }
  std::string_view text() const { return {reinterpret_cast<const char*>(bytes_.get()), size_}; }

 private:
  std::unique_ptr<std::byte[]> bytes_;
  std::size_t size_;
};

/// Reads the regular file at `path`. Nothing when it cannot be read; `error`, where given, is then the `errno` value
/// that says why (EISDIR for a folder, EINVAL for anything else that is no file, EFBIG when it does not fit into
/// memory).
std::optional<FileContent> readFile(const std::string& path, int* error = nullptr);

/// Writes all of `bytes` to the open file. Returns 0 or the `errno` value that says why not; some may be written then.
int writeAll(int descriptor, std::span<const std::byte> bytes);

/// Replaces the file at `path` by one with `bytes`, in one step: a reader sees the old file or the new one, whole, also
/// after the computer has lost its power. The new file has the permissions `mode`; where none are given, it keeps owner
/// and permissions of the old one and has 0644 when there was none. A symbolic link at `path` is itself replaced. When
/// a step fails, the old file stays as it was and nothing else is left in its folder. Returns 0 or the `errno` value of
/// the step that failed.
int writeFileAtomically(const std::string& path, std::span<const std::byte> bytes, std::optional<mode_t> mode = {});

/// Overwrites the file at `path`, or makes it, without a temporary file. A failure may leave part of it. Returns 0 or
/// an `errno` value.
int writeFileInPlace(const std::string& path, std::span<const std::byte> bytes);

}  // namespace sim
