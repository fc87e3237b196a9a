#include "device/FolderLock.hpp"

#include "device/Failure.hpp"
#include "device/FileContent.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace sim {
namespace {

// Whether the open file is the one that has the name now: the last holder may have removed it in between.
bool isAt(int descriptor, const std::filesystem::path& file) {
  struct stat open{};
  struct stat named{};
  return ::fstat(descriptor, &open) == 0 && ::stat(file.c_str(), &named) == 0 && open.st_ino == named.st_ino &&
         open.st_dev == named.st_dev;
}

std::string firstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

}  // namespace

FolderLock::FolderLock(std::filesystem::path file) : file_(std::move(file)) {
  do {
    descriptor_ = Descriptor(::open(file_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!descriptor_) throw Failure::fromErrno("Cannot write " + file_.string(), errno);
    if (::flock(descriptor_.get(), LOCK_EX | LOCK_NB) != 0) {
      if (errno != EWOULDBLOCK) throw Failure::fromErrno("Cannot lock " + file_.string(), errno);
      const std::string folder = file_.parent_path().parent_path().string();
      throw Failure("The device folder " + folder + " is in use by " +
                    firstLine(readFile(file_).value_or("another simulator")) + ".");
    }
  } while (!isAt(descriptor_.get(), file_));
  write("process " + std::to_string(::getpid()));
}

FolderLock::~FolderLock() {
  if (descriptor_) ::unlink(file_.c_str());
}

void FolderLock::setAddress(const std::string& address) {
  write("process " + std::to_string(::getpid()) + " at " + address);
}

// The text only informs: a disk that is full is found by the files that matter.
void FolderLock::write(const std::string& holder) {
  const std::string line = holder + "\n";
  if (::ftruncate(descriptor_.get(), 0) != 0) return;
  [[maybe_unused]] const auto written = ::pwrite(descriptor_.get(), line.data(), line.size(), 0);
}

}  // namespace sim
