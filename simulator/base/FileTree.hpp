// Files and folders with all that lies below them: copying, moving, removing, making.
#pragma once

#include <string>

namespace sim {

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
/// already will do, and ENOTDIR tells that anything else is. Returns 0 or an `errno` value.
int makeFolder(const std::string& path, bool withParents);

}  // namespace sim
