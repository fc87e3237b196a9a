#include "device/ProcessPipe.hpp"

#include "base/Failure.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace sim {

ProcessPipe::ProcessPipe(std::filesystem::path file) : file_(std::move(file)) {
  ::unlink(file_.c_str());
  if (::mkfifo(file_.c_str(), 0600) != 0) throw Failure::fromErrno("Cannot make " + file_.string(), errno);
  // Open for writing too, so that the end of a writer is no end of the pipe.
  descriptor_ = Descriptor(::open(file_.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
  if (!descriptor_) throw Failure::fromErrno("Cannot open " + file_.string(), errno);
}

ProcessPipe::~ProcessPipe() {
  if (descriptor_) ::unlink(file_.c_str());
}

KillRequests ProcessPipe::takeRequests() {
  KillRequests requests;
  char former = '\n';
  char buffer[512];
  ssize_t count;
  while ((count = ::read(descriptor_.get(), buffer, sizeof buffer)) > 0) {
    for (const char next : std::string_view(buffer, static_cast<std::size_t>(count))) {
      if (next == '\n') ++(former == kKillSettings ? requests.settings : requests.userInterface);
      former = next;
    }
  }
  return requests;
}

}  // namespace sim
