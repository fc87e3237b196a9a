// What is called in the slice. Each answers what it has shown, and ends the process at the first thing that is wrong.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "Image.hpp"

namespace device_test {

enum class Depth { kQuick, kThorough };

std::string testTone(const Image& image, Depth depth);
std::string testLookUp(const Image& image, std::span<const std::uint8_t> samples, Depth depth);
std::string testClasses(const Image& image);

}  // namespace device_test
