// Disks on which a write fails.
#pragma once

#import <Foundation/Foundation.h>
#import <Foundation/SIMDevice.h>

#include <gtest/gtest.h>

#include <sys/fsuid.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <string>

namespace testing_support {

/// While it exists no file grows beyond `bytes`: a write that reaches the limit is cut, and the next one fails.
class FullDisk final {
 public:
  explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk &) = delete;
  FullDisk &operator=(const FullDisk &) = delete;

 private:
  void (*handler_)(int);
  rlimit before_{};
};

/// While it exists nothing can be made or removed in `folder`, a folder of the test's device.
class ReadOnlyFolder final {
 public:
  explicit ReadOnlyFolder(NSString *folder) : folder_([folder fileSystemRepresentation]) {
    EXPECT_EQ(::chmod([SIMDeviceFolder() fileSystemRepresentation], 0755), 0);
    EXPECT_EQ(::chmod(folder_.c_str(), 0555), 0);
    // The superuser may write anywhere; the file system then takes this process for somebody else.
    if (::geteuid() == 0) ::setfsuid(kNobody);
  }
  ~ReadOnlyFolder() {
    if (::geteuid() == 0) ::setfsuid(0);
    ::chmod(folder_.c_str(), 0755);
  }
  ReadOnlyFolder(const ReadOnlyFolder &) = delete;
  ReadOnlyFolder &operator=(const ReadOnlyFolder &) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  std::string folder_;
};

}  // namespace testing_support

using testing_support::FullDisk;
using testing_support::ReadOnlyFolder;
