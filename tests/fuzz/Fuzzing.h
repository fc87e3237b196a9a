// What the fuzz programs share: a device folder of their own, and properties that end the run when they do not hold.
#pragma once

#import <Foundation/Foundation.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace fuzzing {

/// Starts Foundation and sets a new device folder with empty folders of presets and preferences. It lies in memory
/// where the computer has a file system for that, and is removed when the process exits.
void start();

/// Empties the folder of presets.
void clearPresets();

/// Names in the folder of presets, sorted, joined by ",".
std::string presets();

/// Writes `bytes` as the file at `path`.
void write(NSString *path, std::span<const std::uint8_t> bytes);

/// Whether the file at `path` holds just `bytes`.
bool holds(NSString *path, std::span<const std::uint8_t> bytes);

/// Ends the process, so that the fuzzer keeps the input, unless `condition` holds. `property` is what should hold.
void require(bool condition, const char *property);

}  // namespace fuzzing
