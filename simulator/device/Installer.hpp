// Puts the files of a build into a device folder and keeps them up to date, without ever touching what a user changed.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace sim {

/// A file that a build brings along.
struct ShippedFile {
  std::string path;     // Relative to the device folder.
  std::string edition;  // Differs whenever the content may differ from that of another build.
  mode_t mode = 0644;
  std::function<std::string()> content;  // Called only when it is needed. May throw Failure.
};

/// Knows from a manifest what earlier runs installed. A file that is still as it was installed is brought up to date;
/// one that was changed or deleted since, or that was there before, is left as it is.
class Installer final {
 public:
  /// Reads the manifest. One that is missing or damaged counts as empty.
  Installer(std::filesystem::path root, std::filesystem::path manifest);

  /// Brings one file up to date. Throws Failure when it cannot be written.
  void install(const ShippedFile& file);

  /// Removes the files of earlier builds that were not installed again by this object and that are unchanged, and the
  /// folders that become empty with them.
  void removeObsolete();

  /// Writes the manifest when it has changed. Throws Failure.
  void save();

 private:
  struct Entry {
    std::string edition;
    std::string digest;  // Of what was installed; empty for a file that was there before.
    bool isCurrent = false;
  };

  std::string digestOnDisk(const std::string& path) const;
  void write(const ShippedFile& file, std::string_view content) const;

  std::filesystem::path root_;
  std::filesystem::path manifest_;
  std::map<std::string, Entry> entries_;
  bool isChanged_ = false;
};

/// The edition of what is made from `file`: its size and time of change. Throws Failure when there is no such file.
std::string editionOf(const std::filesystem::path& file);

/// A digest that tells contents apart; no protection against somebody who wants them alike.
std::string contentDigest(std::string_view content);

}  // namespace sim
