// Tells whether a file is still the one that was read.
#pragma once

#include <cstdint>

namespace zuno {

/// What tells a file from every other and from itself before a change, as the file system keeps it. A file that is
/// written whole, as preference files are, becomes another one; one that is changed in place has another time, unless
/// the change fell into the same tick of the file system's clock (some milliseconds). Where there is no file
/// everything is 0.
struct FileState {
  std::uint64_t device = 0;
  std::uint64_t number = 0;
  std::int64_t size = 0;     ///< Bytes.
  std::int64_t changed = 0;  ///< Nanoseconds since 1970: the last change of the content or of anything else about it.

  friend bool operator==(const FileState&, const FileState&) = default;
};

/// Of the file at `path`, following links. Any thread.
FileState fileState(const char* path) noexcept;

/// Of an open file. Any thread.
FileState fileState(int descriptor) noexcept;

}  // namespace zuno
