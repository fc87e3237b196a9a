// Reading and writing whole files.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// The whole content of a regular file, or nothing.
std::optional<std::string> readFile(const std::filesystem::path& file);

/// Writes the file whole or not at all: to a temporary file beside it, which is then renamed. The folder must exist.
/// Throws Failure with the reason, and leaves what was there, when that cannot be done.
void writeFileAtomically(const std::filesystem::path& file, std::string_view content, mode_t mode = 0644);

}  // namespace sim
