// The files that the server gives out as they are: the page, its module, its fonts.
#pragma once

#include "server/Http.hpp"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

/// A table from request paths to contents, read once at start. A path that is not in the table does not exist, so no
/// request path ever reaches the file system.
class StaticFiles final {
 public:
  /// Adds every file below `folder`; "index.html" also answers for "/". Hidden files are left out. Throws Failure when
  /// the folder or a file in it cannot be read or holds no index.html.
  void addPage(const std::filesystem::path& folder);

  /// Adds one file. False, and nothing added, when it cannot be read.
  bool addFile(const std::string& path, const std::filesystem::path& file);

  /// The entry, or null. Any thread once the table is complete.
  const Response* find(std::string_view path) const;

 private:
  std::map<std::string, Response, std::less<>> entries_;
};

}  // namespace sim
