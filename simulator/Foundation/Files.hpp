// Whole files: reading, and replacing in one step.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <variant>

namespace sim {

/// The bytes of a file.
class FileContent final {
 public:
  FileContent(std::unique_ptr<std::byte[]> bytes, std::size_t size) : bytes_(std::move(bytes)), size_(size) {}
  std::span<const std::byte> bytes() const { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<std::byte[]> bytes_;
  std::size_t size_;
};

/// Reads the regular file at `path`; otherwise the `errno` value that says why not (EISDIR for a folder, EINVAL for
/// anything else that is no file, EFBIG when it does not fit into memory).
std::variant<FileContent, int> readFile(const std::string& path);

/// Replaces the file at `path` by one with `bytes`, in one step: a reader sees the old file or the new one, whole. The
/// new file keeps the permissions of the old one and has 0644 when there was none. A symbolic link at `path` is itself
/// replaced. When a step fails, the old file stays as it was and nothing else is left in its folder. Returns 0 or the
/// `errno` value of the step that failed.
int writeFileAtomically(const std::string& path, std::span<const std::byte> bytes);

/// Overwrites the file at `path`, or makes it, without a temporary file. A failure may leave part of it. Returns 0 or
/// an `errno` value.
int writeFileInPlace(const std::string& path, std::span<const std::byte> bytes);

/// Copies a file, a symbolic link or a folder with all that lies below it to `to`, where nothing may stand; files keep
/// their permissions and times. When a step fails, nothing stands there afterwards. Returns 0 or an `errno` value.
int copyItem(const std::string& from, const std::string& to);

/// Moves what stands at `from` to `to`, where nothing may stand; into another file system by copying it. Returns 0 or
/// an `errno` value.
int moveItem(const std::string& from, const std::string& to);

/// Removes the file, the symbolic link or the folder with all that lies below it. Returns 0 or an `errno` value; some
/// of a folder may be gone then.
int removeItem(const std::string& path);

/// Makes the folder at `path`, with those above it that are missing when it is `withParents`; then one that is there
/// already will do. Returns 0 or an `errno` value.
int makeFolder(const std::string& path, bool withParents);

}  // namespace sim
