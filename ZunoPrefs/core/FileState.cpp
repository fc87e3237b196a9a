#include "core/FileState.hpp"

#include <sys/stat.h>

namespace zuno {
namespace {

/// The field has another name on each platform.
template <typename Status>
std::int64_t changed(const Status& status) noexcept {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  if constexpr (requires { status.st_ctimespec; }) {
    return status.st_ctimespec.tv_sec * kNanoseconds + status.st_ctimespec.tv_nsec;
  } else {
    return status.st_ctim.tv_sec * kNanoseconds + status.st_ctim.tv_nsec;
  }
}

FileState stateFrom(const struct stat& status) noexcept {
  return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino),
          static_cast<std::int64_t>(status.st_size), changed(status)};
}

}  // namespace

FileState fileState(const char* path) noexcept {
  struct stat status;
  return ::stat(path, &status) == 0 ? stateFrom(status) : FileState{};
}

FileState fileState(int descriptor) noexcept {
  struct stat status;
  return ::fstat(descriptor, &status) == 0 ? stateFrom(status) : FileState{};
}

bool showsChangesAfter(const FileState& state, std::chrono::system_clock::time_point time) noexcept {
  using std::chrono::nanoseconds;
  // A file system that keeps whole seconds is told by them: elsewhere a time seldom is one.
  const bool keepsSeconds = state.changed % nanoseconds(std::chrono::seconds(1)).count() == 0;
  const nanoseconds unsure = keepsSeconds ? nanoseconds(kClockTick + kCoarsestTime) : nanoseconds(kClockTick);
  return time.time_since_epoch() - nanoseconds(state.changed) >= unsure;
}

}  // namespace zuno
