#include "device/Installer.hpp"

#include "base/Failure.hpp"
#include "base/FileTree.hpp"
#include "base/Files.hpp"
#include "base/Json.hpp"

#include <nlohmann/json.hpp>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <span>
#include <utility>

namespace sim {
namespace {

bool isPresent(const std::filesystem::path& file) {
  std::error_code error;
  return std::filesystem::symlink_status(file, error).type() != std::filesystem::file_type::not_found;
}

// Whether the path names something below a folder that it is relative to.
bool staysInside(const std::filesystem::path& path) {
  if (path.empty() || path.is_absolute()) return false;
  for (const auto& part : path)
    if (part == "..") return false;
  return true;
}

void replaceFile(const std::filesystem::path& file, std::string_view content, mode_t mode) {
  if (const int error = writeFileAtomically(file, std::as_bytes(std::span(content)), mode))
    throw Failure::fromErrno("Cannot write " + file.string(), error);
}

}  // namespace

Installer::Installer(std::filesystem::path root, std::filesystem::path manifest)
    : root_(std::move(root)), manifest_(std::move(manifest)) {
  const auto content = readFile(manifest_);
  const auto parsed = content ? parseJson(content->text()) : std::nullopt;
  if (!parsed || !parsed->is_object()) return;
  for (const auto& [path, entry] : parsed->items())
    if (entry.is_object() && staysInside(path))
      entries_[path] = {textOrEmpty(entry, "edition"), textOrEmpty(entry, "digest")};
}

void Installer::install(const ShippedFile& file) {
  const auto [found, isNew] = entries_.try_emplace(file.path);
  Entry& entry = found->second;
  entry.isCurrent = true;
  if (!isNew && entry.edition == file.edition) return;

  const std::string content = file.content();
  const std::string digest = contentDigest(content);
  if (digest != entry.digest) {
    const std::string onDisk = digestOnDisk(file.path);
    const bool isAbsent = onDisk.empty() && !isPresent(root_ / file.path);
    const bool isOurs = isNew ? isAbsent : !onDisk.empty() && onDisk == entry.digest;
    if (isOurs) write(file, content);
    if (isOurs || onDisk == digest) entry.digest = digest;
  }
  entry.edition = file.edition;
  isChanged_ = true;
}

void Installer::removeObsolete() {
  for (auto entry = entries_.begin(); entry != entries_.end();) {
    if (entry->second.isCurrent) {
      ++entry;
      continue;
    }
    const std::string digest = digestOnDisk(entry->first);
    std::error_code error;
    if (!digest.empty() && digest == entry->second.digest) {
      std::filesystem::path path = root_ / entry->first;
      // Removing a folder that is not empty fails, which ends the climb.
      for (bool removed = true; removed && path != root_; path = path.parent_path())
        removed = std::filesystem::remove(path, error);
    }
    entry = entries_.erase(entry);
    isChanged_ = true;
  }
}

void Installer::save() {
  if (!isChanged_) return;
  nlohmann::json manifest = nlohmann::json::object();
  for (const auto& [path, entry] : entries_) manifest[path] = {{"edition", entry.edition}, {"digest", entry.digest}};
  replaceFile(manifest_, toText(manifest, 1) + "\n", kNewFileMode);
  isChanged_ = false;
}

// Empty when there is no regular file.
std::string Installer::digestOnDisk(const std::string& path) const {
  const auto content = readFile(root_ / path);
  return content ? contentDigest(content->text()) : std::string();
}

void Installer::write(const ShippedFile& file, std::string_view content) const {
  const std::filesystem::path target = root_ / file.path;
  if (const int error = makeFolder(target.parent_path(), true))
    throw Failure::fromErrno("Cannot make " + target.parent_path().string(), error);
  replaceFile(target, content, file.mode);
}

std::string editionOf(const std::filesystem::path& file) {
  struct stat status{};
  if (::stat(file.c_str(), &status) != 0) throw Failure::fromErrno("Cannot read " + file.string(), errno);
  return std::to_string(status.st_size) + "-" + std::to_string(status.st_mtim.tv_sec) + "." +
         std::to_string(status.st_mtim.tv_nsec);
}

// Two 64-bit multiply-and-fold lanes over eight bytes at a time, with the length.
std::string contentDigest(std::string_view content) {
  constexpr std::uint64_t kFactors[2] = {0x9E3779B97F4A7C15u, 0xC2B2AE3D27D4EB4Fu};
  std::uint64_t lanes[2] = {0x243F6A8885A308D3u ^ content.size(), 0x13198A2E03707344u + content.size()};
  for (std::size_t at = 0; at < content.size(); at += 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, content.data() + at, std::min<std::size_t>(8, content.size() - at));
    for (int i = 0; i < 2; ++i) {
      lanes[i] = (lanes[i] ^ word) * kFactors[i];
      lanes[i] ^= lanes[i] >> 29;
    }
  }
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const std::uint64_t lane : lanes)
    for (int shift = 60; shift >= 0; shift -= 4) text += kDigits[lane >> shift & 15];
  return text;
}

}  // namespace sim
