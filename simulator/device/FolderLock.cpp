#include "device/FolderLock.hpp"

#include "base/Failure.hpp"
#include "base/Files.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace sim {
namespace {

// What the lock file says about its holder.
std::string holderNamedIn(const std::filesystem::path& file) {
  const auto content = readFile(file);
  if (!content) return "another simulator";
  return std::string(content->text().substr(0, content->text().find('\n')));
}

}  // namespace

FolderLock::FolderLock(std::filesystem::path file) : file_(std::move(file)) {
  do {
    descriptor_ = Descriptor(::open(file_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!descriptor_) throw Failure::fromErrno("Cannot write " + file_.string(), errno);
    if (::flock(descriptor_.get(), LOCK_EX | LOCK_NB) != 0) {
      if (errno != EWOULDBLOCK) throw Failure::fromErrno("Cannot lock " + file_.string(), errno);
      const std::string folder = file_.parent_path().parent_path().string();
      throw Failure("The device folder " + folder + " is in use by " + holderNamedIn(file_) + ".");
    }
    // The last holder may have removed the file in between.
  } while (!isAt(file_, descriptor_));
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
