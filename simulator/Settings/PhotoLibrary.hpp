// The device's photo library as the camera keeps it: numbered files in numbered folders. Plain C++. Main thread only.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "CoreGraphics/ImageDecoder.hpp"

namespace sim {

/// The extension that photos of the format of `file` have, such as "JPG". Nothing when `file` is no picture, too large,
/// or damaged: it is decoded to find out.
std::optional<std::string_view> photoExtension(const SharedBytes& file);

/// Moves `file` into the library at `root` as its newest photo, in one step and in nobody's place. Returns its path
/// below `root`, such as "100APPLE/IMG_0007.JPG", or the `errno` value that says why it stays where it is.
std::variant<std::string, int> addPhoto(const std::filesystem::path& root, const std::filesystem::path& file,
                                        std::string_view extension);

}  // namespace sim
