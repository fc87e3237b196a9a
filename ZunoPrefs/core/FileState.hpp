// Tells whether a file is still the one that was read.
#pragma once

#include <chrono>
#include <cstdint>

namespace zuno {

/// What tells a file from every other and from itself before a change, as the file system keeps it. A file that is
/// written whole, as preference files are, becomes another one; one that is changed in place has another time, unless
/// the change fell into the same tick of the file system's clock (see showsChangesAfter). Where there is no file
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

/// The coarsest clock that file systems take their times from: Linux counts 100 to 1000 ticks a second.
inline constexpr std::chrono::milliseconds kClockTick{10};
/// The coarsest time that file systems keep: FAT has every other second, others have seconds.
inline constexpr std::chrono::seconds kCoarsestTime{2};

/// Whether every change after `time`, by the system's clock, leaves the file with another state than `state`. Not when
/// its last change was too short before: another one could have the same time. What was read of the file then counts
/// for this once. Where there is no file it is. Any thread.
bool showsChangesAfter(const FileState& state, std::chrono::system_clock::time_point time) noexcept;

}  // namespace zuno
