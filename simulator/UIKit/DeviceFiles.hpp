// The files below a folder of the device, as its pickers list them. Plain C++.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

/// The regular files below `root`, sorted, as paths below it with "/" between the parts.
///
/// Hidden files and folders, and links that lead out of `root`, are left out. With `extensions` (lower case, with the
/// dot) only files that have one of them, in whatever case, are listed. A folder that is not there or cannot be read
/// gives what could be read.
std::vector<std::string> filesBelow(const std::filesystem::path& root,
                                    const std::vector<std::string_view>& extensions = {});

}  // namespace sim
