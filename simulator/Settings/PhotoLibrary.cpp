#include "Settings/PhotoLibrary.hpp"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <system_error>

#include "CoreGraphics/ImageHeader.hpp"

namespace sim {

namespace {

namespace fs = std::filesystem;

constexpr int kFirstFolder = 100;
constexpr int kLastFolder = 999;
constexpr int kLastPhoto = 9999;
constexpr std::string_view kFolderEnd = "APPLE";
constexpr std::string_view kPhotoStart = "IMG_";
constexpr int kProbe = 64;  // Pixels; a picture that decodes at this size is whole.

std::string_view extensionOf(ImageFormat format) {
  switch (format) {
    case ImageFormat::png: return "PNG";
    case ImageFormat::jpeg: return "JPG";
    case ImageFormat::gif: return "GIF";
    case ImageFormat::tiff: return "TIFF";
    case ImageFormat::webp: return "WEBP";
    case ImageFormat::heif: return "HEIC";
  }
  return {};
}

// The number that `digits` writes, without a sign; 0 for anything else.
int numberIn(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size() && number > 0 ? number : 0;
}

// "100APPLE" → 100, anything else → 0.
int folderNumber(const std::string& name) {
  const bool fits = name.size() == 3 + kFolderEnd.size() && name.ends_with(kFolderEnd);
  const int number = fits ? numberIn(std::string_view(name).substr(0, 3)) : 0;
  return number >= kFirstFolder ? number : 0;
}

// "IMG_0007.JPG" → 7, anything else → 0.
int photoNumber(const std::string& name) {
  if (!name.starts_with(kPhotoStart)) return 0;
  const std::string_view rest = std::string_view(name).substr(kPhotoStart.size());
  return rest.size() > 4 && rest[4] == '.' ? numberIn(rest.substr(0, 4)) : 0;
}

// The highest number that `number` finds in the names in the folder; 0 for none.
int highest(const fs::path& folder, int (*number)(const std::string&)) {
  int found = 0;
  std::error_code error;
  for (fs::directory_iterator at(folder, error); !error && at != fs::directory_iterator(); at.increment(error)) {
    found = std::max(found, number(at->path().filename().string()));
  }
  return found;
}

// Renames unless something has the name already. Returns 0 or an `errno` value.
int renameToFreeName(const fs::path& from, const fs::path& to) {
  return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0 ? 0 : errno;
}

// Likewise from another file system: by way of a hidden copy beside `to`, which no list of photos shows.
int copyToFreeName(const fs::path& from, const fs::path& to) {
  const fs::path copy = to.parent_path() / ("." + to.filename().string());
  std::error_code error;
  fs::copy_file(from, copy, fs::copy_options::overwrite_existing, error);
  const int number = error ? error.value() : renameToFreeName(copy, to);
  std::error_code ignored;
  if (number != 0) fs::remove(copy, ignored);
  return number;
}

}  // namespace

std::optional<std::string_view> photoExtension(const SharedBytes& file) {
  const auto header = readImageHeader(*file);
  if (!header) return std::nullopt;
  const DecodedImage image = openImage(file);
  if (!image.source || !image.source->thumbnail(kProbe)) return std::nullopt;
  return extensionOf(header->format);
}

std::variant<std::string, int> addPhoto(const fs::path& root, const fs::path& file, std::string_view extension) {
  int folder = std::max(highest(root, folderNumber), kFirstFolder);
  const auto folderName = [&] { return std::to_string(folder) + std::string(kFolderEnd); };
  int photo = highest(root / folderName(), photoNumber) + 1;
  while (true) {
    if (photo > kLastPhoto) {
      photo = 1;
      if (++folder > kLastFolder) return ENOSPC;
    }
    std::error_code error;
    fs::create_directory(root / folderName(), error);
    if (error) return error.value();
    char stem[16];
    std::snprintf(stem, sizeof stem, "/IMG_%04d.", photo);
    std::string path = folderName() + stem + std::string(extension);
    int problem = renameToFreeName(file, root / path);
    if (problem == EXDEV) problem = copyToFreeName(file, root / path);
    if (problem == 0) return path;
    if (problem != EEXIST) return problem;
    ++photo;
  }
}

}  // namespace sim
