// Files on the way to their place: written beside it, and given its name when they are whole.
#pragma once

#include <string>

#include "base/Descriptor.hpp"

namespace sim {

/// An open, empty file with a name of its own in the folder where its content is wanted. It is removed with this object
/// unless it was given its final name. When the process ends before that, `removeAbandonedFiles` takes the file for
/// what it is: as long as a writer lives it holds a lock on its file, which the system gives back when it dies.
class TemporaryFile final {
 public:
  /// Makes the file, with the permissions 0600. `error()` says why not.
  explicit TemporaryFile(std::string folder);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  /// 0, or the `errno` value for which there is no file.
  int error() const noexcept { return error_; }
  int descriptor() const noexcept { return file_.get(); }

  /// Gives the file the name `path`, in the same file system, in place of what has it. Returns 0 or an `errno` value.
  int moveTo(const std::string& path);

 private:
  int make();

  std::string folder_;
  std::string path_;  // Empty when there is nothing to remove.
  Descriptor file_;
  int error_;
};

/// Removes the files of writers that are gone from the folder `root` and those below it, not across symbolic links or
/// into other file systems. What looks different from a file that `TemporaryFile` makes stays.
void removeAbandonedFiles(const std::string& root);

}  // namespace sim
