#include "base/TemporaryFile.hpp"

#include <fcntl.h>
#include <fts.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>
#include <utility>

namespace sim {
namespace {

constexpr std::string_view kPrefix = ".simulator-write-";
constexpr std::string_view kPattern = "XXXXXX";

bool isTemporaryName(std::string_view name) {
  return name.size() == kPrefix.size() + kPattern.size() && name.starts_with(kPrefix) &&
         std::all_of(name.begin() + kPrefix.size(), name.end(),
                     [](unsigned char letter) { return std::isalnum(letter); });
}

void removeIfAbandoned(const std::string& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (!file || ::flock(file.get(), LOCK_EX | LOCK_NB) != 0) return;
  if (isAt(path, file)) ::unlink(path.c_str());
}

}  // namespace

TemporaryFile::TemporaryFile(std::string folder) : folder_(std::move(folder)) {
  do {
    error_ = make();
    // Between making and locking, another process may have taken the file for an abandoned one: then it is gone.
  } while (error_ == 0 && !isAt(path_, file_));
}

TemporaryFile::~TemporaryFile() {
  if (!path_.empty()) ::unlink(path_.c_str());
}

int TemporaryFile::make() {
  std::string path = folder_ + "/";
  path.append(kPrefix).append(kPattern);
  file_ = Descriptor(::mkostemp(path.data(), O_CLOEXEC));
  if (!file_) return errno;
  path_ = std::move(path);
  // A file system without locks does not keep anybody from writing; there, nothing is ever taken for abandoned.
  while (::flock(file_.get(), LOCK_EX) != 0 && errno == EINTR) {
  }
  return 0;
}

int TemporaryFile::moveTo(const std::string& path) {
  if (std::rename(path_.c_str(), path.c_str()) != 0) return errno;
  path_.clear();
  return 0;
}

void removeAbandonedFiles(const std::string& root) {
  char* const roots[] = {const_cast<char*>(root.c_str()), nullptr};
  const std::unique_ptr<FTS, int (*)(FTS*)> tree(::fts_open(roots, FTS_PHYSICAL | FTS_NOCHDIR | FTS_XDEV, nullptr),
                                                 ::fts_close);
  if (!tree) return;
  while (const FTSENT* entry = ::fts_read(tree.get())) {
    if (entry->fts_info == FTS_F && isTemporaryName(entry->fts_name)) removeIfAbandoned(entry->fts_path);
  }
}

}  // namespace sim
