#include "device/DeviceFolder.hpp"

#include "base/Failure.hpp"
#include "base/FileTree.hpp"
#include "base/Files.hpp"
#include "device/Installer.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

namespace sim {
namespace {

constexpr std::string_view kOwnFolder = ".simulator";

constexpr std::array<std::string_view, 5> kStandardFolders{
    "Applications",         "var/jb/Library/PreferenceBundles", "var/jb/Library/PreferenceLoader/Preferences",
    "var/mobile/Documents", "var/mobile/Media/DCIM/100APPLE",
};

void requireFolder(const std::filesystem::path& folder) {
  if (const int error = makeFolder(folder, true))
    throw Failure::fromErrno("Cannot make the folder " + folder.string(), error);
}

// Makes the device folder and the simulator's own one; gives the device folder's absolute path.
std::filesystem::path opened(const std::filesystem::path& folder) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(folder, error);
  if (std::filesystem::exists(absolute, error) && !std::filesystem::is_directory(absolute, error))
    throw Failure("The device folder " + absolute.string() + " cannot be used: it is a file.");
  requireFolder(absolute);
  const auto canonical = std::filesystem::canonical(absolute, error);
  if (error) throw Failure("The device folder " + absolute.string() + " cannot be used: " + error.message() + ".");
  requireFolder(canonical / kOwnFolder);
  return canonical;
}

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& tree) {
  std::vector<std::filesystem::path> files;
  std::error_code error;
  std::filesystem::recursive_directory_iterator item(tree, error);
  for (; !error && item != std::filesystem::recursive_directory_iterator(); item.increment(error))
    if (item->is_regular_file(error)) files.push_back(item->path());
  if (error) throw Failure("Cannot read what is to be installed from " + tree.string() + ": " + error.message() + ".");
  std::ranges::sort(files);
  return files;
}

// Its permissions are those that a package gives, whatever the umask of who built it.
ShippedFile shippedFrom(const std::filesystem::path& tree, const std::filesystem::path& file) {
  std::error_code error;
  const auto permissions = std::filesystem::status(file, error).permissions();
  const bool isProgram = (permissions & std::filesystem::perms::owner_exec) != std::filesystem::perms::none;
  const auto content = [file] {
    int error = 0;
    const auto read = readFile(file, &error);
    if (!read) throw Failure::fromErrno("Cannot read " + file.string(), error);
    return std::string(read->text());
  };
  return {file.lexically_relative(tree).generic_string(), editionOf(file), isProgram ? 0755u : kNewFileMode, content};
}

}  // namespace

DeviceFolder::DeviceFolder(const std::filesystem::path& folder)
    : path_(opened(folder)), lock_(ownFolder() / "lock"), backboardd_(ownFolder() / "backboardd") {
  for (const std::string_view standard : kStandardFolders) requireFolder(path_ / standard);
  for (const std::string& preferences : preferenceFolders()) requireFolder(path_ / preferences.substr(1));
}

void DeviceFolder::install(const std::filesystem::path& tree) {
  if (tree.empty()) return;
  const std::vector<std::filesystem::path> files = filesIn(tree);
  Installer installer(path_, ownFolder() / "installed.json");
  try {
    for (const std::filesystem::path& file : files) installer.install(shippedFrom(tree, file));
  } catch (const Failure&) {
    installer.save();  // What was installed until now is known to the next run.
    throw;
  }
  installer.removeObsolete();
  installer.save();
}

std::filesystem::path DeviceFolder::ownFolder() const { return path_ / kOwnFolder; }

std::string DeviceFolder::ownDevicePath() const { return "/" + std::string(kOwnFolder); }

const std::vector<std::string>& preferenceFolders() {
  static const std::vector<std::string> folders{"/var/mobile/Library/Preferences",
                                                "/var/jb/var/mobile/Library/Preferences"};
  return folders;
}

}  // namespace sim
