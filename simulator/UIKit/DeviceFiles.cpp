#include "DeviceFiles.hpp"

#include <algorithm>
#include <cctype>
#include <system_error>

namespace sim {

namespace {

namespace fs = std::filesystem;

std::string lowerCase(std::string text) {
  for (char& letter : text) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return text;
}

bool liesBelow(const fs::path& file, const fs::path& root) {
  return std::mismatch(root.begin(), root.end(), file.begin(), file.end()).first == root.end();
}

}  // namespace

std::vector<std::string> filesBelow(const fs::path& root, const std::vector<std::string_view>& extensions) {
  std::vector<std::string> files;
  std::error_code error;
  const fs::path home = fs::canonical(root, error);
  if (error) return files;
  fs::recursive_directory_iterator at(home, fs::directory_options::skip_permission_denied, error);
  for (; !error && at != fs::recursive_directory_iterator(); at.increment(error)) {
    const fs::path& path = at->path();
    std::error_code problem;
    if (path.filename().native().starts_with('.')) {
      if (at->is_directory(problem)) at.disable_recursion_pending();
      continue;
    }
    if (!at->is_regular_file(problem)) continue;
    const std::string extension = lowerCase(path.extension().native());
    if (!extensions.empty() && std::find(extensions.begin(), extensions.end(), extension) == extensions.end()) continue;
    const fs::path real = fs::canonical(path, problem);
    if (!problem && liesBelow(real, home)) files.push_back(path.lexically_relative(home).generic_string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace sim
